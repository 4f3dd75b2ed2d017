#include <gtest/gtest.h>

#include "Ostrel.h"

namespace {

using CliTest::BuiltInCommandTable;
using CliTest::ExpectRun;
using CliTest::Ostrel;

std::vector<std::string> List(std::vector<std::string> dispatcherOptions) {
    for (char const* word : {"ostrel", "command", "list"}) {
        dispatcherOptions.push_back(word);
    }
    return dispatcherOptions;
}

TEST(CommandOutputTest, TheCommandsOwnFormatIsTheDefault) {
    ExpectRun(Ostrel(List({})), 0, BuiltInCommandTable(), "");
}

TEST(CommandOutputTest, TheLastColumnWrapsAtTheScreenWidth) {
    std::string const wrapped =
        "Namespace       Command  Description\n"
        "--------------  -------  -----------\n"
        "ostrel.command  list     List all of \n"
        "                         the ostrel \n"
        "                         commands.\n";
    ExpectRun(Ostrel(List({"--screen-width", "40"})), 0, wrapped, "");
    // Base 0: hexadecimal and octal widths are read as such; the last value wins.
    ExpectRun(Ostrel(List({"--screen-width", "100", "--screen-width", "0x28"})), 0, wrapped, "");
    ExpectRun(Ostrel(List({"--screen-width", "050"})), 0, wrapped, "");
    // Out of range or not a number: the width stays unknown, as on a pipe.
    for (char const* width : {"0", "10000", "-40", "wide", "0x100000028"}) {
        ExpectRun(Ostrel(List({"--screen-width", width})), 0, BuiltInCommandTable(), "");
    }
}

TEST(CommandOutputTest, EachFormatterCanBeChosen) {
    ExpectRun(Ostrel(List({"--formatter", "table"})), 0, BuiltInCommandTable(), "");
    ExpectRun(Ostrel(List({"--formatter", "simple"})), 0,
              "\n"
              "OstrelCommand:\n"
              "   Namespace: ostrel.command\n"
              "   Command: list\n"
              "   Description: List all of the ostrel commands.\n"
              "\n",
              "");
    ExpectRun(Ostrel(List({"--formatter", "json"})), 0,
              "\n"
              "[\n"
              "\n"
              "      {\n"
              "         \"Command\": \"list\",\n"
              "         \"Description\": \"List all of the ostrel commands.\",\n"
              "         \"Namespace\": \"ostrel.command\"\n"
              "      }\n"
              "]\n",
              "");
    ExpectRun(Ostrel(List({"--formatter", "python"})), 0,
              "[{\"Command\": \"\"\"list\"\"\", \"Description\": \"\"\"List all of the ostrel "
              "commands.\"\"\", \"Namespace\": \"\"\"ostrel.command\"\"\", }, ]\n",
              "");
}

TEST(CommandOutputTest, TheXmlDocumentCarriesTheFormatParameters) {
    auto run = Ostrel(List({"--formatter", "xml"}));
    EXPECT_EQ(0, run.status);
    EXPECT_EQ("", run.err);
    std::size_t afterStartTag = run.out.find("\">\n") + 3;
    EXPECT_EQ(0u, run.out.find("<?xml version=\"1.0\"?>\n<output xmlns:ostrel=\"")) << run.out;
    EXPECT_EQ(
        "   <meta-data>\n"
        "      <meta-data-field name=\"fields:OstrelCommand\" "
        "value=\"Namespace,Command,Description\"/>\n"
        "      <meta-data-field name=\"wrap-last\" value=\"true\"/>\n"
        "   </meta-data>\n"
        "   <root>\n"
        "      <list type=\"structure\">\n"
        "            <structure typeName=\"OstrelCommand\">\n"
        "               <field name=\"Command\">\n"
        "                  <string>list</string>\n"
        "               </field>\n"
        "               <field name=\"Description\">\n"
        "                  <string>List all of the ostrel commands.</string>\n"
        "               </field>\n"
        "               <field name=\"Namespace\">\n"
        "                  <string>ostrel.command</string>\n"
        "               </field>\n"
        "            </structure>\n"
        "      </list>\n"
        "   </root>\n"
        "</output>\n",
        run.out.substr(afterStartTag));
}

TEST(CommandOutputTest, FormatParametersOverrideTheCommandsDefaults) {
    // Key by key: the command's column list is replaced, its wrap-last stays.
    ExpectRun(Ostrel(List({"--format-param", "fields:OstrelCommand=Command,Namespace"})), 0,
              "Command  Namespace\n"
              "-------  ---------\n"
              "list     ostrel.command\n",
              "");
    ExpectRun(Ostrel(List({"--format-param", "show-header=false", "--format-param",
                           "fields:OstrelCommand=Command"})),
              0, "list\n", "");
    // The value is split at the first "=", blanks, dots, colons and hyphens are key characters.
    auto run = Ostrel(List({"--formatter", "xml", "--format-param", "a.b c:d-e=x=y"}));
    EXPECT_NE(std::string::npos,
              run.out.find("      <meta-data-field name=\"a.b c:d-e\" value=\"x=y\"/>\n"))
        << run.out;
}

TEST(CommandOutputTest, CommandOptionsReachTheCommand) {
    ExpectRun(Ostrel({"ostrel", "command", "list", "-c", "li"}), 0, BuiltInCommandTable(), "");
    ExpectRun(Ostrel({"ostrel", "command", "list", "--command-filter=LI"}), 0,
              "Namespace  Command  Description\n"
              "---------  -------  -----------\n",
              "");
}

std::string const kListHelpUsage =
    "Usage: ostrel ostrel command list <options>\n"
    "\n"
    "Description: List all of the ostrel commands.\n"
    "\n";

TEST(CommandHelpTest, HelpAsACommandOptionShowsTheCommandsHelp) {
    std::string const help =
        kListHelpUsage +
        "  -c|--command-filter       Show only commands containing the specified string in "
        "their name.\n"
        "  -d|--description-filter   Show only commands containing the specified string in "
        "their description.\n"
        "  -h|--help                 Show the help message.\n"
        "  -n|--namespace-filter     Show only commands containing the specified string in "
        "their namespace path.\n";
    ExpectRun(Ostrel({"ostrel", "command", "list", "--help"}), 0, help, "");
    ExpectRun(Ostrel({"ostrel", "command", "list", "-c", "x", "-h"}), 0, help, "");
}

TEST(CommandHelpTest, DescriptionsWrapUnderTheirColumn) {
    ExpectRun(Ostrel({"--screen-width", "60", "ostrel", "command", "list", "-h"}), 0,
              kListHelpUsage +
                  "  -c|--command-filter       Show only commands containing \n"
                  "                            the specified string in their \n"
                  "                            name.\n"
                  "  -d|--description-filter   Show only commands containing \n"
                  "                            the specified string in their \n"
                  "                            description.\n"
                  "  -h|--help                 Show the help message.\n"
                  "  -n|--namespace-filter     Show only commands containing \n"
                  "                            the specified string in their \n"
                  "                            namespace path.\n",
              "");
}

TEST(CommandHelpTest, TheFormatterOptionAppliesToHelpToo) {
    auto run = Ostrel({"--formatter", "xml", "ostrel", "command", "list", "--help"});
    EXPECT_EQ(0, run.status);
    EXPECT_NE(std::string::npos, run.out.find("<structure typeName=\"OstrelCommandHelp\">"))
        << run.out;
    EXPECT_EQ(std::string::npos, run.out.find("Usage: "));
}

}  // namespace
