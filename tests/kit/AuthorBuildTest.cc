// Plug-ins built from their own directories against the installed kit, with CMake and with
// pkg-config, loaded into the installed tool by file and by directory. One test per way of
// building, as each build is slow.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Kit.h"

namespace KitTest {
namespace {

namespace fs = std::filesystem;

std::string const kAuthorSources = std::string(TINDRA_SOURCE_DIR) + "/tests/kit/authors";
std::string const kExampleSources = std::string(TINDRA_SOURCE_DIR) + "/examples/resource";

// From tests/kit/authors and examples/resource. hello and goodday are one source with other
// words, so they define the same classes.
struct AuthorPlugins {
    std::string hello, goodday, resource;
};

// Configured with nothing but the kit's prefix, as the README says; two jobs at most.
std::string BuildCMakeProject(std::string const& source, std::string const& name) {
    std::string const build = Work().path + "/cmake-" + name;
    RunTool({TINDRA_CMAKE_COMMAND, "-S", source, "-B", build, "-G", TINDRA_CMAKE_GENERATOR,
             "-DCMAKE_MAKE_PROGRAM=" TINDRA_MAKE_PROGRAM,
             "-DCMAKE_CXX_COMPILER=" TINDRA_CXX_COMPILER, "-DCMAKE_PREFIX_PATH=" + Kit().prefix,
             "-DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF",
             // The library's own dependencies are its business: the kit must not need them.
             "-DCMAKE_DISABLE_FIND_PACKAGE_Boost=ON", "-DCMAKE_DISABLE_FIND_PACKAGE_LibXml2=ON"});
    RunTool({TINDRA_CMAKE_COMMAND, "--build", build, "--parallel", "2"});
    return build;
}

// One compiler call per plug-in, every flag from pkg-config.
std::string LinkWithPkgConfig(std::vector<std::string> const& sources,
                              std::vector<std::string> const& definitions,
                              std::string const& output) {
    std::vector<std::string> command = SplitWords(PkgConfig("--cflags"));
    command.insert(command.begin(), {TINDRA_CXX_COMPILER, "-fPIC"});
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

// Plug-ins share one global symbol scope, and hello and goodday define the same classes: the
// one loaded second must still run its own code.
void ExpectSameClassesKeptApart(AuthorPlugins const& built) {
    ExpectRun(RunInstalledOstrel(
                  {"--plugin", built.hello, "--plugin", built.goodday, "goodday", "greet"}),
              0, "Good day, world\n", "");
    ExpectRun(
        RunInstalledOstrel({"--plugin", built.goodday, "--plugin", built.hello, "hello", "greet"}),
        0, "Hello, world\n", "");
}

void ExpectExampleRebuiltAsInstalled(AuthorPlugins const& built) {
    auto const installed = SteadyResourceReport({"--plugin-dir", Kit().pluginDir});
    ASSERT_EQ(0, installed.status) << installed.err;
    ExpectRun(SteadyResourceReport({"--plugin", built.resource}), 0, installed.out, "");
}

std::string LoadFailure(std::string const& path) {
    return "Unable to load plugin from " + path + " : " + LoaderComplaint(path);
}

std::string EntryPointFailure(std::string const& path) {
    return "Unable to get plugin registration point from " + path + " : " + LoaderComplaint(path);
}

std::string RegistrationFailure(std::string const& path) {
    return "Error while trying to register the plugin " + path +
           " This plug-in refuses to register. The functionality in " + path +
           " will not be available until this issue is resolved.";
}

std::string AuthorDirectory() {
    std::string const build = BuildCMakeProject(kAuthorSources, "authors");
    std::string const cache = ReadFile(build + "/CMakeCache.txt");  // has Tindra_DIR:PATH=...
    auto const found = cache.find('=', cache.find("\nTindra_DIR:"));
    EXPECT_EQ(fs::canonical(Kit().cmakeDir),
              fs::canonical(cache.substr(found + 1, cache.find('\n', found) - found - 1)));
    return build;
}

TEST(AuthorBuild, CMakeBuiltPluginsRunAndBrokenOnesCostOnlyTheirOwnCommands) {
    std::string const authors = AuthorDirectory();
    AuthorPlugins built = {authors + "/hello.so", authors + "/goodday.so",
                           BuildCMakeProject(kExampleSources, "resource") + "/resource.so"};
    std::string const refusing = authors + "/refusing.so";
    std::string const noEntry = authors + "/noentry.so";
    ExpectRun(RunInstalledOstrel({"--plugin", built.hello, "hello", "greet", "--name", "Ada"}), 0,
              "Hello, Ada\n", "");
    std::string const good = DirectoryWith("cmake-plugins", {built.hello, built.goodday});
    ExpectRun(RunInstalledOstrel({"--plugin-dir", good, "goodday", "greet", "-n", "Ada"}), 0,
              "Good day, Ada\n", "");
    ExpectSameClassesKeptApart(built);
    ExpectExampleRebuiltAsInstalled(built);

    // Each bad file named is reported in turn; the refusing plug-in's command was placed before
    // it threw, so its library must stay loaded while the tree holds the command.
    std::string const text = Work().Write("notalib.so", "Named like a plug-in, but only text.\n");
    auto named = [](std::string const& path, std::string const& message) {
        return "Unable to load plugin " + path + ": " + message + "\n";
    };
    ExpectRun(RunInstalledOstrel({"--plugin", text, "--plugin", noEntry, "--plugin", refusing,
                                  "refusing", "greet"}),
              0, "Placed, world\n",
              named(text, LoadFailure(text)) + named(noEntry, EntryPointFailure(noEntry)) +
                  named(refusing, RegistrationFailure(refusing)));

    // In a directory, in name order, and files neither .so nor .xml are not even looked at.
    std::string const mixed =
        DirectoryWith("mixed-plugins", {refusing, built.hello, noEntry, text});
    Work().Write("mixed-plugins/README.txt", "not a plug-in\n");
    auto skipped = [](std::string const& path, std::string const& message) {
        return "Error loading plugin " + path + " skipping.  Error was: " + message + "\n";
    };
    auto in = [&](char const* name) { return mixed + "/" + name; };
    ExpectRun(RunInstalledOstrel({"--plugin-dir", mixed, "hello", "greet", "-n", "Cy"}), 0,
              "Hello, Cy\n",
              skipped(in("noentry.so"), EntryPointFailure(in("noentry.so"))) +
                  skipped(in("notalib.so"), LoadFailure(in("notalib.so"))) +
                  skipped(in("refusing.so"), RegistrationFailure(in("refusing.so"))));
}

TEST(AuthorBuild, PkgConfigBuiltPluginsRunByFileAndByDirectory) {
    std::string const build = Work().path + "/pkg-config";
    fs::create_directories(build);
    auto greeting = [&](std::string const& name, std::string const& word) {
        return LinkWithPkgConfig(
            {kAuthorSources + "/Greeting.cpp"},
            {"-DGREETING_NAMESPACE=\"" + name + "\"", "-DGREETING_WORD=\"" + word + "\""},
            build + "/" + name + ".so");
    };
    std::vector<std::string> example;
    for (auto const& entry : fs::directory_iterator(kExampleSources)) {
        if (entry.path().extension() == ".cc") {
            example.push_back(entry.path());
        }
    }
    AuthorPlugins built = {greeting("hello", "Hello"), greeting("goodday", "Good day"),
                           LinkWithPkgConfig(example, {}, build + "/resource.so")};
    ExpectRun(RunInstalledOstrel({"--plugin", built.goodday, "goodday", "greet", "-n", "Bo"}), 0,
              "Good day, Bo\n", "");
    std::string const directory = DirectoryWith("pkg-config-plugins", {built.hello});
    ExpectRun(RunInstalledOstrel({"--plugin-dir", directory, "hello", "greet"}), 0,
              "Hello, world\n", "");
    ExpectSameClassesKeptApart(built);
    ExpectExampleRebuiltAsInstalled(built);
}

}  // namespace
}  // namespace KitTest
