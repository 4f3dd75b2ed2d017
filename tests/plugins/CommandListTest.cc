#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/tree/ScriptedCommand.h"
#include "tindra/autocli/tree/Dispatcher.h"

namespace Tindra::AutoCli {
namespace {

using Rows = std::vector<std::string>;  // Namespace Command Description

// Case sensitivity is checked end to end.
TEST(CommandListTest, EveryCommandDepthFirstUnderItsParentPathFilteredBySubstrings) {
    Dispatcher dispatcher;
    auto root = dispatcher.GetRootNamespace();
    auto item = root->SubNamespace("demo")->SubNamespace("widget")->SubNamespace("item");
    item->RegisterNamespaceNode(Testing::ScriptedCommand::New("Lists items."), "list");
    item->RegisterNamespaceNode(Testing::ScriptedCommand::New("Removes an item."), "delete");
    root->SubNamespace("command")->RegisterNamespaceNode(
        Testing::ScriptedCommand::New("Cuts a list."), "slice");
    auto const run = [&](std::map<std::string, std::string> const& filters) {
        auto input = CommandInput::New();
        input->SetCommandPath({"ostrel", "command", "list"});
        for (auto const& [name, value] : filters)
            input->AddParameter(name, value);
        auto output = CommandOutput::New();
        EXPECT_TRUE(dispatcher.ExecuteCommand(input, output));
        Rows rows;
        for (auto const& item :
             std::static_pointer_cast<MetaObj::MetaList>(output->GetRootObject())->GetObjects()) {
            auto row = std::static_pointer_cast<MetaObj::MetaStruct>(item);
            rows.push_back(row->GetField("Namespace")->ToString() + " " +
                           row->GetField("Command")->ToString() + " " +
                           row->GetField("Description")->ToString());
        }
        return rows;
    };
    std::string const remove = "demo.widget.item delete Removes an item.";
    EXPECT_EQ(run({}),
              (Rows{"command slice Cuts a list.", remove, "demo.widget.item list Lists items.",
                    "ostrel.command list List all of the ostrel commands."}));
    EXPECT_EQ(run({{"d", "item"}, {"c", "e"}}), Rows{remove});
    root->SubNamespace("late")->RegisterNamespaceNode(Testing::ScriptedCommand::New(), "arrival");
    EXPECT_EQ(run({{"namespace-filter", "late"}}), Rows{"late arrival "});
}

}  // namespace
}  // namespace Tindra::AutoCli
