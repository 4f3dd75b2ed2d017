#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/formatters/CliDispatcherHelpFormatter.h"
#include "tindra/autocli/formatters/CommandHelpFormatter.h"

namespace FormatterTest {
namespace {

std::shared_ptr<MetaStruct> Option(char const* name, char const* shortName, char const* description,
                                   bool required, bool secret) {
    auto option = MetaStruct::New("OstrelCommandParameter");
    option->SetField("Name", name);
    option->SetField("Short Name", shortName);
    option->SetField("Description", description);
    option->SetField("Required", required);
    option->SetField("Secret", secret);
    return option;
}

std::shared_ptr<MetaStruct> Example(char const* description, char const* syntax) {
    auto example = MetaStruct::New("OstrelCommandExample");
    example->SetField("Description", description);
    example->SetField("Syntax", syntax);
    return example;
}

std::shared_ptr<MetaStruct> CommandHelp(std::vector<std::shared_ptr<MetaStruct>> const& options,
                                        bool withExample) {
    auto help = MetaStruct::New("OstrelCommandHelp");
    help->SetField("Dispatcher", "ostrel");
    help->SetField("Path", "demo widget item list");
    help->SetField("Description", "List the items.");
    auto params = MetaList::New(MetaType::Struct, Option("", "", "", false, false));
    for (auto const& option : options) {
        params->Add(option);
    }
    help->SetField("Param List", params);
    auto examples = MetaList::New(MetaType::Struct, Example("", ""));
    if (withExample) {
        examples->Add(Example("List all items :", "# ostrel demo widget item list --all"));
    }
    help->SetField("Example List", examples);
    return help;
}

std::string CommandHelpText(std::shared_ptr<MetaObject> const& root, uint16_t width) {
    return Render<CommandHelpFormatter>(root, {}, width);
}

TEST(CommandHelpFormatter, ExampleAtWidth80) {
    auto const help = CommandHelp({Option("all", "a", "Show all.", true, false),
                                   Option("help", "h", "Show the help message.", false, false)},
                                  true);
    EXPECT_EQ(CommandHelpText(help, 80),
              "Usage: ostrel demo widget item list <options>\n"
              "\n"
              "Description: List the items.\n"
              "\n"
              "  -a|--all    Show all. (required)\n"
              "  -h|--help   Show the help message.\n"
              "\n"
              "Examples: \n"
              "\n"
              "    List all items :\n"
              "# ostrel demo widget item list --all        \n"
              "\n");
}

TEST(CommandHelpFormatter, SecretOptionWrapsWarningAtDescriptionColumn) {
    std::string const warning =
        "WARNING: Providing secret values on the command line is insecure because it may be "
        "logged or preserved in history files. Instead, specify this option with no value on the "
        "command line, and enter the value on the supplied prompt.";
    std::string const head =
        "Usage: ostrel demo widget item list <options>\n\nDescription: List the items.\n\n";
    std::string const column(18, ' ');
    auto const help = CommandHelp({Option("password", "", "The password.", true, true)}, false);
    EXPECT_EQ(
        CommandHelpText(help, 0),
        head + "     --password   The password. (required secret)\n" + column + warning + "\n");

    std::string wrapped;
    for (char const* line :
         {"(required secret)", "WARNING: Providing ", "secret values on the ", "command line is ",
          "insecure because it ", "may be logged or ", "preserved in history ", "files. Instead, ",
          "specify this option ", "with no value on the ", "command line, and ",
          "enter the value on ", "the supplied prompt."}) {
        wrapped += column + line + "\n";
    }
    EXPECT_EQ(CommandHelpText(help, 40), head + "     --password   The password. \n" + wrapped);
    EXPECT_EQ(ThrownMessage([] { CommandHelpText(MetaStruct::New("Other"), 80); }),
              "Error: Unexpected type for output, formatter expected a struct with help "
              "information");
}

// The listing layout is pinned where the tool prints it; here, what a broken listing gives.
TEST(CliDispatcherHelpFormatter, MissingFields) {
    auto const text = [](std::shared_ptr<MetaObject> const& root) {
        return Render<CliDispatcherHelpFormatter>(root, {}, 80);
    };
    EXPECT_EQ(text(MetaStruct::New("OstrelCommandPrint")),
              "Usage: <Dispatcher> [disp options] <namespaces> <command>\n\n"
              "For help please run <Dispatcher> --help\n\n"
              "Available Namespaces: \n\nERROR, list is bad\n"
              "Available Commands: \n\nERROR, list is bad\n");
    EXPECT_EQ(ThrownMessage([&] { text(MetaString::New("x")); }),
              "Error: Unexpected type for help output, formatter expected a struct with help data");
}

}  // namespace
}  // namespace FormatterTest
