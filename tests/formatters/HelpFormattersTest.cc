#include <gtest/gtest.h>

#include <boost/algorithm/string/join.hpp>
#include <boost/algorithm/string/split.hpp>

#include "FormatterTestSupport.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/formatters/CliDispatcherHelpFormatter.h"
#include "tindra/autocli/formatters/CommandHelpFormatter.h"

namespace FormatterTest {
namespace {

std::string const kWarning =
    "WARNING: Providing secret values on the command line is insecure because it may be logged "
    "or preserved in history files. Instead, specify this option with no value on the command "
    "line, and enter the value on the supplied prompt.";

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
    CommandHelpFormatter formatter;
    return Render(formatter, root, FormatParameters(), width);
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
    auto const help = CommandHelp({Option("password", "", "The password.", true, true)}, false);
    std::string const text = CommandHelpText(help, 40);
    std::string const head =
        "Usage: ostrel demo widget item list <options>\n\nDescription: List the items.\n\n";
    ASSERT_EQ(text.substr(0, head.size()), head);
    std::vector<std::string> lines;
    boost::split(lines, text.substr(head.size()), [](char c) { return c == '\n'; });
    ASSERT_GE(lines.size(), 4u);
    EXPECT_EQ(lines[0], "     --password   The password. ");
    EXPECT_EQ(lines[1], std::string(18, ' ') + "(required secret)");
    EXPECT_EQ(lines.back(), "");  // ends with a newline, no examples block
    std::vector<std::string> warning;
    for (size_t i = 2; i + 1 < lines.size(); ++i) {
        EXPECT_EQ(lines[i].substr(0, 18), std::string(18, ' ')) << lines[i];
        EXPECT_LE(lines[i].size(), 40u) << lines[i];
        warning.push_back(lines[i].substr(18, lines[i].find_last_not_of(' ') - 17));
    }
    EXPECT_EQ(boost::join(warning, " "), kWarning);

    EXPECT_EQ(CommandHelpText(help, 0).substr(head.size()),
              "     --password   The password. (required secret)\n" + std::string(18, ' ') +
                  kWarning + "\n");
}

TEST(CommandHelpFormatter, RejectsOtherStructures) {
    EXPECT_EQ(ThrownMessage([] { CommandHelpText(MetaStruct::New("Other"), 80); }),
              "Error: Unexpected type for output, formatter expected a struct with help "
              "information");
}

std::shared_ptr<MetaStruct> Node(char const* name, char const* description, char const* type) {
    auto node = MetaStruct::New("NamespaceNode");
    node->SetField("Name", name);
    node->SetField("Description", description);
    node->SetField("Type", type);
    return node;
}

std::shared_ptr<MetaStruct> Listing(std::vector<std::shared_ptr<MetaStruct>> const& nodes) {
    auto listing = MetaStruct::New("OstrelCommandPrint");
    listing->SetField("Dispatcher", "ostrel");
    listing->SetField("Path", std::vector<std::string>{"demo", "widget"});
    auto list = MetaList::New(MetaType::Struct, Node("", "", ""));
    for (auto const& node : nodes) {
        list->Add(node);
    }
    listing->SetField("NamespaceNodes", list);
    return listing;
}

std::string CliHelpText(std::shared_ptr<MetaObject> const& root, uint16_t width) {
    CliDispatcherHelpFormatter formatter;
    return Render(formatter, root, FormatParameters(), width);
}

TEST(CliDispatcherHelpFormatter, ListsNamespacesThenCommands) {
    auto const listing =
        Listing({Node("list", "List the things in a rather long description text.", "Command"),
                 Node("item", "Item commands.", "Namespace"), Node("x", "Short.", "Command")});
    EXPECT_EQ(CliHelpText(listing, 40),
              "Usage: ostrel [disp options] demo widget <namespaces> <command>\n\n"
              "For help please run ostrel --help\n\n"
              "Available Namespaces: \n\n"
              "item  Item commands.\n\n"
              "Available Commands: \n\n"
              "list  List the things in a rather long \n"
              "      description text.\n"
              "x     Short.\n\n");
    std::string const onlyNamespaces = CliHelpText(Listing({Node("a", "A.", "Namespace")}), 0);
    EXPECT_NE(onlyNamespaces.find("a     A.\n\nAvailable Commands: \n\n\n"), std::string::npos);
}

TEST(CliDispatcherHelpFormatter, MissingFields) {
    auto listing = MetaStruct::New("OstrelCommandPrint");
    EXPECT_EQ(CliHelpText(listing, 80),
              "Usage: <Dispatcher> [disp options] <namespaces> <command>\n\n"
              "For help please run <Dispatcher> --help\n\n"
              "Available Namespaces: \n\nERROR, list is bad\n"
              "Available Commands: \n\nERROR, list is bad\n");
    std::string text;
    EXPECT_FALSE(CliDispatcherHelpFormatter::ExtractString("Path", Listing({}), text));
    EXPECT_EQ(text, "<Path>");
    EXPECT_EQ(ThrownMessage([] { CliHelpText(MetaString::New("x"), 80); }),
              "Error: Unexpected type for help output, formatter expected a struct with help data");
}

}  // namespace
}  // namespace FormatterTest
