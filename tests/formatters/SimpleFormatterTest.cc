#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "tindra/autocli/formatters/SimpleFormatter.h"

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

}  // namespace
}  // namespace FormatterTest
