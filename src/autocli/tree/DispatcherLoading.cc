// How the dispatcher finds plug-in files and turns them into registered plug-ins.
#include <algorithm>
#include <iostream>
#include <iterator>

#include <boost/regex.hpp>

#include "autocli/plugins/DescriptorPreloader.h"
#include "autocli/tree/ExceptionText.h"
#include "platform/DirectoryListing.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/plugins/SharedLibraryPlugin.h"
#include "tindra/autocli/plugins/XmlPlugin.h"
#include "tindra/autocli/tree/Dispatcher.h"

namespace Tindra {
namespace AutoCli {

namespace {

bool IsSharedLibraryPath(std::string const& path) {
    static boost::regex const sharedLibraryFile(".+\\.so$");
    return boost::regex_match(path, sharedLibraryFile);
}

bool IsDescriptorPath(std::string const& path) {
    static boost::regex const descriptorFile(".+\\.xml$");
    return boost::regex_match(path, descriptorFile);
}

}  // namespace

// TINDRA_STANDARD_PLUGIN_DIR is /usr/lib/norvane/ostrel, set once by the build so the tool can
// tell its own plug-in directory from the standard one.
void Dispatcher::AddDefaultDirectories() {
    AddExternalDirectory(TINDRA_STANDARD_PLUGIN_DIR);
    AddExternalDirectory(TINDRA_STANDARD_PLUGIN_DIR "/ext");
}

void Dispatcher::AddExternalDirectory(std::string const& directory) {
    AddExternalDirectoryInt(directory + "/lib64", false);
    AddExternalDirectoryInt(directory, true);
}

void Dispatcher::AddExternalDirectoryInt(std::string const& directory, bool reportOpenFailure) {
    std::vector<std::string> paths;
    if (!Platform::ListDirectory(directory, paths)) {
        if (reportOpenFailure) {
            std::cerr << "Unable to open directory " << directory << " for plugin registration"
                      << std::endl;
        }
        return;
    }
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> descriptorPaths;
    std::copy_if(paths.begin(), paths.end(), std::back_inserter(descriptorPaths), IsDescriptorPath);
    DescriptorPreloader descriptors(std::move(descriptorPaths));
    size_t nextDescriptor = 0;
    for (auto const& path : paths) {
        try {
            if (IsDescriptorPath(path)) {
                RegisterPlugin(descriptors.Take(nextDescriptor++));
            } else {
                AddPlugin(path);
            }
        } catch (...) {
            // One broken plug-in costs only its own commands, whatever it threw.
            std::cerr << "Error loading plugin " << path << " skipping.  "
                      << "Error was: " << CurrentExceptionText() << std::endl;
        }
    }
}

void Dispatcher::AddPlugin(std::string const& path) {
    if (IsSharedLibraryPath(path)) {
        auto plugin = SharedLibraryPlugin::New(path);
        plugin->Initialize();
        // Kept before registering: a registration that fails half way may already have put
        // the library's objects into the tree.
        loadedLibraries.push_back(plugin);
        RegisterPlugin(plugin);
    } else if (IsDescriptorPath(path)) {
        auto plugin = XmlPlugin::New(path);
        plugin->Initialize();
        RegisterPlugin(plugin);
    }
}

}  // namespace AutoCli
}  // namespace Tindra
