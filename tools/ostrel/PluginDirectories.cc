// Where an installed program finds its plug-ins: the build places the bundled ones at
// <prefix>/TINDRA_PLUGIN_DIR, and the prefix is found from the program's own path.
#include "PluginDirectories.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace Ostrel {
namespace {

namespace fs = std::filesystem;

// <prefix>/lib/norvane/ostrel for the running program, or empty when it cannot be told.
fs::path OwnPluginDirectory() {
    std::error_code error;
    fs::path const program = fs::read_symlink("/proc/self/exe", error);
    if (error) {
        return {};
    }
    return (program.parent_path() / TINDRA_PREFIX_FROM_PROGRAM / TINDRA_PLUGIN_DIR)
        .lexically_normal();
}

bool IsStandardDirectory(fs::path const& directory) {
    std::error_code error;
    return fs::equivalent(directory, TINDRA_STANDARD_PLUGIN_DIR, error);
}

}  // namespace

bool DefaultPluginsSkipped() {
    char const* skip = std::getenv("OSTREL_SKIP_DEFAULT_PLUGINS");
    return skip != nullptr && std::strcmp(skip, "1") == 0;
}

void AddInstalledPluginDirectories(Tindra::AutoCli::Dispatcher& dispatcher) {
    fs::path const own = OwnPluginDirectory();
    std::error_code error;
    if (own.empty() || !fs::is_directory(own, error) || IsStandardDirectory(own)) {
        dispatcher.AddDefaultDirectories();
        return;
    }
    // A private installation carries everything it needs: the standard directories are
    // extras here, so their absence is not worth a message on every run.
    for (fs::path const& directory : {own, own / "ext", fs::path(TINDRA_STANDARD_PLUGIN_DIR),
                                      fs::path(TINDRA_STANDARD_PLUGIN_DIR "/ext")}) {
        if (fs::is_directory(directory, error)) {
            dispatcher.AddExternalDirectory(directory.string());
        }
    }
}

}  // namespace Ostrel
