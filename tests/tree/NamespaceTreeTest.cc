#include <gtest/gtest.h>

#include <functional>

#include "support/ShortStrings.h"
#include "support/ThrownMessage.h"
#include "support/tree/ScriptedCommand.h"
#include "tindra/autocli/tree/RootNamespace.h"

namespace Tindra::AutoCli {
namespace {

using Words = std::list<std::string>;
using Names = std::vector<std::string>;

// Children in byte order; resolution leaves the path as it was; refused registrations change
// nothing; a command has no children; a node outside a tree has no path and no dispatcher.
TEST(NamespaceTreeTest, GrowsResolvesAndRefusesWhatDoesNotFit) {
    Dispatcher* const owner = reinterpret_cast<Dispatcher*>(0x10);  // only compared
    auto root = RootNamespace::New(owner);
    auto demo = root->SubNamespace("demo");
    auto widget = demo->SubNamespace("widget");
    auto list = Testing::ScriptedCommand::New();
    widget->RegisterNamespaceNode(list, "list");
    for (char const* name : {"zeta", "b2", "a", "aB", "a1"})
        widget->RegisterNamespaceNode(Namespace::New(), name);
    EXPECT_EQ(widget->GetNamespaceNodeNames(), (Names{"a", "a1", "aB", "b2", "list", "zeta"}));
    EXPECT_EQ(Names(),
              Testing::DisagreementsWith("([a-z0-9]+[A-Z0-9]{0,1})+", AutoCli_IsValidName));
    EXPECT_EQ(root->SubNamespace("demo"), demo);
    Words path{"demo", "widget", "list"};
    EXPECT_EQ(root->ResolveNode(path), list);
    EXPECT_EQ(path, (Words{"demo", "widget", "list"}));
    EXPECT_EQ(list->GetPathString('.'), "demo.widget.list");
    EXPECT_EQ(list->GetDispatcher(), owner);

    auto orphan = Testing::ScriptedCommand::New();
    Namespace::New()->RegisterNamespaceNode(orphan, "orphan");
    Words deep{"demo", "widget", "list", "extra", "more"};
    std::string const leaf =
        "demo widget list'. Commands cannot have sub-commands or sub-namespaces.";
    std::string const parentless = "Invalid state for Namespace Node with the name '";
    std::vector<std::pair<std::function<void()>, std::string>> const rows = {
        {[&] { root->RegisterNamespaceNode(Namespace::New(), "itemVV"); },
         "Invalid name for namespace 'itemVV', must be a name consisting of letters and numbers "
         "and must conform to 'camel' casing."},
        {[&] { root->RegisterNamespaceNode(Namespace::New(), "demo"); },
         "Duplicate registration in namespace  attempt to register two objects with name demo"},
        {[&] { widget->RegisterNamespaceNode(nullptr, "other"); },
         "Null namespace node named 'other' passed to namespace demo widget"},
        {[&] { demo->RegisterNamespaceNode(RootNamespace::New(owner), "x"); },
         "Error, Root namespace cannot be assigned a parent node"},
        {[&] { root->ResolveNode(deep); },
         "Unable to find a namespace or command with the name 'extra more' on the command '" +
             leaf},
        {[&] { list->SubNamespace("child"); },
         "Attempt to register a command or namespace 'child' on command '" + leaf},
        {[] { Namespace::New()->GetDispatcher(); },
         "Invalid state for namespace 'no parent has been set while attempting to get "
         "dispathcer reference."},
        {[] { Namespace::New()->GetPathString(' '); },
         "GetPathString: " + parentless + "' No parent node has been set"},
        {[&] { orphan->GetPath(); },
         "GetPath: " + parentless + "orphan' No parent node has been set"},
        {[&] { orphan->GetDispatcher(); },
         "Invalid state for command with name 'orphan'. No parent node has been set."},
    };
    for (auto const& [call, message] : rows)
        EXPECT_EQ(ThrownMessage(call), message);
    EXPECT_EQ(root->GetNamespaceNodeNames(), Names{"demo"});
    EXPECT_EQ(demo->GetNamespaceNodeNames(), Names{"widget"});
}

}  // namespace
}  // namespace Tindra::AutoCli
