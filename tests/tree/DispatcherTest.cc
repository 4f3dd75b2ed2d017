#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <sstream>

#include "support/ChildProcess.h"
#include "support/ThrownMessage.h"
#include "support/tree/CerrCapture.h"
#include "support/tree/ScriptedCommand.h"
#include "support/tree/TempDirectory.h"
#include "tindra/autocli/plugins/InternalPlugin.h"
#include "tindra/autocli/tree/Dispatcher.h"

namespace Tindra::AutoCli {
namespace {

using Names = std::vector<std::string>;

// Writes its own name, so a test can see which formatter ran.
struct NamedFormatter : Formatter {
    explicit NamedFormatter(std::string const& name) : Formatter(name) {}
    bool Format(std::shared_ptr<CallSpec::Output>, FormatParameters&, DisplayContext&,
                std::ostream& out) override {
        out << "formatted by " << GetName();
        return false;
    }
};

// A plug-in with its own name, formatters and registration; the built-in formatter look-up.
class FakePlugin : public InternalPlugin {
public:
    using Registration = std::function<void(std::shared_ptr<Namespace>)>;
    FakePlugin(
        std::string name, Names const& formatterNames,
        Registration registration = [](std::shared_ptr<Namespace>) {})
        : name(std::move(name)), registration(std::move(registration)) {
        for (auto const& formatterName : formatterNames)
            GetFormatters().push_back(std::make_shared<NamedFormatter>(formatterName));
    }
    std::string const& GetName() const override { return name; }
    void RegisterNamespaces(std::shared_ptr<Namespace> root) override { registration(root); }

private:
    std::string name;
    Registration registration;
};

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

    Dispatcher dispatcher;
    std::shared_ptr<Testing::ScriptedCommand> command = Testing::ScriptedCommand::New();
};

TEST_F(DispatcherTest, FormatterClashRefusesThePluginAndOtherFailuresPassThrough) {
    auto clash = std::make_shared<FakePlugin>("second", Names{"aaa", "table"});
    EXPECT_EQ(ThrownMessage([&] { dispatcher.RegisterPlugin(clash); }),
              "Error while trying to register the plugin second  this plugin has a formatter "
              "table that was already registered from the plugin Internal  The functionality in "
              "second will not be available until this issue is resolved.");
    EXPECT_FALSE(dispatcher.HasFormatter("aaa"));
    EXPECT_NE(dispatcher.GetFormatter("table"), clash->GetFormatter("table"));
    EXPECT_EQ(dispatcher.GetPluginNames(), Names{"Internal"});
    auto odd =
        std::make_shared<FakePlugin>("odd", Names{}, [](auto) { throw std::logic_error(""); });
    EXPECT_THROW(dispatcher.RegisterPlugin(odd), std::logic_error);
}

TEST_F(DispatcherTest, FormattersAreListedByNameAndChosenByIt) {
    dispatcher.RegisterPlugin(std::make_shared<FakePlugin>("extra", Names{"zulu", "alpha"}));
    Names names;
    for (auto const& formatter : dispatcher.GetFormatters()) {
        names.push_back(formatter->GetName());
    }
    EXPECT_EQ(names,
              (Names{"alpha", "commandhelp", "json", "python", "simple", "table", "xml", "zulu"}));
    EXPECT_EQ(dispatcher.GetPluginNames(), (Names{"Internal", "extra"}));
    DisplayContext context;
    std::ostringstream stream;
    FormatParameters parameters;
    parameters.SetFormatter("zulu");
    EXPECT_TRUE(dispatcher.FormatOutput(CommandOutput::New(), parameters, context, stream));
    EXPECT_EQ(stream.str(), "formatted by zulu");
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
}

// A FIFO would block the start forever and a device must not be opened: only regular files
// are read. The scan runs in a child that an alarm ends should it hang.
TEST_F(DispatcherTest, DirectoryScanReadsOnlyRegularLowerCaseSoAndXmlFiles) {
    Testing::TempDirectory directory;
    for (char const* ignored : {"notes.txt", "plugin.so.1", "PLUGIN.XML", ".hidden"}) {
        directory.Write(ignored, "not looked at");
    }
    std::string const base = directory.path + "/";
    ASSERT_EQ(0, mkfifo((base + "a.xml").c_str(), 0600));
    ASSERT_EQ(0, mkfifo((base + "b.so").c_str(), 0600));
    ASSERT_EQ(0, symlink("/dev/zero", (base + "c.xml").c_str()));
    std::filesystem::create_directory(base + "d.so");
    auto scan = TestSupport::RunInChild([&] {
        alarm(20);
        dispatcher.AddExternalDirectoryInt(directory.path + "/absent", false);  // quietly
        dispatcher.AddExternalDirectory(directory.path);
        std::cout << dispatcher.GetPluginNames().size();
    });
    auto refused = [&base](char const* name, char const* kind) {
        std::string const path = base + name;
        std::string const why = path + " is " + kind + ", not a regular file\n";
        return "Error loading plugin " + path + " skipping.  Error was: " +
               (path.back() == 'o' ? "Unable to load plugin from " + path + " : "
                                   : "Unable to handle XML Plugin " + path +
                                         ".  There was an error while parsing: ") +
               why;
    };
    TestSupport::ExpectRun(scan, 0, "1",
                           refused("a.xml", "a FIFO") + refused("b.so", "a FIFO") +
                               refused("c.xml", "a character device") +
                               refused("d.so", "a directory"));
}

// A command or a formatter throwing anything at all ends as one message on the output, never
// as an exception. (Constraints that cannot be checked are followed through the tool.)
TEST_F(DispatcherTest, WhateverACommandOrFormatterThrowsBecomesAnError) {
    command->action = [](CallSpec::Input&, CallSpec::Output&) { throw 42; };
    EXPECT_EQ(Errors({"demo", "show"}, true),
              Names{"Error on command demo show : an exception of unknown type"});

    struct ThrowingFormatter : Formatter {
        ThrowingFormatter() : Formatter("boom") {}
        bool Format(std::shared_ptr<CallSpec::Output>, FormatParameters&, DisplayContext&,
                    std::ostream&) override {
            throw std::length_error("field too wide");
        }
    };
    auto plugin = std::make_shared<FakePlugin>("broken", Names{});
    plugin->GetFormatters().push_back(std::make_shared<ThrowingFormatter>());
    dispatcher.RegisterPlugin(plugin);
    auto output = CommandOutput::New();
    FormatParameters parameters;
    parameters.SetFormatter("boom");
    DisplayContext context;
    std::ostringstream stream;
    EXPECT_FALSE(dispatcher.FormatOutput(output, parameters, context, stream));
    EXPECT_EQ(output->GetErrors(),
              Names{"Unable to format the output with the formatter boom: field too wide"});
}

}  // namespace
}  // namespace Tindra::AutoCli
