#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "tindra/autocli/formatters/TableFormatter.h"

namespace FormatterTest {
namespace {

std::string Table(std::shared_ptr<MetaObject> const& root, FormatParameters params,
                  bool* result = nullptr) {
    return Render<TableFormatter>(root, params, 0, result);
}

// Rows of one list need not hold the same fields in the same places: the list takes any row
// that matches its template, and a reader may add rows as they come.
TEST(TableColumns, FollowFieldsThatMoveBetweenRows) {
    auto withBus = Disk("sdb", 7, "Stick");
    withBus->SetField("Bus", "usb");  // sorts first, so every other field moves one place
    auto disks = Disks(false);
    disks->Add(Disk("sda", 512, "Fast disk"));
    disks->GetObjects().push_back(withBus);
    disks->Add(Disk("nvme0n1", 2048, "NV"));
    EXPECT_EQ(Table(disks, Params({{"fields", "Name,Size,Name"}})),
              "Name     Size  Name\n"
              "-------  ----  ----\n"
              "sda       512  sda\n"
              "sdb         7  sdb\n"
              "nvme0n1  2048  nvme0n1\n");

    auto nameless = MetaStruct::New("Disk");
    nameless->SetField("Model", "M");
    nameless->SetField("Size", 1L);
    disks->GetObjects().push_back(nameless);
    bool result = true;
    EXPECT_EQ(Table(disks, Params({{"fields", "Size,Name"}}), &result),
              "Error: Unknown field in field list: Name\n");
    EXPECT_FALSE(result);
}

TEST(TableColumns, DottedPathsBesidePlainNames) {
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
TEST(TableColumns, FormatsFollowEachRowsTypeName) {
    auto other = MetaStruct::New("Other");
    other->SetField("Model", "m");
    other->SetField("Name", "b");
    other->SetField("Size", 255L);
    auto disks = Disks(false);
    disks->Add(Disk("a", 1, "m"));
    disks->Add(other);
    disks->Add(Disk("c", 3, "m"));
    EXPECT_EQ(Table(disks, Params({{"fields", "Name,Size"},
                                   {"show-header", "false"},
                                   {"printf:Disk.Size", "%03ld"},
                                   {"printf:Other.Size", "%lx"},
                                   {"units:Other.Name", "(other)"}})),
              "a           001  \n"
              "b (other)    ff  \n"
              "c           003  \n");
}

}  // namespace
}  // namespace FormatterTest
