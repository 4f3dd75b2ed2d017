#include <gtest/gtest.h>
#include <sys/ioctl.h>

#include "Ostrel.h"
#include "support/PseudoTerminal.h"

namespace {

using namespace CliTest;

TEST(OutputTest, ScreenWidthFromTheCommandLineOrTheTerminal) {
    // Base 0: hexadecimal and octal widths are read as such; the last value wins. Out of range
    // or not a number, the width stays unknown, as on a pipe.
    std::pair<Words, std::string> const widths[] = {
        {{"40"}, kCommandTableAt40},  {{"100", "--screen-width", "0x28"}, kCommandTableAt40},
        {{"050"}, kCommandTableAt40}, {{"0"}, kCommandTable},
        {{"10000"}, kCommandTable},   {{"-40"}, kCommandTable},
        {{"wide"}, kCommandTable},    {{"0x100000028"}, kCommandTable}};
    for (auto [width, table] : widths) {
        width.insert(width.begin(), "--screen-width");
        ExpectRun(Ostrel(List(width)), 0, table, "");
    }
    // On a terminal its window size is the width, unless the command line sets one.
    std::tuple<unsigned short, Words, std::string> const terminals[] = {
        {40, {}, kCommandTableAt40},
        {40, {"--screen-width", "200"}, kCommandTable},
        {200, {"--screen-width", "40"}, kCommandTableAt40},
        {40, {"--screen-width", "10000"}, kCommandTableAt40}};
    for (auto const& [columns, options, table] : terminals) {
        TestSupport::PseudoTerminal terminal;
        winsize const size{24, columns, 0, 0};
        ioctl(terminal.slave.Get(), TIOCSWINSZ, &size);
        ExpectRun(Ostrel(List(options), "", {}, terminal.slave.Get()), 0, "", "");
        EXPECT_EQ(table, terminal.ReadWritten());
    }
}

TEST(OutputTest, FormatParametersOverrideTheCommandsDefaultsKeyByKey) {
    ExpectRun(Ostrel(List({"--format-param", "fields:OstrelCommand=Command,Namespace"})), 0,
              "Command  Namespace\n-------  ---------\nlist     ostrel.command\n", "");
    ExpectRun(Ostrel(List({"--format-param", "show-header=false", "--format-param",
                           "fields:OstrelCommand=Command"})),
              0, "list\n", "");
    // Split at the first "="; blanks, dots, colons and hyphens are key characters.
    auto const run = Ostrel(List({"--formatter", "xml", "--format-param", "a.b c:d-e=x=y"}));
    EXPECT_NE(std::string::npos,
              run.out.find("   <meta-data>\n"
                           "      <meta-data-field name=\"a.b c:d-e\" value=\"x=y\"/>\n"
                           "      <meta-data-field name=\"fields:OstrelCommand\" "
                           "value=\"Namespace,Command,Description\"/>\n"
                           "      <meta-data-field name=\"wrap-last\" value=\"true\"/>\n"
                           "   </meta-data>\n"))
        << run.out;
}

// Help as a command option, wherever it stands, in any format (the layout is the help
// formatter's).
TEST(OutputTest, CommandHelpInAnyFormat) {
    auto const help = Ostrel(List({}, {"--help"}));
    EXPECT_EQ(0u, help.out.find("Usage: ostrel ostrel command list <options>\n\nDescription: List "
                                "all of the ostrel commands.\n\n  -c|--command-filter "))
        << help.out;
    ExpectRun(Ostrel(List({}, {"-c", "x", "-h"})), 0, help.out, "");
    auto const run = Ostrel(List({"--formatter", "xml"}, {"--help"}));
    EXPECT_EQ(0, run.status);
    EXPECT_NE(std::string::npos, run.out.find("<structure typeName=\"OstrelCommandHelp\">"));
    EXPECT_EQ(std::string::npos, run.out.find("Usage: ")) << run.out;
}

// A namespace lists its children and fails, an unknown option reported after the listing (whose
// layout the help formatter's tests pin); help prints the usage alone.
TEST(OutputTest, NamespaceListingsAndUsageNameTheToolAsInvoked) {
    auto const listing = Ostrel({"--bogus", "x", "ostrel", "command"});
    EXPECT_NE(std::string::npos,
              listing.out.find("Available Commands: \n\nlist  List all of the ostrel commands.\n"));
    EXPECT_EQ("Errors: \nUnknown dispatcher parameter: bogus\n", listing.err);
    EXPECT_EQ(1, listing.status);
    std::string const usage =
        "ostrel [dispatcher options] <namespaces> <command> [options]\n"
        "      For a list of available namespaces run ostrel with no arguments.  \n"
        "      Objects can be listed by specifying just the namespace.\n"
        "      Commands can be listed by specifying the namespace and object.\n"
        "\n"
        " Dispatcher Options: \n"
        "       --plugin-dir                    Add all the plug-ins from this directory\n"
        "       --plugin                        Add a specific file plugin.  (Multiple --plugin "
        "options can be passed.)\n"
        "       --formatter <formatter>         Override the formatter to use for a given "
        "command\n"
        "       --format-param <key>=<value>    Set a formatter parameter to give the formatter "
        "information about how to format the command\n"
        "       --screen-width <width>          Use the specified screen width when formatting "
        "text\n"
        "    -h|--help                          Show this message.\n"
        "\n";
    // Nothing else is applied, not even the check for unknown options.
    for (Words const& args :
         {Words{"--help"}, List({"-h"}), Words{"--bogus", "1", "--formatter", "xml", "--help"}})
        ExpectRun(Ostrel(args), 1, usage, "");

    auto run = [](char const* word) {
        return TestSupport::RunProgram(OSTREL_BINARY, {"/opt/bin/tool", word}, "",
                                       {"OSTREL_SKIP_DEFAULT_PLUGINS=1"})
            .out;
    };
    EXPECT_EQ(0u, run("--help").find("/opt/bin/tool [dispatcher options] <namespaces> <command> "
                                     "[options]\n      For a list of available namespaces run "
                                     "/opt/bin/tool with no arguments.  \n"));
    EXPECT_EQ(0u, run("ostrel").find("Usage: /opt/bin/tool [disp options] ostrel <namespaces> "
                                     "<command>\n\nFor help please run /opt/bin/tool --help\n"));
}

}  // namespace
