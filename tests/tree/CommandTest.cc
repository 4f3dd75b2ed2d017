#include <gtest/gtest.h>

#include <stdexcept>

#include "support/tree/ScriptedCommand.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/tree/CommandInput.h"
#include "tindra/autocli/tree/Namespace.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaList.h"

namespace Tindra::AutoCli {
namespace {

using CallSpec::Input;
using CallSpec::Output;
using MetaObj::MetaStruct;
using Errors = std::vector<std::string>;

std::string Text(std::shared_ptr<MetaObj::MetaObject> const& structure, char const* field) {
    auto value = std::static_pointer_cast<MetaStruct>(structure)->GetField(field);
    return value ? std::static_pointer_cast<MetaObj::MetaString>(value)->GetValue() : "(absent)";
}

std::shared_ptr<MetaObj::MetaObject> FirstExample(std::shared_ptr<Output> const& output) {
    auto help = std::static_pointer_cast<MetaStruct>(output->GetRootObject());
    return std::static_pointer_cast<MetaObj::MetaList>(help->GetField("Example List"))->GetItem(0);
}

class CommandTest : public ::testing::Test {
protected:
    void SetUp() override { Namespace::New()->RegisterNamespaceNode(command, "list"); }

    Errors Run(std::shared_ptr<Input> input, Testing::ScriptedCommand::Action action) {
        command->action = std::move(action);
        command->Execute(std::move(input), output = Output::New());
        return output->GetErrors();
    }

    std::shared_ptr<Input> InputFor(std::list<std::string> const& path) {
        auto input = CommandInput::New();
        input->SetDispatcher("ostrel");
        input->SetCommandPath(path);
        return input;
    }

    std::shared_ptr<Testing::ScriptedCommand> command = Testing::ScriptedCommand::New();
    std::shared_ptr<Output> output;
};

// The help flag's texts are checked end to end; here, that it is added once, or not at all.
TEST_F(CommandTest, HelpParameterIsAddedOnceAndCached) {
    auto spec = command->GetInputSpec();
    EXPECT_EQ(command->GetInputSpec(), spec);
    EXPECT_EQ(spec->parameters.size(), 1u);
    auto clashing = Testing::ScriptedCommand::New();
    auto hint = CallSpec::ParameterSpec::New("hint", CallSpec::ParamString);
    hint->SetShortName("h");
    clashing->declaredInput->AddParameter(hint);
    EXPECT_THROW(clashing->GetInputSpec(), TindraException);
    EXPECT_EQ(clashing->GetInputSpec()->parameters.size(), 1u);  // cached without help
}

TEST_F(CommandTest, FailuresBecomeErrorsAndMismatchedResultsAreFlagged) {
    auto boom = [](Input&, Output&) { throw std::runtime_error("boom"); };
    EXPECT_EQ(Run(InputFor({"demo", "widget", "list"}), boom),
              Errors{"Error on command demo widget list : boom"});
    EXPECT_EQ(Run(Input::New(), boom), Errors{"Error on command list : boom"});
    EXPECT_THROW(Run(Input::New(), [](Input&, Output&) { throw 42; }), int);
    auto integer = [](Input&, Output& out) { out.SetRootObject(MetaObj::MetaInt::New(3)); };
    EXPECT_EQ(Run(Input::New(),
                  [&](Input& in, Output& out) {
                      integer(in, out);
                      out.AddErrorMessage("device busy");
                  }),
              Errors{"device busy"});  // an output with errors is not validated

    auto const errors = Run(Input::New(), integer);
    Errors expected;
    EXPECT_FALSE(command->GetOutputSpec()->Validate(output, &expected));
    ASSERT_FALSE(expected.empty());
    expected.push_back(
        "Implementation error! The output of this command does not match the declared output "
        "type, see errors above.");
    EXPECT_EQ(errors, expected);
}

TEST_F(CommandTest, HelpIsAnsweredWithoutRunningOrValidating) {
    command->declaredOutput = MetaObj::MetaInt::New(0);
    command->AddExample("--all", "List all items");
    auto password = CallSpec::ParameterSpec::New("password", CallSpec::ParamString);
    password->SetSecret(true);
    command->declaredInput->AddParameter(password);
    auto input = InputFor({"demo", "widget", "item", "list"});
    input->AddParameter("help", "");
    EXPECT_EQ(Run(input, nullptr), Errors{});
    EXPECT_EQ(command->executions, 0);
    EXPECT_EQ(output->GetOutputType(), Output::Help);
    auto help = std::static_pointer_cast<MetaStruct>(output->GetRootObject());
    EXPECT_EQ(help->GetTypeName(), "OstrelCommandHelp");
    EXPECT_EQ(Text(help, "Dispatcher") + "|" + Text(help, "Path"), "ostrel|demo widget item list");
    EXPECT_EQ(Text(FirstExample(output), "Syntax"), "# ostrel demo widget item list --all");
    EXPECT_EQ(Text(FirstExample(output), "Description"), "List all items :");
    auto parameters = std::static_pointer_cast<MetaObj::MetaList>(help->GetField("Param List"));
    ASSERT_EQ(parameters->GetCount(), 2u);
    auto row = std::static_pointer_cast<MetaStruct>(parameters->GetItem(1));
    EXPECT_EQ(Text(row, "Name"), "password");
    for (char const* flag : {"Required", "Secret"}) {
        EXPECT_TRUE(std::static_pointer_cast<MetaObj::MetaBool>(row->GetField(flag))->GetValue());
    }

    command->GenerateHelpOutput(Input::New(), output = Output::New());
    EXPECT_EQ(std::static_pointer_cast<MetaStruct>(output->GetRootObject())->GetFieldNames(),
              (std::vector<std::string>{"Description", "Example List", "Param List"}));
    EXPECT_EQ(Text(FirstExample(output), "Syntax"), "#  --all");
}

}  // namespace
}  // namespace Tindra::AutoCli
