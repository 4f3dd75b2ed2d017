#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/formatters/TableFormatter.h"

namespace FormatterTest {
namespace {

std::string Table(std::shared_ptr<MetaObject> const& root, FormatParameters params,
                  uint16_t width = 0, bool* result = nullptr) {
    TableFormatter formatter;
    return Render(formatter, root, std::move(params), width, result);
}

std::shared_ptr<MetaList> Entries(char const* description) {
    auto entry = [](char const* name, char const* text) {
        auto node = MetaStruct::New("Entry");
        node->SetField("Name", name);
        node->SetField("Description", text);
        return node;
    };
    auto list = MetaList::New(MetaType::Struct, entry("", ""));
    list->Add(entry("a", description));
    return list;
}

TEST(TableFormatter, DiskExample) {
    bool result = false;
    EXPECT_EQ(Table(Disks(), Params({{"fields:Disk", "Name,Size,Model"}}), 0, &result),
              "Name     Size  Model\n"
              "-------  ----  -----\n"
              "sda       512  Fast disk\n"
              "nvme0n1  2048  NV\n");
    EXPECT_TRUE(result);
}

TEST(TableFormatter, HeaderSwitches) {
    auto const rows = "sda       512  Fast disk\nnvme0n1  2048  NV\n";
    auto const columns = std::make_pair("fields", "Name,Size,Model");
    EXPECT_EQ(Table(Disks(), Params({columns, {"show-header", "false"}})), rows);
    EXPECT_EQ(Table(Disks(), Params({columns, {"table-header", "false"}})), rows);
    EXPECT_EQ(Table(Disks(), Params({columns, {"show-header", "true"}, {"table-header", "false"}})),
              std::string("Name     Size  Model\n-------  ----  -----\n") + rows);
    EXPECT_EQ(Table(Disks(), Params({columns, {"header-line", "false"}})),
              std::string("Name     Size  Model\n") + rows);
    EXPECT_EQ(Table(Disks(false), Params({columns})), "Name  Size  Model\n----  ----  -----\n");
}

TEST(TableFormatter, ColumnChoiceTrimmingAndFieldFormats) {
    // Without a column list the fields come in name order; an integer ends with two blanks.
    EXPECT_EQ(Table(Disks(), Params({{"show-header", "false"}, {"table-columns", "Name"}})),
              "sda\nnvme0n1\n");
    EXPECT_EQ(Table(Disks(), Params({{"show-header", "false"}})),
              "Fast disk  sda       512  \nNV         nvme0n1  2048  \n");
    EXPECT_EQ(Table(Disks(), Params({{"fields", " Name ,\tSize"},
                                     {"printf:Disk.Size", "%06ld"},
                                     {"units:Disk.Size", "kB"}})),
              "Name     Size\n"
              "-------  ----\n"
              "sda      000512 kB  \n"
              "nvme0n1  002048 kB  \n");
}

TEST(TableFormatter, WrapsLastColumnUnderItsStart) {
    auto const params =
        Params({{"show-header", "false"}, {"fields", "Name,Description"}, {"wrap-last", "true"}});
    EXPECT_EQ(Table(Entries("one two three four five six"), params, 20),
              "a     one two three \n      four five six\n");
    EXPECT_EQ(Table(Entries("first\nsecond line"), params, 20), "a     first\n      second line\n");
    // Too narrow for the other columns and the last column's name, or width unknown: no wrap.
    EXPECT_EQ(Table(Entries("one two three four five six"), params, 16),
              "a     one two three four five six\n");
    EXPECT_EQ(Table(Entries("one two three four five six"), params, 0),
              "a     one two three four five six\n");
}

TEST(TableFormatter, ErrorsPrintOnlyTheirMessage) {
    bool result = true;
    EXPECT_EQ(Table(Disks(), Params({{"fields", "Name,Nope"}}), 0, &result),
              "Error: Unknown field in field list: Nope\n");
    EXPECT_FALSE(result);
    EXPECT_EQ(Table(MetaList::New(MetaType::Struct, std::shared_ptr<MetaStruct>()), Params({})),
              "");
    EXPECT_EQ(Table(Disks(), Params({{"fields", ""}})), "\n\n");
    for (std::shared_ptr<MetaObject> root :
         {std::shared_ptr<MetaObject>(MetaInt::New(1)),
          std::shared_ptr<MetaObject>(MetaList::New(MetaType::Int)),
          std::shared_ptr<MetaObject>()}) {
        EXPECT_EQ(
            ThrownMessage([&root] { Table(root, Params({})); }),
            "Error: Unexpected type for output, formatter, table, expected a List of structs");
    }
}

}  // namespace
}  // namespace FormatterTest
