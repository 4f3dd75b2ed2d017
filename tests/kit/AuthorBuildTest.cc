// Plug-ins built from their own directories against the installed kit, with CMake and with
// pkg-config, load into the installed tool by file and by directory.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "AuthorBuilds.h"
#include "InstalledKit.h"
#include "RunExpectations.h"

namespace KitTest {
namespace {

namespace fs = std::filesystem;

std::string DirectoryWith(std::string const& name, std::vector<std::string> const& files) {
    std::string const directory = WorkDirectory() + "/" + name;
    fs::create_directories(directory);
    for (auto const& file : files) {
        fs::copy_file(file, directory + "/" + fs::path(file).filename().string(),
                      fs::copy_options::overwrite_existing);
    }
    return directory;
}

TEST(AuthorBuild, CMakeFindsTheInstalledKitAndItsPluginsRunByFileAndByDirectory) {
    auto const& built = BuiltWithCMake();
    EXPECT_EQ(fs::canonical(Kit().cmakeDir), fs::canonical(built.tindraDir));
    ExpectRun(RunInstalledOstrel({"--plugin", built.hello, "hello", "greet", "--name", "Ada"}), 0,
              "Hello, Ada\n", "");

    std::string const directory = DirectoryWith("cmake-plugins", {built.hello, built.goodday});
    ExpectRun(RunInstalledOstrel({"--plugin-dir", directory, "hello", "greet", "-n", "Ada"}), 0,
              "Hello, Ada\n", "");
    ExpectRun(RunInstalledOstrel({"--plugin-dir", directory, "goodday", "greet"}), 0,
              "Good day, world\n", "");
}

TEST(AuthorBuild, PkgConfigBuiltPluginsRunByFileAndByDirectory) {
    auto const& built = BuiltWithPkgConfig();
    ExpectRun(RunInstalledOstrel({"--plugin", built.goodday, "goodday", "greet", "-n", "Bo"}), 0,
              "Good day, Bo\n", "");

    std::string const directory = DirectoryWith("pkg-config-plugins", {built.hello});
    ExpectRun(RunInstalledOstrel({"--plugin-dir", directory, "hello", "greet"}), 0,
              "Hello, world\n", "");
}

// Plug-ins share one global symbol scope; hello and goodday define the same classes, and
// the one loaded second must still run its own code, with either way of building.
TEST(AuthorBuild, PluginsDefiningTheSameClassesEachRunTheirOwn) {
    for (AuthorPlugins const* built :
         {static_cast<AuthorPlugins const*>(&BuiltWithCMake()), &BuiltWithPkgConfig()}) {
        ExpectRun(RunInstalledOstrel(
                      {"--plugin", built->hello, "--plugin", built->goodday, "goodday", "greet"}),
                  0, "Good day, world\n", "");
        ExpectRun(RunInstalledOstrel(
                      {"--plugin", built->goodday, "--plugin", built->hello, "hello", "greet"}),
                  0, "Hello, world\n", "");
    }
}

}  // namespace
}  // namespace KitTest
