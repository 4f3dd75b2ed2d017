#include <gtest/gtest.h>

#include "Ostrel.h"
#include "support/PseudoTerminal.h"

namespace {

// Standard output on a terminal: its window size is the screen width, unless overridden.
std::string ListOnTerminal(unsigned short columns, std::vector<std::string> options) {
    TestSupport::PseudoTerminal terminal;
    terminal.SetWindowSize(columns, 24);
    std::vector<std::string> argv = {"ostrel"};
    argv.insert(argv.end(), options.begin(), options.end());
    for (char const* word : {"ostrel", "command", "list"}) {
        argv.push_back(word);
    }
    auto run = TestSupport::RunProgram(OSTREL_BINARY, argv, "", {"OSTREL_SKIP_DEFAULT_PLUGINS=1"},
                                       terminal.slave.Get());
    EXPECT_EQ(0, run.status);
    EXPECT_EQ("", run.err);
    return terminal.ReadWritten();
}

std::string const kWrappedAt40 =
    "Namespace       Command  Description\n"
    "--------------  -------  -----------\n"
    "ostrel.command  list     List all of \n"
    "                         the ostrel \n"
    "                         commands.\n";

TEST(TerminalWidthTest, TheTerminalsWidthWrapsUnlessTheCommandLineSetsOne) {
    EXPECT_EQ(kWrappedAt40, ListOnTerminal(40, {}));
    EXPECT_EQ(CliTest::BuiltInCommandTable(), ListOnTerminal(40, {"--screen-width", "200"}));
    EXPECT_EQ(kWrappedAt40, ListOnTerminal(200, {"--screen-width", "40"}));
    EXPECT_EQ(kWrappedAt40, ListOnTerminal(40, {"--screen-width", "10000"}));
}

}  // namespace
