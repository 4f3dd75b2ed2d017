#include <gtest/gtest.h>
#include <sys/ioctl.h>

#include "Ostrel.h"
#include "support/PseudoTerminal.h"

namespace {

using namespace CliTest;

TEST(OutputTest, ScreenWidthFromTheCommandLineOrTheTerminal) {
    // Base 0 and the last value wins; out of range, or beyond 32 bits, the width stays unknown.
    std::pair<Words, std::string> const widths[] = {
        {{"100", "--screen-width", "0x28"}, kCommandTableAt40},
        {{"0"}, kCommandTable},
        {{"10000"}, kCommandTable},
        {{"0x100000028"}, kCommandTable}};
    for (auto [width, table] : widths) {
        width.insert(width.begin(), "--screen-width");
        ExpectRun(Ostrel(List(width)), 0, table, "");
    }
    // On a terminal its window size is the width, unless the command line sets one.
    for (auto const& [options, table] :
         {std::pair{Words{}, kCommandTableAt40}, {{"--screen-width", "200"}, kCommandTable}}) {
        TestSupport::PseudoTerminal terminal;
        winsize const size{24, 40, 0, 0};
        ioctl(terminal.slave.Get(), TIOCSWINSZ, &size);
        ExpectRun(Ostrel(List(options), "", {}, terminal.slave.Get()), 0, "", "");
        EXPECT_EQ(table, terminal.ReadWritten());
    }
}

// Split at the first "="; blanks, dots, colons and hyphens are key characters; a key given
// replaces the command's default, the others stay.
TEST(OutputTest, FormatParametersOverrideTheCommandsDefaultsKeyByKey) {
    auto const run = Ostrel(List({"--formatter", "xml", "--format-param", "a.b c:d-e=x=y",
                                  "--format-param", "fields:OstrelCommand=Command"}));
    EXPECT_NE(std::string::npos,
              run.out.find("   <meta-data>\n"
                           "      <meta-data-field name=\"a.b c:d-e\" value=\"x=y\"/>\n"
                           "      <meta-data-field name=\"fields:OstrelCommand\" "
                           "value=\"Command\"/>\n"
                           "      <meta-data-field name=\"wrap-last\" value=\"true\"/>\n"
                           "   </meta-data>\n"))
        << run.out;
}

// Help as a command option, wherever it stands, in any format (the layout is the help
// formatter's).
TEST(OutputTest, CommandHelpInAnyFormat) {
    for (auto const& [args, shown] :
         {std::pair{List({}, {"-c", "x", "-h"}), "Usage: ostrel ostrel command list <options>\n"},
          {List({"--formatter", "xml"}, {"--help"}),
           "<structure typeName=\"OstrelCommandHelp\">"}}) {
        auto const run = Ostrel(args);
        EXPECT_EQ(std::make_pair(0, std::string()), std::make_pair(run.status, run.err));
        EXPECT_NE(std::string::npos, run.out.find(shown)) << run.out;
    }
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
    for (Words const& args : {List({"-h"}), Words{"--bogus", "1", "--formatter", "xml", "--help"}})
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
