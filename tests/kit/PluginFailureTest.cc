// Files that are no plug-in, or a broken one, cost only their own commands: each is
// reported on standard error in the tool's words, with the loader's explanation, and the
// command that was asked for still runs.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "AuthorBuilds.h"
#include "InstalledKit.h"
#include "RunExpectations.h"
#include "Tools.h"

namespace KitTest {
namespace {

namespace fs = std::filesystem;

std::string const kRefusal = "This plug-in refuses to register.";

std::string NotALibrary() {
    std::string const path = WorkDirectory() + "/notalib.so";
    WriteFile(path, "Named like a plug-in, but only text.\n");
    return path;
}

std::string LoadFailure(std::string const& path) {
    return "Unable to load plugin from " + path + " : " + LoaderComplaint(path);
}

std::string EntryPointFailure(std::string const& path) {
    return "Unable to get plugin registration point from " + path + " : " + LoaderComplaint(path);
}

std::string RegistrationFailure(std::string const& path) {
    return "Error while trying to register the plugin " + path + " " + kRefusal +
           " The functionality in " + path + " will not be available until this issue is resolved.";
}

std::string NamedPluginFailure(std::string const& path, std::string const& message) {
    return "Unable to load plugin " + path + ": " + message + "\n";
}

std::string DirectoryPluginFailure(std::string const& path, std::string const& message) {
    return "Error loading plugin " + path + " skipping.  Error was: " + message + "\n";
}

TEST(PluginFailure, EachBadFileNamedOnTheCommandLineIsReportedAndTheRestKeepsWorking) {
    auto const& built = BuiltWithCMake();
    std::string const text = NotALibrary();
    ExpectRun(RunInstalledOstrel({"--plugin", text, "--plugin", built.noEntry, "--plugin",
                                  built.refusing, "--plugin", built.hello, "hello", "greet"}),
              0, "Hello, world\n",
              NamedPluginFailure(text, LoadFailure(text)) +
                  NamedPluginFailure(built.noEntry, EntryPointFailure(built.noEntry)) +
                  NamedPluginFailure(built.refusing, RegistrationFailure(built.refusing)));
}

TEST(PluginFailure, BadFilesInAPluginDirectoryAreSkippedInNameOrder) {
    auto const& built = BuiltWithCMake();
    std::string const directory = WorkDirectory() + "/mixed-plugins";
    fs::create_directories(directory);
    for (auto const& file : {built.refusing, built.hello, built.noEntry, NotALibrary()}) {
        fs::copy_file(file, directory + "/" + fs::path(file).filename().string(),
                      fs::copy_options::overwrite_existing);
    }
    WriteFile(directory + "/README.txt", "Neither .so nor .xml: not even looked at.\n");
    std::string const noEntry = directory + "/noentry.so";
    std::string const text = directory + "/notalib.so";
    std::string const refusing = directory + "/refusing.so";
    ExpectRun(RunInstalledOstrel({"--plugin-dir", directory, "hello", "greet", "-n", "Cy"}), 0,
              "Hello, Cy\n",
              DirectoryPluginFailure(noEntry, EntryPointFailure(noEntry)) +
                  DirectoryPluginFailure(text, LoadFailure(text)) +
                  DirectoryPluginFailure(refusing, RegistrationFailure(refusing)));
}

// The refusing plug-in's command was in the tree before it threw, so its library must stay
// loaded for as long as the tree holds the command.
TEST(PluginFailure, CommandRegisteredBeforeTheRegistrationFailedStillRuns) {
    auto const& built = BuiltWithCMake();
    ExpectRun(RunInstalledOstrel({"--plugin", built.refusing, "refusing", "partial"}), 0,
              "registered before the failure\n",
              NamedPluginFailure(built.refusing, RegistrationFailure(built.refusing)));
}

}  // namespace
}  // namespace KitTest
