#ifndef TINDRA_TESTS_KIT_KIT_H
#define TINDRA_TESTS_KIT_KIT_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/tree/TempDirectory.h"

namespace KitTest {

// A scratch directory for this test program, removed when it ends.
Tindra::Testing::TempDirectory const& Work();

// The build, staged under a DESTDIR like a package, so that the plug-in directory (an
// absolute path) lands in the stage too and the host stays untouched. Installs on first use.
struct InstalledKit {
    std::string prefix, includeDir, libDir, binDir, cmakeDir, pkgConfigDir, pluginDir;
};
InstalledKit const& Kit();

// Runs a build tool (argv[0] is its path) with NAME=value entries replacing inherited ones; a
// failure throws with everything it printed.
std::string RunTool(std::vector<std::string> const& argv,
                    std::vector<std::string> const& environment = {});

// pkg-config's answer about tindra, seeing only the kit's own .pc file.
std::string PkgConfig(std::string const& query);

// The installed tool, with only the plug-ins its arguments name.
TestSupport::ChildResult RunInstalledOstrel(std::vector<std::string> const& args);

// The example plug-in's report with only the figures that stay put between runs.
TestSupport::ChildResult SteadyResourceReport(std::vector<std::string> loading);

std::vector<std::string> SplitWords(std::string const& text);
std::string ReadFile(std::string const& path);

// Copies files into a new directory under Work() and returns its path.
std::string DirectoryWith(std::string const& name, std::vector<std::string> const& files);

// Why the dynamic loader cannot load a file or find its registration entry point.
std::string LoaderComplaint(std::string const& path);

// Compared at once so that a failure shows all three.
inline void ExpectRun(TestSupport::ChildResult const& run, int status, std::string const& out,
                      std::string const& err) {
    EXPECT_EQ(out, run.out);
    EXPECT_EQ(err, run.err);
    EXPECT_EQ(status, run.status);
}

}  // namespace KitTest

#endif
