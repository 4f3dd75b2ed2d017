#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/formatters/SimpleFormatter.h"
#include "tindra/autocli/formatters/TableFormatter.h"

namespace FormatterTest {
namespace {

std::shared_ptr<MetaStruct> Adapter(char const* name, long speed) {
    auto adapter = MetaStruct::New("Adapter");
    adapter->SetField("Name", name);
    adapter->SetField("Speed", speed);
    return adapter;
}

std::string Simple(std::shared_ptr<MetaObject> const& root, FormatParameters params = {}) {
    return Render<SimpleFormatter>(root, params);
}

TEST(SimpleFormatter, AdapterExample) {
    auto adapters = MetaList::New(MetaType::Struct, Adapter("", 0));
    adapters->Add(Adapter("eth0", 1000));
    adapters->Add(Adapter("eth1", 100));
    EXPECT_EQ(Simple(adapters, Params({{"fields:Adapter", "Name,Speed"},
                                       {"units:Adapter.Speed", "Mbps"},
                                       {"align-fields", "true"}})),
              "\nAdapter:\n   Name : eth0\n   Speed: 1000 Mbps\n"
              "\nAdapter:\n   Name : eth1\n   Speed: 100 Mbps\n\n");
    EXPECT_EQ(
        Simple(adapters, Params({{"align-fields", "yes"}})),
        "\nAdapter:\n   Name: eth0\n   Speed: 1000\n\nAdapter:\n   Name: eth1\n   Speed: 100\n\n");
}

TEST(SimpleFormatter, NestedValuesIndentByLevel) {
    auto host = MetaStruct::New("Host");
    host->SetField("Disk", Disk("sda", 512, "Fast disk"));
    auto disks = Disks(false);
    disks->Add(Disk("nvme0n1", 2048, "NV"));
    host->SetField("Disks", disks);
    host->SetField("Name", "h1");
    host->SetField("Tags", std::vector<std::string>{"a", "b"});
    EXPECT_EQ(Simple(host),
              "Host:\n   Disk: \n      Disk:\n         Model: Fast disk\n         Name: sda\n"
              "         Size: 512\n   Disks: \n         Disk:\n            Model: NV\n"
              "            Name: nvme0n1\n            Size: 2048\n\n   Name: h1\n   Tags: a, b\n");
    EXPECT_EQ(Simple(MetaInt::New(-42)), "-42\n");
    EXPECT_EQ(Simple(MetaBool::New(true)), "true\n");
    EXPECT_EQ(Simple(Disks(false)), "\n");
    EXPECT_EQ(Simple(MetaList::New(MetaType::String)), "\n");
}

TEST(SimpleFormatter, HeaderAndFieldParameters) {
    auto const disk = Disk("sda", 512, "Fast disk");
    auto header = [&disk](char const* text) {
        return Simple(disk, Params({{"header:Disk", text}, {"fields", "Name"}}));
    };
    EXPECT_EQ(header("Disk %Name%"), "Disk sda:\n   Name: sda\n");
    EXPECT_EQ(header("<NONE>"), "   Name: sda\n");
    EXPECT_EQ(header("A %Nope% 100%"), "A %Nope% 100%:\n   Name: sda\n");
    EXPECT_EQ(header("%Model% on %Name%"), "%Model% on sda:\n   Name: sda\n");
    EXPECT_EQ(header("%Size%-%Size%"), "512-512:\n   Name: sda\n");
    // A type's own field list wins; a missing field stops the list.
    EXPECT_EQ(Simple(disk, Params({{"fields:Disk", "Size,Name"}, {"fields", "Model"}})),
              "Disk:\n   Size: 512\n   Name: sda\n");
    EXPECT_EQ(Simple(disk, Params({{"fields:Other", "Size"}, {"fields", "Model"}})),
              "Disk:\n   Model: Fast disk\n");
    EXPECT_EQ(Simple(disk, Params({{"fields:Disk", "Name, Size,Model"}})),
              "Disk:\n   Name: sda\nError getting field  Size\n");
    EXPECT_EQ(Simple(disk, Params({{"fields:Disk", ""}})), "Disk:\n");
}

std::string Table(std::shared_ptr<MetaObject> const& root, FormatParameters params,
                  uint16_t width = 0, bool* result = nullptr) {
    return Render<TableFormatter>(root, params, width, result);
}

std::string const kHeader = "Name     Size  Model\n";
std::string const kRule = "-------  ----  -----\n";
std::string const kRows = "sda       512  Fast disk\nnvme0n1  2048  NV\n";

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
    auto const columns = std::make_pair("fields", "Name,Size,Model");
    EXPECT_EQ(Table(Disks(), Params({columns, {"show-header", "false"}})), kRows);
    EXPECT_EQ(Table(Disks(), Params({columns, {"table-header", "false"}})), kRows);
    EXPECT_EQ(Table(Disks(), Params({columns, {"show-header", "true"}, {"table-header", "false"}})),
              kHeader + kRule + kRows);
    EXPECT_EQ(Table(Disks(), Params({columns, {"header-line", "false"}})), kHeader + kRows);
    EXPECT_EQ(Table(Disks(false), Params({columns})), "Name  Size  Model\n----  ----  -----\n");
}

TEST(TableFormatter, ColumnChoiceAndFieldFormats) {
    // Without a column list the fields come in name order; an integer ends with two blanks.
    EXPECT_EQ(Table(Disks(), Params({{"show-header", "false"}, {"table-columns", "Name"}})),
              "sda\nnvme0n1\n");
    EXPECT_EQ(Table(Disks(), Params({{"show-header", "false"}})),
              "Fast disk  sda       512  \nNV         nvme0n1  2048  \n");
    EXPECT_EQ(Table(Disks(), Params({{"fields", " Name ,\tSize"},
                                     {"printf:Disk.Size", "%06ld"},
                                     {"units:Disk.Size", "kB"}})),
              "Name     Size\n-------  ----\nsda      000512 kB  \nnvme0n1  002048 kB  \n");
}

TEST(TableFormatter, WrapsLastColumnUnderItsStart) {
    auto entries = [](char const* description) {
        auto entry = MetaStruct::New("Entry");
        entry->SetField("Name", "a");
        entry->SetField("Description", description);
        auto list = MetaList::New(MetaType::Struct, entry);
        list->Add(entry);
        return list;
    };
    auto const params =
        Params({{"show-header", "false"}, {"fields", "Name,Description"}, {"wrap-last", "true"}});
    auto const words = entries("one two three four five six");
    EXPECT_EQ(Table(words, params, 20), "a     one two three \n      four five six\n");
    EXPECT_EQ(Table(entries("first\nsecond line"), params, 20), "a     first\n      second line\n");
    // Too narrow for the other columns and the last column's name, or width unknown: no wrap.
    EXPECT_EQ(Table(words, params, 16), "a     one two three four five six\n");
    EXPECT_EQ(Table(words, params, 0), "a     one two three four five six\n");
}

TEST(TableFormatter, ErrorsPrintOnlyTheirMessage) {
    bool result = true;
    EXPECT_EQ(Table(Disks(), Params({{"fields", "Name,Nope"}}), 0, &result),
              "Error: Unknown field in field list: Nope\n");
    EXPECT_FALSE(result);
    EXPECT_EQ(Table(MetaList::New(MetaType::Struct, std::shared_ptr<MetaStruct>()), {}), "");
    EXPECT_EQ(Table(Disks(), Params({{"fields", ""}})), "\n\n");
    for (std::shared_ptr<MetaObject> root : std::vector<std::shared_ptr<MetaObject>>{
             MetaInt::New(1), MetaList::New(MetaType::Int), nullptr}) {
        EXPECT_EQ(
            ThrownMessage([&root] { Table(root, {}); }),
            "Error: Unexpected type for output, formatter, table, expected a List of structs");
    }
}

}  // namespace
}  // namespace FormatterTest
