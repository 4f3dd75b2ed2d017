#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/formatters/TableFormatter.h"

namespace FormatterTest {
namespace {

std::string Table(std::shared_ptr<MetaObject> const& root, FormatParameters params,
                  uint16_t width = 0, bool* result = nullptr) {
    return Render<TableFormatter>(root, params, width, result);
}

TEST(TableFormatter, DiskExampleAndHeaderSwitches) {
    std::string const header = "Name     Size  Model\n";
    std::string const rule = "-------  ----  -----\n";
    std::string const rows = "sda       512  Fast disk\nnvme0n1  2048  NV\n";
    std::pair<FormatParameters, std::string> const cases[] = {
        {Params({{"fields:Disk", "Name,Size,Model"}}), header + rule + rows},
        {Params({{"fields", "Name,Size,Model"}, {"show-header", "false"}}), rows},
        {Params({{"fields", "Name,Size,Model"}, {"table-header", "false"}}), rows},
        {Params(
             {{"fields", "Name,Size,Model"}, {"show-header", "true"}, {"table-header", "false"}}),
         header + rule + rows},
        {Params({{"fields", "Name,Size,Model"}, {"header-line", "false"}}), header + rows},
    };
    for (auto const& [params, expected] : cases) {
        bool result = false;
        EXPECT_EQ(Table(Disks(), params, 0, &result), expected);
        EXPECT_TRUE(result);
    }
    EXPECT_EQ(Table(Disks(false), Params({{"fields", "Name,Size,Model"}})),
              "Name  Size  Model\n----  ----  -----\n");
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

// Rows of one list need not hold the same fields in the same places: the list takes any row
// that matches its template, and a reader may add rows as they come.
TEST(TableFormatter, ColumnsFollowFieldsThatMoveBetweenRows) {
    auto withBus = Disk("sdb", 7, "Stick");
    withBus->SetField("Bus", "usb");  // sorts first, so every other field moves one place
    auto disks = Disks(false);
    disks->Add(Disk("sda", 512, "Fast disk"));
    disks->GetObjects().push_back(withBus);
    EXPECT_EQ(Table(disks, Params({{"fields", "Name,Size,Name"}})),
              "Name  Size  Name\n----  ----  ----\nsda    512  sda\nsdb      7  sdb\n");
    auto nameless = MetaStruct::New("Disk");
    nameless->SetField("Size", 1L);
    disks->GetObjects().push_back(nameless);
    EXPECT_EQ(Table(disks, Params({{"fields", "Size,Name"}})),
              "Error: Unknown field in field list: Name\n");
}

TEST(TableFormatter, DottedPathsBesidePlainNames) {
    auto host = [](char const* name, std::shared_ptr<MetaStruct> const& disk) {
        auto entry = MetaStruct::New("Host");
        entry->SetField("Disk", disk);
        entry->SetField("Name", name);
        return entry;
    };
    auto hosts = MetaList::New(MetaType::Struct, host("", Disk("", 0, "")));
    hosts->Add(host("h1", Disk("sda", 512, "Fast disk")));
    hosts->Add(host("host2", Disk("nvme0n1", 2048, "NV")));
    EXPECT_EQ(Table(hosts, Params({{"fields", "Name,Disk.Name,Disk.Size"}})),
              "Name   Disk.Name  Disk.Size\n"
              "-----  ---------  ---------\n"
              "h1     sda              512  \n"
              "host2  nvme0n1         2048  \n");
}

// The printf and units of a cell follow the type name of its own row.
TEST(TableFormatter, FormatsFollowEachRowsTypeName) {
    auto other = MetaStruct::New("Other");
    other->SetField("Model", "m");
    other->SetField("Name", "b");
    other->SetField("Size", 255L);
    auto disks = Disks(false);
    disks->Add(Disk("a", 1, "m"));
    disks->Add(other);
    EXPECT_EQ(Table(disks, Params({{"fields", "Name,Size"},
                                   {"show-header", "false"},
                                   {"printf:Disk.Size", "%03ld"},
                                   {"printf:Other.Size", "%lx"},
                                   {"units:Other.Name", "(other)"}})),
              "a           001  \nb (other)    ff  \n");
}

}  // namespace
}  // namespace FormatterTest
