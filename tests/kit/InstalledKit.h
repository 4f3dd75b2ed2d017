#ifndef TINDRA_TESTS_KIT_INSTALLEDKIT_H
#define TINDRA_TESTS_KIT_INSTALLEDKIT_H

#include <string>
#include <vector>

#include "support/ChildProcess.h"

namespace KitTest {

// A scratch directory for this test program, removed when it ends.
std::string const& WorkDirectory();

// The build, installed the way a package is staged: under a DESTDIR, so that the plug-in
// directory, an absolute path, lands in the stage too and the host stays untouched.
struct InstalledKit {
    std::string stage;   // the DESTDIR
    std::string prefix;  // where the kit is: stage + install prefix
    std::string includeDir;
    std::string libDir;
    std::string binDir;
    std::string cmakeDir;
    std::string pkgConfigDir;
    std::string pluginDir;  // stage + the default plug-in directory
};

// Installs on the first call.
InstalledKit const& Kit();

// pkg-config's answer to a query about tindra, seeing only the kit's own .pc file so that it
// cannot lean on the host's packages.
std::string PkgConfig(std::string const& query);

// The installed tool, with only the plug-ins its arguments name.
TestSupport::ChildResult RunInstalledOstrel(std::vector<std::string> const& args);

}  // namespace KitTest

#endif
