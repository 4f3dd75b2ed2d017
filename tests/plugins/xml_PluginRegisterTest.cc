// Hanging descriptor contents into the tree: the validation pass that keeps conflicts from
// changing anything, the shared top-level namespaces, and what the second pass leaves behind.
#include <gtest/gtest.h>

#include <list>
#include <string>
#include <vector>

#include "support/DescriptorFiles.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/plugins/XmlPlugin.h"
#include "tindra/autocli/tree/Dispatcher.h"
#include "tindra/autocli/tree/RootNamespace.h"

namespace {

using namespace DescriptorTest;
using Tindra::AutoCli::RootNamespace;
using Tindra::AutoCli::XmlPlugin;
using Names = std::vector<std::string>;

class XmlPluginRegisterTest : public ::testing::Test {
protected:
    // Registers a plug-in with the given namespaces (path, description) and command paths.
    std::string Register(std::vector<std::pair<std::string, std::string>> const& spaces,
                         Names const& commands = {}) {
        std::string body = "<namespaces>";
        for (auto const& [path, description] : spaces) {
            body += NamespaceElement(path, description);
        }
        body += "</namespaces><commands>";
        for (auto const& path : commands) {
            CommandParts parts;
            parts.path = path;
            body += parts.Element();
        }
        plugin = XmlPlugin::New(
            files.Write("p" + std::to_string(++count) + ".xml", Descriptor(body + "</commands>")));
        plugin->Initialize();
        return ThrownMessage([&] { plugin->RegisterNamespaces(root); });
    }
    Names Children(std::list<std::string> path) {
        return (path.empty() ? root->GetThis() : root->ResolveNode(path))->GetNamespaceNodeNames();
    }

    DescriptorFiles files;
    int count = 0;
    std::shared_ptr<XmlPlugin> plugin;
    std::shared_ptr<RootNamespace> root = RootNamespace::New(nullptr);
};

TEST_F(XmlPluginRegisterTest, ParentsFirstAndTopLevelNamespacesDescribedAlikeShared) {
    std::string const none = "<nothing thrown>";
    EXPECT_EQ(none, Register({{"system", "S"}, {"system", "S"}, {"system.disk", "Disks"}},
                             {"system.disk.list", "system.run"}));
    auto run = plugin->GetPendingRegistrations().back().second;
    EXPECT_EQ(run, root->GetNamespaceNode("system")->GetNamespaceNode("run"));
    EXPECT_EQ("system run", run->GetPathString(' '));
    auto const system = root->GetNamespaceNode("system");
    EXPECT_EQ(none, Register({{"system", "S"}, {"system.net", "Networks"}}));
    EXPECT_EQ(system, root->GetNamespaceNode("system"));
    EXPECT_EQ((Names{"disk", "net", "run"}), Children({"system"}));
    EXPECT_EQ((Names{"list"}), Children({"system", "disk"}));
}

TEST_F(XmlPluginRegisterTest, AConflictFoundInTheFirstPassChangesNothing) {
    Register({{"system", "S"}, {"system.disk", "Disks"}}, {"system.run"});
    EXPECT_EQ("Duplicate top-level namespaces must have the same description: system",
              Register({{"other", "O"}, {"system", "Another"}}));
    EXPECT_EQ("Ostrel path is already registered: system.disk",
              Register({{"other", "O"}, {"system", "S"}, {"system.disk", "Disks"}}));
    EXPECT_EQ("Ostrel path is already registered: system.run",
              Register({{"other", "O"}, {"system.run", "Run"}}));
    EXPECT_EQ((Names{"system"}), Children({}));
}

TEST_F(XmlPluginRegisterTest, AMissingParentFailsInTheSecondPassAndEarlierEntriesStay) {
    EXPECT_EQ("Unable to find a command or namespace with the name 'beta' in namespace ",
              Register({{"alpha", "A"}}, {"alpha.run", "beta.run", "alpha.late"}));
    EXPECT_EQ((Names{"alpha"}), Children({}));
    EXPECT_EQ((Names{"run"}), Children({"alpha"}));
}

TEST(XmlPluginDispatcherTest, TheBuiltInNamespaceIsSharedWhenDescribedAlike) {
    DescriptorFiles files;
    Tindra::AutoCli::Dispatcher dispatcher;
    dispatcher.AddPlugin(files.Write(
        "alike.xml", Descriptor("<namespaces>" +
                                NamespaceElement("ostrel",
                                                 "Commands that operate on the ostrel system "
                                                 "itself allowing users to get additional "
                                                 "information.") +
                                NamespaceElement("ostrel.extra", "More") + "</namespaces>")));
    std::list<std::string> path = {"ostrel"};
    EXPECT_EQ((Names{"command", "extra"}),
              dispatcher.GetRootNamespace()->ResolveNode(path)->GetNamespaceNodeNames());
}

}  // namespace
