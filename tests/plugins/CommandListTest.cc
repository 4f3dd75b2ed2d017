#include <gtest/gtest.h>

#include <tuple>

#include "support/tree/ScriptedCommand.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/plugins/CommandList.h"
#include "tindra/autocli/plugins/InternalPlugin.h"
#include "tindra/autocli/tree/Dispatcher.h"

namespace Tindra::AutoCli {
namespace {

using Row = std::tuple<std::string, std::string, std::string>;  // Namespace, Command, Description
using Rows = std::vector<Row>;

Row const kBuiltIn{"ostrel.command", "list", "List all of the ostrel commands."};

// Its namespaces, descriptions and default format are checked end to end.
TEST(InternalPluginTest, SixFormattersInOrderAndTheCommandList) {
    auto plugin = InternalPlugin::New();
    plugin->Initialize();
    std::vector<std::string> names;
    for (auto const& formatter : plugin->GetFormatters()) {
        names.push_back(formatter->GetName());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"table", "simple", "xml", "python", "json",
                                               "commandhelp"}));
    EXPECT_EQ(plugin->GetFormatter("json"), plugin->GetFormatters()[4]);

    auto root = RootNamespace::New(nullptr);
    plugin->RegisterNamespaces(root);
    auto list = std::dynamic_pointer_cast<CommandList>(
        root->GetNamespaceNode("ostrel")->GetNamespaceNode("command")->GetNamespaceNode("list"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->GetMetaDataField("type"), "fetcher");
    EXPECT_THROW(plugin->RegisterNamespaces(root), TindraException);
}

class CommandListTest : public ::testing::Test {
protected:
    void SetUp() override {
        auto root = dispatcher.GetRootNamespace();
        auto item = root->SubNamespace("demo")->SubNamespace("widget")->SubNamespace("item");
        item->RegisterNamespaceNode(Testing::ScriptedCommand::New("Lists items."), "list");
        item->RegisterNamespaceNode(Testing::ScriptedCommand::New("Removes an item."), "delete");
        root->SubNamespace("command")->RegisterNamespaceNode(
            Testing::ScriptedCommand::New("Cuts a list."), "slice");
    }

    Rows Run(std::map<std::string, std::string> const& filters) {
        auto input = CommandInput::New();
        input->SetCommandPath({"ostrel", "command", "list"});
        for (auto const& filter : filters) {
            input->AddParameter(filter.first, filter.second);
        }
        auto output = CommandOutput::New();
        EXPECT_TRUE(dispatcher.ExecuteCommand(input, output));
        Rows rows;
        auto list = std::static_pointer_cast<MetaObj::MetaList>(output->GetRootObject());
        for (auto const& item : list->GetObjects()) {
            auto row = std::static_pointer_cast<MetaObj::MetaStruct>(item);
            rows.emplace_back(Text(row, "Namespace"), Text(row, "Command"),
                              Text(row, "Description"));
        }
        return rows;
    }

    static std::string Text(std::shared_ptr<MetaObj::MetaStruct> const& row, char const* name) {
        return std::static_pointer_cast<MetaObj::MetaString>(row->GetField(name))->GetValue();
    }

    Dispatcher dispatcher;
};

TEST_F(CommandListTest, ListsEveryCommandDepthFirstUnderItsParentPath) {
    EXPECT_EQ(Run({}), (Rows{Row{"command", "slice", "Cuts a list."},
                             Row{"demo.widget.item", "delete", "Removes an item."},
                             Row{"demo.widget.item", "list", "Lists items."}, kBuiltIn}));
    dispatcher.GetRootNamespace()->SubNamespace("late")->RegisterNamespaceNode(
        Testing::ScriptedCommand::New(), "arrival");
    EXPECT_EQ(Run({{"namespace-filter", "late"}}), (Rows{Row{"late", "arrival", ""}}));
}

// Case sensitivity is checked end to end.
TEST_F(CommandListTest, FiltersAreSubstringsOfEachColumn) {
    EXPECT_EQ(Run({{"command-filter", "li"}}),
              (Rows{Row{"command", "slice", "Cuts a list."},
                    Row{"demo.widget.item", "list", "Lists items."}, kBuiltIn}));
    EXPECT_EQ(Run({{"n", "command"}}), (Rows{Row{"command", "slice", "Cuts a list."}, kBuiltIn}));
    EXPECT_EQ(Run({{"namespace-filter", "item.list"}}), Rows{});  // the parent path only
    EXPECT_EQ(Run({{"d", "item"}, {"c", "e"}}),
              (Rows{Row{"demo.widget.item", "delete", "Removes an item."}}));
}

}  // namespace
}  // namespace Tindra::AutoCli
