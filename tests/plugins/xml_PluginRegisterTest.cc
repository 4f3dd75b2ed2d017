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
    std::string Write(Spaces const& spaces, Names const& commands) {
        CommandParts parts;
        std::string body = "<commands>";
        for (auto const& path : commands) {
            parts.path = path;
            body += parts.Element();
        }
        body += "</commands><namespaces>";
        for (auto const& [path, description] : spaces)
            body += NamespaceElement(path, description);
        return files.Write("p.xml", Descriptor(body + "</namespaces>"));
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
    std::shared_ptr<XmlPlugin> plugin;
    std::shared_ptr<RootNamespace> root = RootNamespace::New(nullptr);
};

// Namespaces are registered before commands. Conflicts are found in the first pass and change
// nothing; a missing parent is found only in the second, and the entries before it stay.
TEST_F(XmlPluginRegisterTest, NamespacesFirstThenCommandsSharedTopLevelsConflictsMissingParents) {
    auto read = XmlPlugin::New(Write({{"b", "Bee"}, {"a", "Ay"}}, {"b.second", "a.first"}));
    read->Initialize();
    std::vector<std::string> order;
    for (auto const& [path, node] : read->GetPendingRegistrations())
        order.push_back(path + " " + std::to_string(node->GetType()) + " " +
                        node->GetDescription());
    EXPECT_EQ((Names{"b 1 Bee", "a 1 Ay", "b.second 2 Runs", "a.first 2 Runs"}), order);
    EXPECT_EQ("Xml Plugin doesn't not support formatters",
              ThrownMessage([&] { read->GetFormatter("table"); }));
    std::string const none = "<nothing thrown>";
    EXPECT_EQ(none, Register({{"system", "S"}, {"system", "S"}, {"system.disk", "Disks"}},
                             {"system.disk.list", "system.run"}));
    auto run = plugin->GetPendingRegistrations().back().second;
    EXPECT_EQ("system run", run->GetPathString(' '));
    EXPECT_EQ(none, Register({{"system", "S"}, {"system.net", "Networks"}}));
    EXPECT_EQ((Names{"disk", "net", "run"}), Children({"system"}));

    EXPECT_EQ("Duplicate top-level namespaces must have the same description: system",
              Register({{"other", "O"}, {"system", "Another"}}));
    EXPECT_EQ("Ostrel path is already registered: system.disk",
              Register({{"other", "O"}, {"system", "S"}, {"system.disk", "Disks"}}));
    EXPECT_EQ((Names{"system"}), Children({}));

    EXPECT_EQ("Unable to find a command or namespace with the name 'beta' in namespace ",
              Register({{"alpha", "A"}}, {"alpha.run", "beta.run", "alpha.late"}));
    EXPECT_EQ((Names{"alpha", "system"}), Children({}));
    EXPECT_EQ((Names{"run"}), Children({"alpha"}));

    // A descriptor shares the built-in namespace only by repeating its description word for word.
    EXPECT_EQ(
        "Commands that operate on the ostrel system itself allowing users to get additional "
        "information.",
        Dispatcher().GetRootNamespace()->GetNamespaceNode("ostrel")->GetDescription());
}

}  // namespace
