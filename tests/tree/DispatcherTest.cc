#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <sstream>
#include <stdexcept>

#include "support/ChildProcess.h"
#include "support/ThrownMessage.h"
#include "support/tree/ScriptedCommand.h"
#include "support/tree/TempDirectory.h"
#include "tindra/autocli/plugins/InternalPlugin.h"
#include "tindra/autocli/tree/Dispatcher.h"
#include "tindra/metaobj/MetaInt.h"

namespace Tindra::AutoCli {
namespace {

using CallSpec::Input;
using CallSpec::Output;
using Names = std::vector<std::string>;

// Writes its own name, so a test can see which formatter ran; the one named boom throws.
struct NamedFormatter : Formatter {
    explicit NamedFormatter(std::string const& name) : Formatter(name) {}
    bool Format(std::shared_ptr<Output>, FormatParameters&, DisplayContext&,
                std::ostream& out) override {
        if (GetName() == "boom")
            throw std::length_error("field too wide");
        out << "formatted by " << GetName();
        return false;
    }
};

// A plug-in with its own name and formatters.
struct FakePlugin : InternalPlugin {
    FakePlugin(std::string name, Names const& formatters) : name(std::move(name)) {
        for (auto const& formatter : formatters)
            GetFormatters().push_back(std::make_shared<NamedFormatter>(formatter));
    }
    std::string const& GetName() const override { return name; }
    void RegisterNamespaces(std::shared_ptr<Namespace>) override {}
    std::string name;
};

class DispatcherTest : public ::testing::Test {
protected:
    void SetUp() override {
        dispatcher.GetRootNamespace()->SubNamespace("demo")->RegisterNamespaceNode(command, "show");
        command->SetDefaultOutputFormatter("simple");
    }

    // Runs a command line; the errors say why it did not.
    Names Errors(std::list<std::string> const& path = {"demo", "show"},
                 char const* parameter = nullptr) {
        input = CommandInput::New();
        input->SetDispatcher("ostrel");
        input->SetCommandPath(path);
        if (parameter)
            input->AddParameter(parameter, "1");
        output = CommandOutput::New();
        bool const ran = dispatcher.ExecuteCommand(input, output);
        EXPECT_EQ(ran, output->GetErrors().empty());
        return output->GetErrors();
    }

