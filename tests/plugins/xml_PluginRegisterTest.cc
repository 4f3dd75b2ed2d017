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

using DescriptorTest::CommandParts;
using DescriptorTest::Descriptor;
using DescriptorTest::DescriptorFiles;
using DescriptorTest::NamespaceElement;
using Tindra::AutoCli::RootNamespace;
using Tindra::AutoCli::XmlPlugin;

std::string Command(std::string const& path) {
    CommandParts parts;
    parts.path = path;
    return parts.Element();
}

class XmlPluginRegisterTest : public ::testing::Test {
protected:
    // A read plug-in with the given namespaces (path, description) and command paths.
    std::shared_ptr<XmlPlugin> Plugin(std::vector<std::pair<std::string, std::string>> spaces,
                                      std::vector<std::string> const& commands = {}) {
        std::string body = "<namespaces>";
        for (auto const& [path, description] : spaces) {
            body += NamespaceElement(path, description);
        }
        body += "</namespaces><commands>";
        for (auto const& path : commands) {
            body += Command(path);
        }
        body += "</commands>";
        auto plugin =
            XmlPlugin::New(files.Write("p" + std::to_string(++count) + ".xml", Descriptor(body)));
        plugin->Initialize();
        return plugin;
    }

    std::string RegisterError(std::shared_ptr<XmlPlugin> const& plugin) {
        return ThrownMessage([&] { plugin->RegisterNamespaces(root); });
    }

    std::vector<std::string> Children(std::list<std::string> path) {
        auto node = path.empty() ? root->GetThis() : root->ResolveNode(path);
        return node->GetNamespaceNodeNames();
    }

    DescriptorFiles files;
    int count = 0;
    std::shared_ptr<RootNamespace> root = RootNamespace::New(nullptr);
};

TEST_F(XmlPluginRegisterTest, ContentsOfOneFileAreRegisteredParentsFirst) {
    auto plugin =
        Plugin({{"demo", "Demo"}, {"demo.widget", "Widgets"}}, {"demo.widget.list", "demo.run"});
    plugin->RegisterNamespaces(root);
    std::list<std::string> path = {"demo", "widget", "list"};
    auto command = root->ResolveNode(path);
    ASSERT_TRUE(command);
    EXPECT_EQ(plugin->GetPendingRegistrations()[2].second, command);
    EXPECT_EQ("demo widget list", command->GetPathString(' '));
    EXPECT_EQ((std::vector<std::string>{"run", "widget"}), Children({"demo"}));
    EXPECT_EQ("Widgets", root->ResolveNode(path = {"demo", "widget"})->GetDescription());
}

TEST_F(XmlPluginRegisterTest, ATopLevelNamespaceDescribedAlikeIsShared) {
    auto first = Plugin({{"system", "The system"}, {"system.disk", "Disks"}});
    auto second =
        Plugin({{"system", "The system"}, {"system.net", "Networks"}}, {"system.net.list"});
    first->RegisterNamespaces(root);
    second->RegisterNamespaces(root);
    EXPECT_EQ((std::vector<std::string>{"system"}), Children({}));
    EXPECT_EQ(first->GetPendingRegistrations()[0].second, root->GetNamespaceNode("system"));
    EXPECT_EQ((std::vector<std::string>{"disk", "net"}), Children({"system"}));
    EXPECT_EQ((std::vector<std::string>{"list"}), Children({"system", "net"}));
}

TEST_F(XmlPluginRegisterTest, ATopLevelNamespaceDeclaredTwiceInOneFileIsRegisteredOnce) {
    Plugin({{"system", "S"}, {"system", "S"}, {"system.disk", "D"}})->RegisterNamespaces(root);
    EXPECT_EQ((std::vector<std::string>{"disk"}), Children({"system"}));
}

TEST_F(XmlPluginRegisterTest, AConflictFoundInTheFirstPassChangesNothing) {
    Plugin({{"system", "The system"}, {"system.disk", "Disks"}}, {"system.disk.list"})
        ->RegisterNamespaces(root);
    EXPECT_EQ("Duplicate top-level namespaces must have the same description: system",
              RegisterError(Plugin({{"other", "O"}, {"system", "Another system"}})));
    EXPECT_EQ("Ostrel path is already registered: system.disk",
              RegisterError(
                  Plugin({{"other", "O"}, {"system", "The system"}, {"system.disk", "Disks"}})));
    EXPECT_EQ("Ostrel path is already registered: system.disk.list",
              RegisterError(Plugin({{"other", "O"}}, {"system.disk.list"})));
    EXPECT_EQ((std::vector<std::string>{"system"}), Children({}));
}

