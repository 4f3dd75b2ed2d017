#ifndef TINDRA_TESTS_SUPPORT_PRIVATEINSTALL_H
#define TINDRA_TESTS_SUPPORT_PRIVATEINSTALL_H

// The build installed under a private prefix, as a user without root does. Descriptors name
// their helpers by the prefix given at install time, so it is a real one, not a DESTDIR stage.
#include <stdexcept>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/tree/TempDirectory.h"

namespace TestSupport {

// Runs a build tool; a failure throws with everything it printed.
inline std::string RunTool(std::vector<std::string> const& argv,
                           std::vector<std::string> const& environment = {}) {
    auto const run = RunProgram(argv.front(), argv, "", environment);
    if (run.status != 0)
        throw std::runtime_error(argv.front() + " ended with status " + std::to_string(run.status) +
                                 ":\n" + run.out + run.err);
    return run.out;
}

struct PrivateInstall {
    Tindra::Testing::TempDirectory work;
    std::string prefix = work.path + "/prefix";

    PrivateInstall() {
        RunTool({TINDRA_CMAKE_COMMAND, "--install", TINDRA_BUILD_DIR, "--prefix", prefix});
    }
    // The installed tool found on PATH, run from the scratch directory with nothing of the
    // test's in its environment.
    ChildResult Shell(std::string const& shell, std::string const& script) const {
        return RunProgram(shell, {shell, "-c", "cd \"$HOME\"\n" + script}, "",
                          {"PATH=" + prefix + "/bin:/usr/bin:/bin", "HOME=" + work.path,
                           "OSTREL_SKIP_DEFAULT_PLUGINS", "LD_LIBRARY_PATH"});
    }
};

// One per test program, made on first use; a test that spoils one makes its own.
inline PrivateInstall const& Installed() {
    static PrivateInstall const installation;
    return installation;
}

}  // namespace TestSupport

#endif
