// The bundled descriptors: both configurations load, and no command leaves a placeholder in its
// command line or standard input when called without options, which the engine itself only
// finds out when a user runs it so.
#include <gtest/gtest.h>

#include <boost/regex.hpp>
#include <filesystem>
#include <string>
#include <vector>

#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/tree/Dispatcher.h"
#include "tindra/callspec/Input.h"

namespace {

using namespace Tindra::AutoCli;

std::string const kBuildDir = TINDRA_TEST_BINARY_DIR "/../plugins";

std::vector<std::string> DescriptorsIn(std::string const& directory) {
    std::vector<std::string> paths;
    std::error_code absent;
    for (auto const& entry : std::filesystem::directory_iterator(directory, absent))
        if (entry.path().extension() == ".xml")
            paths.push_back(entry.path().string());
    return paths;
}

void CollectCommands(std::shared_ptr<NamespaceNode> const& node,
                     std::vector<std::shared_ptr<ExtensionCommand>>& commands) {
    for (auto const& child : node->GetNamespaceNodes()) {
        if (auto command = std::dynamic_pointer_cast<ExtensionCommand>(child)) {
            commands.push_back(command);
        } else if (child->GetType() != NamespaceNode::COMMAND_NODE) {
            CollectCommands(child, commands);
        }
    }
}

TEST(BundledDescriptorTest, LoadAndCallsWithoutOptionsLeaveNoPlaceholder) {
    if (DescriptorsIn(kBuildDir + "/bundled").empty()) {
        GTEST_SKIP() << "bundled plug-ins not configured in this build";
    }
    static boost::regex const placeholder("\\$(val|if|list|multilist)\\{");
    // The installed copies differ only in the helpers' directory; they are written at install
    // time and run by the private-install tests.
    Dispatcher dispatcher;
    auto const files = DescriptorsIn(kBuildDir + "/bundled");
    for (auto const& file : files) {
        EXPECT_NO_THROW(dispatcher.AddPlugin(file)) << file;
    }
    EXPECT_EQ(files.size() + 1, dispatcher.GetPluginNames().size());
    std::vector<std::shared_ptr<ExtensionCommand>> commands;
    CollectCommands(dispatcher.GetRootNamespace(), commands);
    EXPECT_FALSE(commands.empty());
    for (auto const& command : commands) {
        // An optional value outside its own $if section would reach the helper as a literal.
        auto input = Tindra::CallSpec::Input::New();
        input->SetInputSpec(command->GetInputSpec());
        for (bool forStdin : {false, true}) {
            EXPECT_FALSE(
                boost::regex_search(command->SubstituteInput(input, forStdin), placeholder))
                << command->GetPathString(' ') << ": " << command->SubstituteInput(input, forStdin);
        }
    }
}

}  // namespace