TEST_F(XmlPluginRegisterTest, NamespacesAndCommandsNeverShareAName) {
    Plugin({}, {"run"})->RegisterNamespaces(root);
    Plugin({{"tools", "Tools"}})->RegisterNamespaces(root);
    EXPECT_EQ("Ostrel path is already registered: run", RegisterError(Plugin({{"run", "Run"}})));
    EXPECT_EQ("Ostrel path is already registered: tools", RegisterError(Plugin({}, {"tools"})));
}

TEST_F(XmlPluginRegisterTest, AMissingParentFailsInTheSecondPassAndEarlierEntriesStay) {
    EXPECT_EQ("Unable to find a command or namespace with the name 'beta' in namespace ",
              RegisterError(Plugin({{"alpha", "A"}}, {"alpha.run", "beta.run", "alpha.late"})));
    EXPECT_EQ((std::vector<std::string>{"alpha"}), Children({}));
    EXPECT_EQ((std::vector<std::string>{"run"}), Children({"alpha"}));
    EXPECT_EQ("Unable to find a command or namespace with the name 'gamma' in namespace alpha",
              RegisterError(Plugin({}, {"alpha.gamma.run"})));
}

TEST_F(XmlPluginRegisterTest, TreeErrorsOfTheSecondPassPassThrough) {
    EXPECT_EQ(
        "Invalid name for namespace 'Bad', must be a name consisting of letters and "
        "numbers and must conform to 'camel' casing.",
        RegisterError(Plugin({{"good", "G"}, {"good.Bad", "B"}})));
    EXPECT_EQ((std::vector<std::string>{"good"}), Children({}));
    EXPECT_TRUE(Children({"good"}).empty());
    EXPECT_EQ(
        "Duplicate registration in namespace fresh attempt to register two objects with "
        "name run",
        RegisterError(Plugin({{"fresh", "F"}}, {"fresh.run", "fresh.run"})));
    EXPECT_EQ(
        "Invalid name for namespace '', must be a name consisting of letters and numbers "
        "and must conform to 'camel' casing.",
        RegisterError(Plugin({{".", "Dot"}})));
}

TEST_F(XmlPluginRegisterTest, APathThroughACommandIsRefusedByTheCommand) {
    Plugin({{"demo", "Demo"}}, {"demo.run"})->RegisterNamespaces(root);
    EXPECT_EQ(
        "Unable to find a namespace or command with the name 'sub' on the command 'demo "
        "run'. Commands cannot have sub-commands or sub-namespaces.",
        RegisterError(Plugin({{"demo.run.sub", "Sub"}})));
}

TEST(XmlPluginDispatcherTest, TheBuiltInNamespaceIsSharedOnlyWhenDescribedAlike) {
    DescriptorFiles files;
    std::string const builtIn =
        "Commands that operate on the ostrel system itself allowing users to get additional "
        "information.";
    Tindra::AutoCli::Dispatcher dispatcher;
    std::string const alike = files.Write(
        "alike.xml", Descriptor("<namespaces>" + NamespaceElement("ostrel", builtIn) +
                                NamespaceElement("ostrel.extra", "More") + "</namespaces>"));
    dispatcher.AddPlugin(alike);
    std::list<std::string> path = {"ostrel"};
    EXPECT_EQ((std::vector<std::string>{"command", "extra"}),
              dispatcher.GetRootNamespace()->ResolveNode(path)->GetNamespaceNodeNames());
    std::string const unlike = files.Write(
        "unlike.xml",
        Descriptor("<namespaces>" + NamespaceElement("ostrel", "Mine") + "</namespaces>"));
    EXPECT_EQ("Error while trying to register the plugin " + unlike +
                  " Duplicate top-level namespaces must have the same description: ostrel The "
                  "functionality in " +
                  unlike + " will not be available until this issue is resolved.",
              ThrownMessage([&] { dispatcher.AddPlugin(unlike); }));
    EXPECT_EQ((std::vector<std::string>{"Internal", alike}), dispatcher.GetPluginNames());
}

}  // namespace
