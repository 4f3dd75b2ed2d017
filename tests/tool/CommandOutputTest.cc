#include <gtest/gtest.h>

#include "Ostrel.h"
#include "support/PseudoTerminal.h"

namespace {

using namespace CliTest;

TEST(CommandOutputTest, TheLastColumnWrapsAtAValidScreenWidth) {
    // Base 0: hexadecimal and octal widths are read as such; the last value wins.
    for (Words width : {Words{"40"}, Words{"100", "--screen-width", "0x28"}, Words{"050"}}) {
        width.insert(width.begin(), "--screen-width");
        ExpectRun(Ostrel(List(width)), 0, kCommandTableAt40, "");
    }
    // Out of range or not a number: the width stays unknown, as on a pipe.
    for (char const* width : {"0", "10000", "-40", "wide", "0x100000028"}) {
        ExpectRun(Ostrel(List({"--screen-width", width})), 0, kCommandTable, "");
    }
}

TEST(CommandOutputTest, FormatParametersOverrideTheCommandsDefaults) {
    // Key by key: the command's column list is replaced, its wrap-last stays.
    ExpectRun(Ostrel(List({"--format-param", "fields:OstrelCommand=Command,Namespace"})), 0,
              "Command  Namespace\n-------  ---------\nlist     ostrel.command\n", "");
    ExpectRun(Ostrel(List({"--format-param", "show-header=false", "--format-param",
                           "fields:OstrelCommand=Command"})),
              0, "list\n", "");
    // The value is split at the first "=", blanks, dots, colons and hyphens are key characters;
    // the command's own defaults stay beside it, all in key order.
    auto run = Ostrel(List({"--formatter", "xml", "--format-param", "a.b c:d-e=x=y"}));
    EXPECT_NE(std::string::npos,
              run.out.find("   <meta-data>\n"
                           "      <meta-data-field name=\"a.b c:d-e\" value=\"x=y\"/>\n"
                           "      <meta-data-field name=\"fields:OstrelCommand\" "
                           "value=\"Namespace,Command,Description\"/>\n"
                           "      <meta-data-field name=\"wrap-last\" value=\"true\"/>\n"
                           "   </meta-data>\n"))
        << run.out;
}

std::string const kListHelpUsage =
    "Usage: ostrel ostrel command list <options>\n\nDescription: List all of the ostrel "
    "commands.\n\n";

TEST(CommandHelpTest, HelpAsACommandOptionShowsTheCommandsWrappedHelpInAnyFormat) {
    std::string const help =
        kListHelpUsage +
        "  -c|--command-filter       Show only commands containing the specified string in "
        "their name.\n"
        "  -d|--description-filter   Show only commands containing the specified string in "
        "their description.\n"
        "  -h|--help                 Show the help message.\n"
        "  -n|--namespace-filter     Show only commands containing the specified string in "
        "their namespace path.\n";
    ExpectRun(Ostrel(List({}, {"--help"})), 0, help, "");
    ExpectRun(Ostrel(List({}, {"-c", "x", "-h"})), 0, help, "");
    // The formatter option applies to help too.
    auto run = Ostrel(List({"--formatter", "xml"}, {"--help"}));
    EXPECT_EQ(0, run.status);
    EXPECT_NE(std::string::npos, run.out.find("<structure typeName=\"OstrelCommandHelp\">"))
        << run.out;
    EXPECT_EQ(std::string::npos, run.out.find("Usage: "));
}

// Standard output on a terminal: its window size is the screen width, unless overridden.
std::string ListOnTerminal(unsigned short columns, Words const& options) {
    TestSupport::PseudoTerminal terminal;
    terminal.SetWindowSize(columns, 24);
    auto run = Ostrel(List(options), "", {}, terminal.slave.Get());
    EXPECT_EQ(0, run.status);
    EXPECT_EQ("", run.err);
    return terminal.ReadWritten();
}

TEST(CommandOutputTest, TheTerminalsWidthWrapsUnlessTheCommandLineSetsOne) {
    EXPECT_EQ(kCommandTableAt40, ListOnTerminal(40, {}));
    EXPECT_EQ(kCommandTable, ListOnTerminal(40, {"--screen-width", "200"}));
    EXPECT_EQ(kCommandTableAt40, ListOnTerminal(200, {"--screen-width", "40"}));
    EXPECT_EQ(kCommandTableAt40, ListOnTerminal(40, {"--screen-width", "10000"}));
}

}  // namespace
