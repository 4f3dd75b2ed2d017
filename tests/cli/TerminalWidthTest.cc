#include <gtest/gtest.h>

#include "Ostrel.h"
#include "support/PseudoTerminal.h"

namespace {

using namespace CliTest;

// Standard output on a terminal: its window size is the screen width, unless overridden.
std::string ListOnTerminal(unsigned short columns, Words const& options) {
    TestSupport::PseudoTerminal terminal;
    terminal.SetWindowSize(columns, 24);
    Words argv = List(options);
    argv.insert(argv.begin(), "ostrel");
    auto run = TestSupport::RunProgram(OSTREL_BINARY, argv, "", {"OSTREL_SKIP_DEFAULT_PLUGINS=1"},
                                       terminal.slave.Get());
    EXPECT_EQ(0, run.status);
    EXPECT_EQ("", run.err);
    return terminal.ReadWritten();
}

TEST(TerminalWidthTest, TheTerminalsWidthWrapsUnlessTheCommandLineSetsOne) {
    EXPECT_EQ(kCommandTableAt40, ListOnTerminal(40, {}));
    EXPECT_EQ(kCommandTable, ListOnTerminal(40, {"--screen-width", "200"}));
    EXPECT_EQ(kCommandTableAt40, ListOnTerminal(200, {"--screen-width", "40"}));
    EXPECT_EQ(kCommandTableAt40, ListOnTerminal(40, {"--screen-width", "10000"}));
}

}  // namespace
