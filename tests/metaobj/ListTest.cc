#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/metaobj/MetaList.h"

using namespace Tindra::MetaObj;

namespace {

using Messages = std::vector<std::string>;

std::shared_ptr<MetaStruct> Row(char const* name = "", bool withSize = true) {
    auto row = MetaStruct::New("Row");
    row->SetField("name", name);
    if (withSize) {
        row->SetField("size", 10L);
    }
    return row;
}

}  // namespace

TEST(ListItems, KindsTemplatesOrderAndIndexErrors) {
    EXPECT_EQ("Integer, boolean or string type expected for list.",
              ThrownMessage([] { MetaList::New(Struct); }));
    EXPECT_EQ("Struct type expected for list.",
              ThrownMessage([] { MetaList::New(String, Row()); }));
    auto row = Row();
    MetaList::New(Struct, row);
    EXPECT_EQ("Structure is locked, unable to remove fields",
              ThrownMessage([&] { row->RemoveField("name"); }));
    std::shared_ptr<MetaObject> notAStruct = MetaInt::New(1L);
    EXPECT_EQ(nullptr, MetaList::New(Struct, notAStruct)->GetListStructure());

    auto list = MetaList::New(Int);
    auto big = MetaInt::New(1000L);
    list->Add(big);
    list->AddAll(std::vector<long>{3, 4});
    EXPECT_EQ(big, list->GetItem(0));
    EXPECT_EQ("Get requested on invalid index of MetaList",
              ThrownMessage([&] { list->GetItem(3); }));
    EXPECT_EQ("Delete requested on invalid index of MetaList",
              ThrownMessage([&] { list->Delete(3); }));
    list->Delete(0);
    EXPECT_EQ("3, 4", list->ToString());
    EXPECT_EQ("", MetaList::New(String)->ToString());
}

TEST(ListAdd, WrongItemsAreRefusedWithoutChange) {
    auto list = MetaList::New(Int);
    EXPECT_EQ(
        "Invalid type specificed in MetaList.  Expected object of type Int got object of type "
        "String",
        ThrownMessage([&] { list->Add("x"); }));
    Messages errors;
    EXPECT_FALSE(list->Validate(MetaString::New("x"), &errors));
    EXPECT_EQ(Messages{"There was an error adding an item to this list.  The item being added was "
                       "not the correct type for this list, so it was not added."},
              errors);
    EXPECT_EQ(0u, list->GetCount());

    auto rows = MetaList::New(Struct, Row());
    EXPECT_EQ(
        "Invalid structure detected by MetaList::Add.  Type Errors were: (3) : Mismatch on number "
        "of fields set in struct. Expected 2 found 1, Missing field in input: size, There was an "
        "error adding an item to this list.  The item being added did not match the declared "
        "structure of this list, so it was not added.",
        ThrownMessage([&] { rows->Add(Row("disk0", false)); }));
    EXPECT_EQ(0u, rows->GetCount());
    rows->Add(Row("disk0"));
    EXPECT_EQ("{'name' => 'disk0', 'size' => '10', }", rows->ToString());
    EXPECT_EQ(
        "Invalid structure detected by MetaList::Add.  Type Errors were: (1) : List created with "
        "NULL structure.  No items can be added to this list.",
        ThrownMessage([] { MetaList::New(Struct, std::shared_ptr<MetaStruct>())->Add(Row()); }));
}

// Lists compare by item kind and template, never by their items.
TEST(ListComparison, MessagesForEachDifference) {
    auto reference = MetaList::New(Int);
    reference->Add(1);
    Messages errors;
    EXPECT_TRUE(reference->IsSameStructure(MetaList::New(Int), &errors));
    EXPECT_FALSE(reference->IsSameStructure(MetaList::New(String), &errors));
    EXPECT_FALSE(reference->IsSameStructure(MetaInt::New(1L), &errors));
    EXPECT_FALSE(reference->IsSameStructure(nullptr, &errors));
    EXPECT_EQ(
        (Messages{"Mismatch on list type", "Type mismatch!  Was expecting a List, but got a Int",
                  "Mismatch on structure, NULL comparison"}),
        errors);
    EXPECT_TRUE(
        MetaList::New(Struct, Row())
            ->IsSameStructure(MetaList::New(Struct, std::shared_ptr<MetaStruct>()), nullptr));
}
