#include "InstalledKit.h"

#include "Tools.h"
#include "support/tree/TempDirectory.h"

namespace KitTest {

namespace {

// Not the configured prefix: the kit must work from a place it was not built for.
char const* const kInstallPrefix = "/opt/tindra-kit";

InstalledKit Install() {
    InstalledKit kit;
    kit.stage = WorkDirectory() + "/stage";
    RunTool({TINDRA_CMAKE_COMMAND, "--install", TINDRA_BUILD_DIR, "--prefix", kInstallPrefix},
            {"DESTDIR=" + kit.stage});
    kit.prefix = kit.stage + kInstallPrefix;
    kit.includeDir = kit.prefix + "/" + TINDRA_INSTALL_INCLUDEDIR;
    kit.libDir = kit.prefix + "/" + TINDRA_INSTALL_LIBDIR;
    kit.binDir = kit.prefix + "/" + TINDRA_INSTALL_BINDIR;
    kit.cmakeDir = kit.libDir + "/cmake/Tindra";
    kit.pkgConfigDir = kit.libDir + "/pkgconfig";
    kit.pluginDir = kit.stage + TINDRA_PLUGIN_DIR;
    return kit;
}

}  // namespace

std::string const& WorkDirectory() {
    static Tindra::Testing::TempDirectory const directory;
    return directory.path;
}

InstalledKit const& Kit() {
    static InstalledKit const kit = Install();
    return kit;
}

std::string PkgConfig(std::string const& query) {
    return RunTool({TINDRA_PKG_CONFIG, query, "tindra"},
                   {"PKG_CONFIG_LIBDIR=" + Kit().pkgConfigDir, "PKG_CONFIG_PATH="});
}

TestSupport::ChildResult RunInstalledOstrel(std::vector<std::string> const& args) {
    std::vector<std::string> argv = {Kit().binDir + "/ostrel"};
    argv.insert(argv.end(), args.begin(), args.end());
    // Installed programs carry no path to their library; the host's loader configuration
    // would provide it, the stage needs it said.
    return RunWithEnvironment(argv,
                              {"OSTREL_SKIP_DEFAULT_PLUGINS=1", "LD_LIBRARY_PATH=" + Kit().libDir});
}

}  // namespace KitTest
