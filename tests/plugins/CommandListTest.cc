#include <gtest/gtest.h>

#include <tuple>

#include "support/tree/ScriptedCommand.h"
#include "tindra/autocli/tree/Dispatcher.h"

namespace Tindra::AutoCli {
namespace {

using Row = std::tuple<std::string, std::string, std::string>;  // Namespace, Command, Description
using Rows = std::vector<Row>;

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
            auto text = [&](char const* name) {
                return std::static_pointer_cast<MetaObj::MetaString>(row->GetField(name))
                    ->GetValue();
            };
            rows.emplace_back(text("Namespace"), text("Command"), text("Description"));
        }
        return rows;
    };
    Row const builtIn{"ostrel.command", "list", "List all of the ostrel commands."};
    Row const slice{"command", "slice", "Cuts a list."};
    Row const list{"demo.widget.item", "list", "Lists items."};
    Row const remove{"demo.widget.item", "delete", "Removes an item."};
    EXPECT_EQ(run({}), (Rows{slice, remove, list, builtIn}));
    EXPECT_EQ(run({{"command-filter", "li"}}), (Rows{slice, list, builtIn}));
    EXPECT_EQ(run({{"n", "command"}}), (Rows{slice, builtIn}));
    EXPECT_EQ(run({{"namespace-filter", "item.list"}}), Rows{});  // the parent path only
    EXPECT_EQ(run({{"d", "item"}, {"c", "e"}}), Rows{remove});
    root->SubNamespace("late")->RegisterNamespaceNode(Testing::ScriptedCommand::New(), "arrival");
    EXPECT_EQ(run({{"namespace-filter", "late"}}), (Rows{Row{"late", "arrival", ""}}));
}

}  // namespace
}  // namespace Tindra::AutoCli
