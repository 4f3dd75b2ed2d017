#include <gtest/gtest.h>

#include "support/ShortStrings.h"
#include "support/ThrownMessage.h"
#include "support/tree/ScriptedCommand.h"
#include "tindra/autocli/tree/RootNamespace.h"

namespace Tindra::AutoCli {
namespace {

using Testing::ScriptedCommand;
using Words = std::list<std::string>;
using Names = std::vector<std::string>;

// root -> demo -> widget -> list (a command)
class TreeTest : public ::testing::Test {
protected:
    void SetUp() override {
        demo = root->SubNamespace("demo");
        widget = demo->SubNamespace("widget");
        widget->RegisterNamespaceNode(list, "list");
    }

    Dispatcher* const owner = reinterpret_cast<Dispatcher*>(0x10);  // only compared
    std::shared_ptr<RootNamespace> root = RootNamespace::New(owner);
    std::shared_ptr<NamespaceNode> demo, widget;
    std::shared_ptr<ScriptedCommand> list = ScriptedCommand::New();
};

TEST(NameRuleTest, AcceptsExactlyThePatternLanguage) {
    EXPECT_EQ(Names(),
              Testing::DisagreementsWith("([a-z0-9]+[A-Z0-9]{0,1})+", AutoCli_IsValidName));
}

TEST_F(TreeTest, RefusedRegistrationsChangeNothing) {
    EXPECT_EQ(ThrownMessage([&] { root->RegisterNamespaceNode(Namespace::New(), "itemVV"); }),
              "Invalid name for namespace 'itemVV', must be a name consisting of letters and "
              "numbers and must conform to 'camel' casing.");
    EXPECT_EQ(ThrownMessage([&] { root->RegisterNamespaceNode(Namespace::New(), "demo"); }),
              "Duplicate registration in namespace  attempt to register two objects with name "
              "demo");
    EXPECT_EQ(ThrownMessage([&] { widget->RegisterNamespaceNode(nullptr, "other"); }),
              "Null namespace node named 'other' passed to namespace demo widget");
    EXPECT_EQ(ThrownMessage([&] { demo->RegisterNamespaceNode(RootNamespace::New(owner), "x"); }),
              "Error, Root namespace cannot be assigned a parent node");
    EXPECT_EQ(root->GetNamespaceNodeNames(), Names{"demo"});
    EXPECT_EQ(demo->GetNamespaceNodeNames(), Names{"widget"});
}

TEST_F(TreeTest, ChildrenInByteOrderAndResolutionLeavesThePathAsItWas) {
    for (char const* name : {"zeta", "b2", "a", "aB", "a1"}) {
        widget->RegisterNamespaceNode(Namespace::New(), name);
    }
    EXPECT_EQ(widget->GetNamespaceNodeNames(), (Names{"a", "a1", "aB", "b2", "list", "zeta"}));
    EXPECT_EQ(root->SubNamespace("demo"), demo);
    EXPECT_EQ(widget->SubNamespace("list"), list);
    Words path{"demo", "widget", "list"};
    EXPECT_EQ(root->ResolveNode(path), list);
    EXPECT_EQ(path, (Words{"demo", "widget", "list"}));
    path.clear();
    EXPECT_EQ(root->ResolveNode(path), nullptr);
    EXPECT_EQ(list->GetPathString('.'), "demo.widget.list");
    EXPECT_EQ(root->GetPathString(' '), "");
    EXPECT_EQ(list->GetDispatcher(), owner);
}

TEST_F(TreeTest, CommandsRefuseChildren) {
    std::string const tail = "'. Commands cannot have sub-commands or sub-namespaces.";
    Words path = {"demo", "widget", "list", "extra", "more"};
    EXPECT_EQ(ThrownMessage([&] { root->ResolveNode(path); }),
              "Unable to find a namespace or command with the name 'extra more' on the command "
              "'demo widget list" +
                  tail);
    EXPECT_FALSE(list->HasNamespaceNode("child"));
    std::string const refusal =
        "Attempt to register a command or namespace 'child' on command 'demo widget list" + tail;
    EXPECT_EQ(ThrownMessage([&] { list->RegisterNamespaceNode(Namespace::New(), "child"); }),
              refusal);
    EXPECT_EQ(ThrownMessage([&] { list->SubNamespace("child"); }), refusal);
}

TEST(DetachedNodeTest, ReportsTheMissingParent) {
    auto detached = Namespace::New();
    EXPECT_EQ(ThrownMessage([&] { detached->GetDispatcher(); }),
              "Invalid state for namespace 'no parent has been set while attempting to get "
              "dispathcer reference.");
    EXPECT_EQ(ThrownMessage([&] { detached->GetPathString(' '); }),
              "GetPathString: Invalid state for Namespace Node with the name '' No parent node "
              "has been set");
    auto command = ScriptedCommand::New();
    command->SetName("orphan");
    EXPECT_EQ(ThrownMessage([&] { command->GetPath(); }),
              "GetPath: Invalid state for Namespace Node with the name 'orphan' No parent node "
              "has been set");
    EXPECT_EQ(ThrownMessage([&] { command->GetDispatcher(); }),
              "Invalid state for command with name 'orphan'. No parent node has been set.");
    Namespace::New()->RegisterNamespaceNode(command, "orphan");
    EXPECT_EQ(command->GetParent(), nullptr);  // a parent that is gone reads as none
    Namespace unowned;
    EXPECT_THROW(unowned.GetThis(), std::bad_weak_ptr);
}

}  // namespace
}  // namespace Tindra::AutoCli
