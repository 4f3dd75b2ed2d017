// From a descriptor file into the tree: the order of the pending registrations, the validation
// pass that keeps conflicts from changing anything, the shared top-level namespaces, and what
// the second pass leaves behind.
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
using namespace Tindra::AutoCli;
using Names = std::vector<std::string>;
using Spaces = std::vector<std::pair<std::string, std::string>>;  // path, description

class XmlPluginRegisterTest : public ::testing::Test {
protected:
    // A descriptor file with commands first in the document, then namespaces.
    std::string Write(Spaces const& spaces, Names const& commands, CommandParts parts = {}) {
        std::string body = "<commands>";
        for (auto const& path : commands) {
            parts.path = path;
            body += parts.Element();
        }
        body += "</commands><namespaces>";
        for (auto const& [path, description] : spaces)
            body += NamespaceElement(path, description);
        return files.Write("p" + std::to_string(++count) + ".xml",
                           Descriptor(body + "</namespaces>"));
    }
    std::string Register(Spaces const& spaces, Names const& commands = {}) {
        plugin = XmlPlugin::New(Write(spaces, commands));
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

TEST_F(XmlPluginRegisterTest, NamespacesFirstThenCommandsAndAFailedFileKeepsNothing) {
    auto read = XmlPlugin::New(Write({{"b", "Bee"}, {"a", "Ay"}}, {"b.second", "a.first"}));
    read->Initialize();
    std::vector<std::string> order;
    for (auto const& [path, node] : read->GetPendingRegistrations())
        order.push_back(path + " " + std::to_string(node->GetType()) + " " +
                        node->GetDescription());
    EXPECT_EQ((Names{"b 1 Bee", "a 1 Ay", "b.second 2 Runs", "a.first 2 Runs"}), order);
    EXPECT_EQ("Xml Plugin doesn't not support formatters",
              ThrownMessage([&] { read->GetFormatter("table"); }));
    CommandParts broken;
    broken.execute = "";
    auto failed = XmlPlugin::New(Write({{"demo", "Demo"}}, {"demo.run"}, broken));
    EXPECT_NE("<nothing thrown>", ThrownMessage([&] { failed->Initialize(); }));
    EXPECT_TRUE(failed->GetPendingRegistrations().empty());
}

// Conflicts are found in the first pass and change nothing; a missing parent is found only in
// the second, and the entries before it stay.
TEST_F(XmlPluginRegisterTest, SharedTopLevelNamespacesConflictsAndMissingParents) {
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

    EXPECT_EQ("Duplicate top-level namespaces must have the same description: system",
              Register({{"other", "O"}, {"system", "Another"}}));
    EXPECT_EQ("Ostrel path is already registered: system.disk",
              Register({{"other", "O"}, {"system", "S"}, {"system.disk", "Disks"}}));
    EXPECT_EQ("Ostrel path is already registered: system.run",
              Register({{"other", "O"}, {"system.run", "Run"}}));
    EXPECT_EQ((Names{"system"}), Children({}));

    EXPECT_EQ("Unable to find a command or namespace with the name 'beta' in namespace ",
              Register({{"alpha", "A"}}, {"alpha.run", "beta.run", "alpha.late"}));
    EXPECT_EQ((Names{"alpha", "system"}), Children({}));
    EXPECT_EQ((Names{"run"}), Children({"alpha"}));

    // The built-in namespace is shared too when described word for word.
    Dispatcher dispatcher;
    dispatcher.AddPlugin(Write({{"ostrel",
                                 "Commands that operate on the ostrel system itself "
                                 "allowing users to get additional information."},
                                {"ostrel.extra", "More"}},
                               {}));
    std::list<std::string> path = {"ostrel"};
    EXPECT_EQ((Names{"command", "extra"}),
              dispatcher.GetRootNamespace()->ResolveNode(path)->GetNamespaceNodeNames());
}

}  // namespace
