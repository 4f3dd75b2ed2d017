#include <gtest/gtest.h>

#include <stdexcept>

#include "support/tree/ScriptedCommand.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/tree/CommandInput.h"
#include "tindra/autocli/tree/Namespace.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaList.h"

namespace Tindra {
namespace AutoCli {
namespace {

using CallSpec::Input;
using CallSpec::Output;
using MetaObj::MetaStruct;
using Errors = std::vector<std::string>;

std::shared_ptr<CommandInput> InputFor(std::list<std::string> const& path) {
    auto input = CommandInput::New();
    input->SetDispatcher("ostrel");
    input->SetCommandPath(path);
    return input;
}

std::string Text(std::shared_ptr<MetaObj::MetaObject> const& structure, char const* field) {
    auto value = std::static_pointer_cast<MetaStruct>(structure)->GetField(field);
    return value ? std::static_pointer_cast<MetaObj::MetaString>(value)->GetValue() : "(absent)";
}

bool Flag(std::shared_ptr<MetaStruct> const& structure, char const* field) {
    return std::static_pointer_cast<MetaObj::MetaBool>(structure->GetField(field))->GetValue();
}

class CommandTest : public ::testing::Test {
protected:
    void SetUp() override { Namespace::New()->RegisterNamespaceNode(command, "list"); }

    Errors Run(std::shared_ptr<Input> input, Testing::ScriptedCommand::Action action) {
        command->action = std::move(action);
        output = Output::New();
        command->Execute(std::move(input), output);
        return output->GetErrors();
    }

    std::shared_ptr<Testing::ScriptedCommand> command = Testing::ScriptedCommand::New();
    std::shared_ptr<Output> output;
};

TEST_F(CommandTest, HelpParameterIsAddedOnceAndCached) {
    auto spec = command->GetInputSpec();
    ASSERT_EQ(spec->parameters.size(), 1u);
    auto help = spec->parameters[0];
    EXPECT_EQ(help->GetName() + help->GetShortName() + help->GetDescription(false),
              "helphShow the help message.");
    EXPECT_EQ(help->GetType(), CallSpec::ParamBool);
    EXPECT_FALSE(help->IsRequired());
    EXPECT_EQ(command->GetInputSpec(), spec);
    EXPECT_EQ(spec->parameters.size(), 1u);

    auto clashing = Testing::ScriptedCommand::New();
    clashing->declaredInput->AddParameter(
        CallSpec::ParameterSpec::New("hint", CallSpec::ParamString));
    clashing->declaredInput->parameters[0]->SetShortName("h");
    EXPECT_THROW(clashing->GetInputSpec(), TindraException);
    EXPECT_EQ(clashing->GetInputSpec()->parameters.size(), 1u);  // cached without help
}

TEST_F(CommandTest, ExceptionsBecomeOneErrorNamingPathOrNode) {
    auto boom = [](Input&, Output&) { throw std::runtime_error("boom"); };
    EXPECT_EQ(Run(InputFor({"demo", "widget", "list"}), boom),
              Errors{"Error on command demo widget list : boom"});
    EXPECT_EQ(Run(Input::New(), boom), Errors{"Error on command list : boom"});
    EXPECT_THROW(Run(Input::New(), [](Input&, Output&) { throw 42; }), int);
    EXPECT_EQ(Run(Input::New(),
                  [](Input&, Output& out) {
                      out.SetRootObject(MetaObj::MetaInt::New(3));
                      out.AddErrorMessage("device busy");
                  }),
              Errors{"device busy"});  // an output with errors is not validated
}

TEST_F(CommandTest, MismatchedResultEndsWithTheImplementationError) {
    auto const errors =
        Run(Input::New(), [](Input&, Output& out) { out.SetRootObject(MetaObj::MetaInt::New(3)); });
    Errors expected;
    EXPECT_FALSE(command->GetOutputSpec()->Validate(output, &expected));
    ASSERT_FALSE(expected.empty());
    expected.push_back(
        "Implementation error! The output of this command does not match the declared output "
        "type, see errors above.");
    EXPECT_EQ(errors, expected);
    auto valid = [](Input&, Output& out) { out.SetRootObject(MetaObj::MetaString::New("ok")); };
    EXPECT_EQ(Run(Input::New(), valid), Errors{});
}

TEST_F(CommandTest, HelpIsAnsweredWithoutRunningOrValidating) {
    command->SetDescription("List all items.");
    command->declaredOutput = MetaObj::MetaInt::New(0);
    command->AddExample("--all", "List all items");
    auto password = CallSpec::ParameterSpec::New("password", CallSpec::ParamString);
    password->SetShortName("p");
    password->SetSecret(true);
    command->declaredInput->AddParameter(password);
    auto input = InputFor({"demo", "widget", "item", "list"});
    input->AddParameter("help", "");
    EXPECT_EQ(Run(input, nullptr), Errors{});
    EXPECT_EQ(command->executions, 0);
    EXPECT_EQ(output->GetOutputType(), Output::Help);
    auto help = std::static_pointer_cast<MetaStruct>(output->GetRootObject());
    EXPECT_EQ(help->GetTypeName(), "OstrelCommandHelp");
    EXPECT_EQ(Text(help, "Dispatcher") + "|" + Text(help, "Path") + "|" + Text(help, "Description"),
              "ostrel|demo widget item list|List all items.");
    auto examples = std::static_pointer_cast<MetaObj::MetaList>(help->GetField("Example List"));
    EXPECT_EQ(Text(examples->GetItem(0), "Syntax"), "# ostrel demo widget item list --all");
    EXPECT_EQ(Text(examples->GetItem(0), "Description"), "List all items :");
    auto parameters = std::static_pointer_cast<MetaObj::MetaList>(help->GetField("Param List"));
    ASSERT_EQ(parameters->GetCount(), 2u);
    auto row = std::static_pointer_cast<MetaStruct>(parameters->GetItem(1));
    EXPECT_EQ(Text(row, "Name") + " -" + Text(row, "Short Name"), "password -p");
    EXPECT_TRUE(Flag(row, "Required") && Flag(row, "Secret"));
    EXPECT_EQ(Text(parameters->GetItem(0), "Name"), "help");  // sorted by long name
}

TEST_F(CommandTest, HelpForPlainInputHasNoDispatcherOrPath) {
    command->AddExample("--all", "List all items");
    command->GenerateHelpOutput(Input::New(), output = Output::New());
    auto help = std::static_pointer_cast<MetaStruct>(output->GetRootObject());
    EXPECT_EQ(help->GetFieldNames(),
              (std::vector<std::string>{"Description", "Example List", "Param List"}));
    auto examples = std::static_pointer_cast<MetaObj::MetaList>(help->GetField("Example List"));
    EXPECT_EQ(Text(examples->GetItem(0), "Syntax"), "#  --all");
}

}  // namespace
}  // namespace AutoCli
}  // namespace Tindra
