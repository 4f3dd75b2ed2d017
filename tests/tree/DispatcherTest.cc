#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "support/ThrownMessage.h"
#include "support/tree/CerrCapture.h"
#include "support/tree/FakePlugin.h"
#include "support/tree/ScriptedCommand.h"
#include "support/tree/TempDirectory.h"
#include "tindra/autocli/tree/Dispatcher.h"

namespace Tindra {
namespace AutoCli {
namespace {

using Testing::FakePlugin;
using Names = std::vector<std::string>;

class DispatcherTest : public ::testing::Test {
protected:
    void SetUp() override {
        dispatcher.GetRootNamespace()->SubNamespace("demo")->RegisterNamespaceNode(command, "show");
        command->SetDefaultOutputFormatter("simple");
    }

    Names Errors(std::list<std::string> const& path, bool execute = false,
                 std::string const& parameter = "") {
        auto input = CommandInput::New();
        input->SetCommandPath(path);
        if (!parameter.empty()) {
            input->AddParameter(parameter, "1");
        }
        auto output = CommandOutput::New();
        bool found = execute ? dispatcher.ExecuteCommand(input, output)
                             : dispatcher.GetCommand(input, output) == command;
        EXPECT_EQ(found, output->GetErrors().empty());
        return output->GetErrors();
    }

    Names FormatterNames() {
        Names names;
        for (auto const& formatter : dispatcher.GetFormatters()) {
            names.push_back(formatter->GetName());
        }
        return names;
    }

    Dispatcher dispatcher;
    std::shared_ptr<Testing::ScriptedCommand> command = Testing::ScriptedCommand::New();
};

TEST_F(DispatcherTest, RegistrationFailuresAreWrappedAndLeaveWhatWasPlaced) {
    EXPECT_EQ(dispatcher.GetPluginNames(), Names{"Internal"});
    auto half = std::make_shared<FakePlugin>("half", Names{"half"}, [](auto root) {
        root->SubNamespace("placed");
        throw TindraException("cannot go on");
    });
    EXPECT_EQ(ThrownMessage([&] { dispatcher.RegisterPlugin(half); }),
              "Error while trying to register the plugin half cannot go on The functionality in "
              "half will not be available until this issue is resolved.");
    auto clash = std::make_shared<FakePlugin>("second", Names{"aaa", "table"});
    EXPECT_EQ(ThrownMessage([&] { dispatcher.RegisterPlugin(clash); }),
              "Error while trying to register the plugin second  this plugin has a formatter "
              "table that was already registered from the plugin Internal  The functionality in "
              "second will not be available until this issue is resolved.");
    EXPECT_TRUE(dispatcher.GetRootNamespace()->HasNamespaceNode("placed"));
    EXPECT_FALSE(dispatcher.HasFormatter("half") || dispatcher.HasFormatter("aaa"));
    EXPECT_NE(dispatcher.GetFormatter("table"), clash->GetFormatter("table"));
    EXPECT_EQ(dispatcher.GetPluginNames(), Names{"Internal"});
    auto odd =
        std::make_shared<FakePlugin>("odd", Names{}, [](auto) { throw std::logic_error(""); });
    EXPECT_THROW(dispatcher.RegisterPlugin(odd), std::logic_error);
}

TEST_F(DispatcherTest, FormattersAreListedByName) {
    dispatcher.RegisterPlugin(std::make_shared<FakePlugin>("extra", Names{"zulu", "alpha"}));
    EXPECT_EQ(FormatterNames(),
              (Names{"alpha", "commandhelp", "json", "python", "simple", "table", "xml", "zulu"}));
    EXPECT_EQ(dispatcher.GetPluginNames(), (Names{"Internal", "extra"}));

    auto output = CommandOutput::New();
    DisplayContext context;
    std::ostringstream stream;
    FormatParameters parameters;
    EXPECT_TRUE(dispatcher.FormatOutput(output, parameters, context, stream));
    parameters.SetFormatter("zulu");
    EXPECT_TRUE(dispatcher.FormatOutput(output, parameters, context, stream));
    parameters.SetFormatter("nosuch");
    EXPECT_FALSE(dispatcher.FormatOutput(output, parameters, context, stream));
    EXPECT_EQ(stream.str(), "formatted by zulu");
    EXPECT_EQ(output->GetErrors(), Names{"Unable to find requested formatter: nosuch"});
}

TEST_F(DispatcherTest, CommandsAreFoundValidatedAndRun) {
    EXPECT_EQ(Errors({"demo", "show"}), Names{});
    EXPECT_EQ(Errors({}), Names{"Unable to find command"});
    EXPECT_EQ(Errors({"demo", "nosuch"}),
              (Names{"Unable to find a command or namespace with the name 'nosuch' in namespace "
                     "demo",
                     "Unable to find command"}));
    EXPECT_EQ(Errors({"demo"}, true), Names{"Path refers to a namespace, not a command."});
    EXPECT_EQ(Errors({"demo", "show"}, true, "nosuch"), Names{"Unknown parameter : nosuch"});
    EXPECT_EQ(command->executions, 0);
    EXPECT_EQ(Errors({"demo", "show"}, true, "h"), Names{});  // short name folded: help
    EXPECT_EQ(Errors({"demo", "show"}, true), Names{});
    EXPECT_EQ(command->executions, 1);

    auto input = CommandInput::New();
    auto output = CommandOutput::New();
    input->SetCommandPath({"demo", "show"});
    EXPECT_EQ(dispatcher.GetDefaultOutputFormatParameters(input, output).GetFormatter(), "simple");
    input->SetCommandPath({});
    EXPECT_EQ(dispatcher.GetDefaultOutputFormatParameters(input, output).GetFormatter(), "");
    EXPECT_EQ(output->GetErrors(), Names{"Unable to find command"});
}

TEST_F(DispatcherTest, DirectoryScanReportsOnlyWhatItCouldNotUse) {
    Testing::TempDirectory directory;
    for (char const* ignored : {"notes.txt", "plugin.so.1", "PLUGIN.XML", ".hidden"}) {
        directory.Write(ignored, "not looked at");
    }
    auto broken = directory.Write("broken.so", "not a library");
    std::string const missing = directory.path + "/absent";
    Testing::CerrCapture errors;
    dispatcher.AddExternalDirectory(missing);
    dispatcher.AddExternalDirectoryInt(missing, false);
    dispatcher.AddExternalDirectory(directory.path);
    std::string const expected =
        "Unable to open directory " + missing + " for plugin registration\nError loading plugin " +
        broken + " skipping.  Error was: Unable to load plugin from " + broken + " : " + broken;
    std::string const text = errors.Text();
    EXPECT_EQ(text.substr(0, expected.size()), expected);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
    EXPECT_EQ(dispatcher.GetPluginNames(), Names{"Internal"});
}

}  // namespace
}  // namespace AutoCli
}  // namespace Tindra
