// The bundled descriptors load, and no command leaves a placeholder in its command line or
// standard input when called without options, which the engine itself only finds out when a
// user runs it so: an optional value outside its own $if section reaches the helper as a literal.
#include <gtest/gtest.h>

#include <boost/regex.hpp>
#include <filesystem>
#include <string>

#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/tree/Dispatcher.h"

namespace {

using namespace Tindra::AutoCli;

size_t ExpectNoPlaceholderLeft(std::shared_ptr<NamespaceNode> const& node) {
    static boost::regex const placeholder("\\$(val|if|list|multilist)\\{");
    size_t commands = 0;
    for (auto const& child : node->GetNamespaceNodes()) {
        auto command = std::dynamic_pointer_cast<ExtensionCommand>(child);
        if (!command) {
            commands += ExpectNoPlaceholderLeft(child);
            continue;
        }
        auto input = Tindra::CallSpec::Input::New();
        input->SetInputSpec(command->GetInputSpec());
        for (bool forStdin : {false, true}) {
            std::string const filled = command->SubstituteInput(input, forStdin);
            EXPECT_FALSE(boost::regex_search(filled, placeholder)) << filled;
        }
        ++commands;
    }
    return commands;
}

// The installed copies differ only in the helpers' directory; the install tests run them.
TEST(BundledDescriptorTest, LoadAndCallsWithoutOptionsLeaveNoPlaceholder) {
    std::error_code absent;
    Dispatcher dispatcher;
    size_t files = 0;
    for (auto const& entry : std::filesystem::directory_iterator(
             TINDRA_TEST_BINARY_DIR "/../plugins/bundled", absent)) {
        EXPECT_NO_THROW(dispatcher.AddPlugin(entry.path().string())) << entry.path();
        ++files;
    }
    if (files == 0)
        GTEST_SKIP() << "bundled plug-ins not configured in this build";
    EXPECT_EQ(files + 1, dispatcher.GetPluginNames().size());
    EXPECT_LT(0u, ExpectNoPlaceholderLeft(dispatcher.GetRootNamespace()));
}

}  // namespace
