#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/tree/CerrCapture.h"
#include "support/tree/TempDirectory.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/plugins/SharedLibraryPlugin.h"
#include "tindra/autocli/tree/Dispatcher.h"

namespace Tindra::AutoCli {
namespace {

std::string const kAnswer = TEST_ANSWERPLUGIN_PATH;
std::string const kRefusing = TEST_REFUSINGPLUGIN_PATH;
std::string const kNoEntry = TEST_NOENTRYPLUGIN_PATH;

// Asks the loader without loading; a successful probe takes a reference that is given back.
bool IsLoaded(std::string const& path) {
    void* handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    return handle != nullptr && dlclose(handle) == 0;
}

// The failure texts of single files are checked end to end, with a plug-in built outside.
TEST(SharedLibraryPluginTest, FailedOrUninitialisedPluginsHoldNothing) {
    EXPECT_THROW(SharedLibraryPlugin::New("/nonexistent/plugin.so")->Initialize(), TindraException);
    auto noEntry = SharedLibraryPlugin::New(kNoEntry);
    EXPECT_THROW(noEntry->Initialize(), TindraException);
    EXPECT_FALSE(IsLoaded(kNoEntry));
    auto root = RootNamespace::New(nullptr);
    noEntry->RegisterNamespaces(root);
    EXPECT_TRUE(root->GetNamespaceNodes().empty());
}

// A command the library placed in the tree keeps it loaded, also after a refused registration.
TEST(SharedLibraryPluginTest, TheLibraryStaysUntilItsCommandsAreGone) {
    auto input = CommandInput::New();
    input->SetCommandPath({"demo", "answer"});
    auto output = CommandOutput::New();
    {
        Dispatcher dispatcher, refused;
        dispatcher.AddPlugin(kAnswer);
        dispatcher.ResetRegistrations();
        EXPECT_TRUE(dispatcher.ExecuteCommand(input, output));
        EXPECT_THROW(refused.AddPlugin(kRefusing), TindraException);
        EXPECT_EQ(refused.GetPluginNames(), std::vector<std::string>{"Internal"});
        EXPECT_TRUE(refused.GetRootNamespace()->SubNamespace("demo")->HasNamespaceNode("answer"));
        EXPECT_TRUE(IsLoaded(kAnswer) && IsLoaded(kRefusing));
    }
    EXPECT_FALSE(IsLoaded(kAnswer) || IsLoaded(kRefusing));
    EXPECT_EQ(std::static_pointer_cast<MetaObj::MetaString>(output->GetRootObject())->GetValue(),
              "forty-two");
}

// Whatever a library throws while registering, it is reported and the next file still loads.
TEST(SharedLibraryPluginTest, DirectoryLoadsLib64FirstThenInByteOrderSkippingFailures) {
    Testing::TempDirectory directory;
    std::filesystem::create_directories(directory.path + "/lib64/sub");
    std::vector<std::string> copies;
    for (auto const& [name, source] : {std::pair{"lib64/z.so", kAnswer},
                                       {"c.so", kAnswer},
                                       {"b.so", std::string(TEST_STDTHROWINGPLUGIN_PATH)},
                                       {"a.so", std::string(TEST_FOREIGNTHROWINGPLUGIN_PATH)}}) {
        copies.push_back(directory.path + "/" + name);
        std::filesystem::copy_file(source, copies.back());
    }
    Testing::CerrCapture errors;
    {
        Dispatcher dispatcher;
        dispatcher.AddExternalDirectory(directory.path);
        EXPECT_EQ(dispatcher.GetPluginNames(), (std::vector<std::string>{"Internal", copies[0]}));
    }
    auto refusal = [](std::string const& path, std::string const& why) {
        return "Error loading plugin " + path +
               " skipping.  Error was: Error while trying to register the plugin " + path + " " +
               why + " The functionality in " + path +
               " will not be available until this issue is resolved.\n";
    };
    EXPECT_EQ(
        errors.Text(),
        refusal(copies[3], "the registration entry point threw an exception of unknown type") +
            refusal(copies[2], "no device table") +
            refusal(copies[1],
                    "Duplicate registration in namespace demo attempt to register two "
                    "objects with name answer"));
}

}  // namespace
}  // namespace Tindra::AutoCli
