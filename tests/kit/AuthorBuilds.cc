#include "AuthorBuilds.h"

#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "InstalledKit.h"
#include "Tools.h"

namespace KitTest {

namespace {

std::string const kAuthorSources = std::string(TINDRA_SOURCE_DIR) + "/tests/kit/authors";
std::string const kExampleSources = std::string(TINDRA_SOURCE_DIR) + "/examples/resource";

// Configures and builds a project the way its README says: nothing but the kit's prefix.
// Two jobs at most: the build machine is shared.
std::string BuildCMakeProject(std::string const& source, std::string const& name) {
    std::string const build = WorkDirectory() + "/cmake-" + name;
    RunTool({TINDRA_CMAKE_COMMAND, "-S", source, "-B", build, "-G", TINDRA_CMAKE_GENERATOR,
             "-DCMAKE_MAKE_PROGRAM=" TINDRA_MAKE_PROGRAM,
             "-DCMAKE_CXX_COMPILER=" TINDRA_CXX_COMPILER, "-DCMAKE_PREFIX_PATH=" + Kit().prefix,
             "-DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF",
             // The library's own dependencies are its business: the kit must not need them.
             "-DCMAKE_DISABLE_FIND_PACKAGE_Boost=ON", "-DCMAKE_DISABLE_FIND_PACKAGE_LibXml2=ON"});
    RunTool({TINDRA_CMAKE_COMMAND, "--build", build, "--parallel", "2"});
    return build;
}

// A cache entry reads KEY:TYPE=value.
std::string CachedValue(std::string const& build, std::string const& key) {
    std::istringstream cache(ReadFile(build + "/CMakeCache.txt"));
    for (std::string line; std::getline(cache, line);) {
        if (line.compare(0, key.size() + 1, key + ":") == 0) {
            return line.substr(line.find('=') + 1);
        }
    }
    throw std::runtime_error(key + " is not in the cache of " + build);
}

CMakeBuild BuildWithCMake() {
    CMakeBuild plugins;
    std::string const authors = BuildCMakeProject(kAuthorSources, "authors");
    plugins.tindraDir = CachedValue(authors, "Tindra_DIR");
    plugins.hello = authors + "/hello.so";
    plugins.goodday = authors + "/goodday.so";
    plugins.refusing = authors + "/refusing.so";
    plugins.noEntry = authors + "/noentry.so";
    plugins.resource = BuildCMakeProject(kExampleSources, "resource") + "/resource.so";
    return plugins;
}

// One compiler call per plug-in, every flag from pkg-config.
std::string LinkWithPkgConfig(std::vector<std::string> const& sources,
                              std::vector<std::string> const& definitions,
                              std::string const& output) {
    std::vector<std::string> command = {TINDRA_CXX_COMPILER, "-fPIC"};
    for (auto const& flag : SplitWords(PkgConfig("--cflags"))) {
        command.push_back(flag);
    }
    command.insert(command.end(), definitions.begin(), definitions.end());
    command.insert(command.end(), sources.begin(), sources.end());
    command.insert(command.end(), {"-o", output});
    for (auto const& flag :
         SplitWords(PkgConfig("--libs") + " " + PkgConfig("--variable=plugin_ldflags"))) {
        command.push_back(flag);
    }
    RunTool(command);
    return output;
}

std::vector<std::string> ExampleSources() {
    std::vector<std::string> sources;
    for (auto const& entry : std::filesystem::directory_iterator(kExampleSources)) {
        if (entry.path().extension() == ".cc") {
            sources.push_back(entry.path());
        }
    }
    return sources;
}

AuthorPlugins BuildWithPkgConfig() {
    std::string const build = WorkDirectory() + "/pkg-config";
    std::filesystem::create_directories(build);
    std::string const greeting = kAuthorSources + "/Greeting.cpp";
    AuthorPlugins plugins;
    plugins.hello = LinkWithPkgConfig(
        {greeting}, {"-DGREETING_NAMESPACE=\"hello\"", "-DGREETING_WORD=\"Hello\""},
        build + "/hello.so");
    plugins.goodday = LinkWithPkgConfig(
        {greeting}, {"-DGREETING_NAMESPACE=\"goodday\"", "-DGREETING_WORD=\"Good day\""},
        build + "/goodday.so");
    plugins.resource = LinkWithPkgConfig(ExampleSources(), {}, build + "/resource.so");
    return plugins;
}

}  // namespace

CMakeBuild const& BuiltWithCMake() {
    static CMakeBuild const plugins = BuildWithCMake();
    return plugins;
}

AuthorPlugins const& BuiltWithPkgConfig() {
    static AuthorPlugins const plugins = BuildWithPkgConfig();
    return plugins;
}

}  // namespace KitTest
