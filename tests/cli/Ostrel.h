#ifndef TINDRA_TESTS_CLI_OSTREL_H
#define TINDRA_TESTS_CLI_OSTREL_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ChildProcess.h"

namespace CliTest {

// Runs the built tool as "ostrel" with only its built-in commands (nothing from the
// installed plug-in directories), standard streams on pipes.
inline TestSupport::ChildResult Ostrel(std::vector<std::string> const& args,
                                       std::string const& input = "") {
    std::vector<std::string> argv = {"ostrel"};
    argv.insert(argv.end(), args.begin(), args.end());
    return TestSupport::RunProgram(OSTREL_BINARY, argv, input, {"OSTREL_SKIP_DEFAULT_PLUGINS=1"});
}

// The three things a run is judged by, compared at once so a failure shows all of them.
inline void ExpectRun(TestSupport::ChildResult const& run, int status, std::string const& out,
                      std::string const& err) {
    EXPECT_EQ(out, run.out);
    EXPECT_EQ(err, run.err);
    EXPECT_EQ(status, run.status);
}

// What the command list prints by default for the built-in command alone.
inline std::string const& BuiltInCommandTable() {
    static std::string const table =
        "Namespace       Command  Description\n"
        "--------------  -------  -----------\n"
        "ostrel.command  list     List all of the ostrel commands.\n";
    return table;
}

}  // namespace CliTest

#endif