    Dispatcher dispatcher;
    std::shared_ptr<Testing::ScriptedCommand> command = Testing::ScriptedCommand::New();
    std::shared_ptr<CommandInput> input;
    std::shared_ptr<CommandOutput> output = CommandOutput::New();
};

TEST_F(DispatcherTest, PluginsAddFormattersUnlessOneClashesAndFormattersFailAsMessages) {
    auto clash = std::make_shared<FakePlugin>("second", Names{"table"});
    EXPECT_EQ(ThrownMessage([&] { dispatcher.RegisterPlugin(clash); }),
              "Error while trying to register the plugin second  this plugin has a formatter "
              "table that was already registered from the plugin Internal  The functionality in "
              "second will not be available until this issue is resolved.");
    dispatcher.RegisterPlugin(std::make_shared<FakePlugin>("extra", Names{"zulu", "boom"}));
    EXPECT_EQ(dispatcher.GetPluginNames(), (Names{"Internal", "extra"}));
    std::string names;
    for (auto const& formatter : dispatcher.GetFormatters())
        names += formatter->GetName() + " ";
    EXPECT_EQ(names, "boom commandhelp json python simple table xml zulu ");
    FormatParameters parameters;
    DisplayContext context;
    std::ostringstream stream;
    std::string verdicts;
    for (char const* name : {"zulu", "boom"}) {
        parameters.SetFormatter(name);
        verdicts += dispatcher.FormatOutput(output, parameters, context, stream) ? '+' : '-';
    }
    EXPECT_EQ(verdicts + stream.str(), "+-formatted by zulu");
    EXPECT_EQ(output->GetErrors(),
              Names{"Unable to format the output with the formatter boom: field too wide"});
}

TEST_F(DispatcherTest, CommandsAreFoundValidatedAndRunAndTheirFailuresBecomeErrors) {
    EXPECT_EQ(Errors({}), Names{"Unable to find command"});
    EXPECT_EQ(Errors({"demo", "nosuch"}).size(), 2u);  // the resolution's message, then this
    EXPECT_EQ(Errors({"demo"}), Names{"Path refers to a namespace, not a command."});
    EXPECT_EQ(Errors({"demo", "show"}, "nosuch").size(), 1u);
    EXPECT_EQ(Errors(), Names{});
    EXPECT_EQ(command->executions, 1);  // only the run that passed the checks
    EXPECT_EQ(dispatcher.GetDefaultOutputFormatParameters(input, output).GetFormatter(), "simple");
    input->SetCommandPath({});
    EXPECT_EQ(dispatcher.GetDefaultOutputFormatParameters(input, output).GetFormatter(), "");

    // Whatever a command throws ends as one message, never as an exception; a result that does
    // not fit the declared one is the command's fault and named so.
    command->action = [](Input&, Output&) { throw 42; };
    EXPECT_EQ(Errors(), Names{"Error on command demo show : an exception of unknown type"});
    command->action = [](Input&, Output& out) {
        out.SetRootObject(MetaObj::MetaInt::New(3));
        out.AddErrorMessage("busy");
    };
    EXPECT_EQ(Errors(), Names{"busy"});  // an output with errors is not validated
    command->action = [](Input&, Output& out) { out.SetRootObject(MetaObj::MetaInt::New(3)); };
    auto const errors = Errors();
    ASSERT_GT(errors.size(), 1u);  // the template's own complaints come first
    EXPECT_EQ(errors.back(),
              "Implementation error! The output of this command does not match the declared "
              "output type, see errors above.");
    command->action = [](Input&, Output&) { throw std::runtime_error("boom"); };
    command->Execute(Input::New(), output = CommandOutput::New());  // no command line: its name
    EXPECT_EQ(output->GetErrors(), Names{"Error on command show : boom"});
}

TEST_F(DispatcherTest, HelpIsAnsweredWithoutRunningOrValidating) {
    command->declaredOutput = MetaObj::MetaInt::New(0);
    command->SetDescription("Lists.");
    command->AddExample("--all", "List all items");
    auto password = CallSpec::ParameterSpec::New("password", CallSpec::ParamString);
    password->SetSecret(true);
    command->declaredInput->AddParameter(password);
    EXPECT_EQ(Errors({"demo", "show"}, "h"), Names{});
    EXPECT_EQ(command->executions, 0);
    EXPECT_EQ(output->GetOutputType(), Output::Help);
    EXPECT_EQ(output->GetRootObject()->ToString(),
              "{'Description' => 'Lists.', 'Dispatcher' => 'ostrel', 'Example List' => "
              "'{'Description' => 'List all items :', 'Syntax' => '# ostrel demo show --all', }', "
              "'Param List' => '{'Description' => 'Show the help message.', 'Name' => 'help', "
              "'Required' => 'false', 'Secret' => 'false', 'Short Name' => 'h', }, {'Description' "
              "=> '', 'Name' => 'password', 'Required' => 'true', 'Secret' => 'true', 'Short Name' "
              "=> '', }', "
              "'Path' => 'demo show', }");
}

// A FIFO would block the start forever and a device must not be opened: only regular files
// are read. The scan runs in a child that an alarm ends should it hang.
TEST_F(DispatcherTest, DirectoryScanReadsOnlyRegularLowerCaseSoAndXmlFiles) {
    Testing::TempDirectory directory;
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
        return "Error loading plugin " + path + " skipping.  Error was: " +
               (path.back() == 'o' ? "Unable to load plugin from " + path + " : "
                                   : "Unable to handle XML Plugin " + path +
                                         ".  There was an error while parsing: ") +
               path + " is " + kind + ", not a regular file\n";
    };
    TestSupport::ExpectRun(scan, 0, "1",
                           refused("a.xml", "a FIFO") + refused("b.so", "a FIFO") +
                               refused("c.xml", "a character device") +
                               refused("d.so", "a directory"));
}

}  // namespace
}  // namespace Tindra::AutoCli
