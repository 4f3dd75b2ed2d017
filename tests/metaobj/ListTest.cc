#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/metaobj/MetaList.h"

using namespace Tindra::MetaObj;

namespace {

std::shared_ptr<MetaStruct> Row() {
    auto row = MetaStruct::New("Row");
    row->SetField("name", "");
    row->SetField("size", 0L);
    return row;
}

std::vector<long> Values(std::shared_ptr<MetaList> const& list) {
    std::vector<long> values;
    for (auto const& item : list->GetObjects()) {
        values.push_back(std::static_pointer_cast<MetaInt>(item)->GetValue());
    }
    return values;
}

}  // namespace

TEST(ListConstruction, ItemKindMustSuitTheFactory) {
    EXPECT_EQ("Integer, boolean or string type expected for list.",
              ThrownMessage([] { MetaList::New(Struct); }));
    EXPECT_EQ("Struct type expected for list.",
              ThrownMessage([] { MetaList::New(String, Row()); }));
}

TEST(ListConstruction, TemplateIsLocked) {
    auto row = Row();
    auto list = MetaList::New(Struct, row);
    EXPECT_EQ(row, list->GetListStructure());
    EXPECT_EQ("Structure is locked, unable to remove fields",
              ThrownMessage([&] { row->RemoveField("name"); }));

    std::shared_ptr<MetaObject> notAStruct = MetaInt::New(1L);
    EXPECT_EQ(nullptr, MetaList::New(Struct, notAStruct)->GetListStructure());
}

TEST(ListAdd, KeepsOrderAndSharesItems) {
    auto list = MetaList::New(Int);
    auto big = MetaInt::New(1000L);
    list->Add(big);
    list->Add(2);
    list->AddAll(std::vector<long>{3, 4});
    EXPECT_EQ((std::vector<long>{1000, 2, 3, 4}), Values(list));
    EXPECT_EQ(big, list->GetItem(0));
    EXPECT_EQ("1000, 2, 3, 4", list->ToString());
    EXPECT_EQ("", MetaList::New(String)->ToString());
}

TEST(ListAdd, WrongKindIsRefusedWithoutChange) {
    auto list = MetaList::New(Int);
    list->Add(1L);
    EXPECT_EQ(
        "Invalid type specificed in MetaList.  Expected object of type Int got object of type "
        "String",
        ThrownMessage([&] { list->Add("x"); }));
    std::vector<std::string> errors;
    EXPECT_FALSE(list->Validate(MetaString::New("x"), &errors));
    EXPECT_EQ(std::vector<std::string>{"There was an error adding an item to this list.  The item "
                                       "being added was not the correct type for this list, so "
                                       "it was not added."},
              errors);
    EXPECT_EQ(1u, list->GetCount());
}

TEST(ListAdd, StructureWithAFieldMissingListsEveryRecordedMessage) {
    auto list = MetaList::New(Struct, Row());
    auto item = MetaStruct::New("Row");
    item->SetField("name", "disk0");
    EXPECT_EQ(
        "Invalid structure detected by MetaList::Add.  Type Errors were: (3) : Mismatch on number "
        "of fields set in struct. Expected 2 found 1, Missing field in input: size, There was an "
        "error adding an item to this list.  The item being added did not match the declared "
        "structure of this list, so it was not added.",
        ThrownMessage([&] { list->Add(item); }));
    EXPECT_EQ(0u, list->GetCount());

    item->SetField("size", 10L);
    list->Add(item);
    EXPECT_EQ("{'name' => 'disk0', 'size' => '10', }", list->ToString());
}

TEST(ListAdd, StructureListWithoutTemplateAcceptsNothing) {
    auto list = MetaList::New(Struct, std::shared_ptr<MetaStruct>());
    EXPECT_EQ(
        "Invalid structure detected by MetaList::Add.  Type Errors were: (1) : List created with "
        "NULL structure.  No items can be added to this list.",
        ThrownMessage([&] { list->Add(Row()); }));
}

TEST(ListIndexes, OutOfRangeThrowsAndDeleteShiftsDown) {
    auto list = MetaList::New(Int);
    list->AddAll(std::vector<long>{100, 200, 300});
    EXPECT_EQ("Get requested on invalid index of MetaList",
              ThrownMessage([&] { list->GetItem(3); }));
    EXPECT_EQ("Delete requested on invalid index of MetaList",
              ThrownMessage([&] { list->Delete(3); }));
    list->Delete(0);
    EXPECT_EQ((std::vector<long>{200, 300}), Values(list));
    EXPECT_EQ(300, std::static_pointer_cast<MetaInt>((*list)[1])->GetValue());
}

TEST(ListComparison, ComparesKindsAndTemplatesNeverItems) {
    auto reference = MetaList::New(Int);
    auto other = MetaList::New(Int);
    reference->Add(1);
    other->AddAll(std::vector<long>{5, 6, 7});
    std::vector<std::string> errors;
    EXPECT_TRUE(reference->IsSameStructure(other, &errors));
    EXPECT_TRUE(errors.empty());

    EXPECT_FALSE(reference->IsSameStructure(MetaList::New(String), &errors));
    EXPECT_FALSE(reference->IsSameStructure(MetaInt::New(1L), &errors));
    EXPECT_FALSE(reference->IsSameStructure(nullptr, &errors));
    EXPECT_EQ((std::vector<std::string>{"Mismatch on list type",
                                        "Type mismatch!  Was expecting a List, but got a Int",
                                        "Mismatch on structure, NULL comparison"}),
              errors);
}

TEST(ListComparison, StructureTemplatesAreComparedWhenBothExist) {
    auto reference = MetaList::New(Struct, Row());
    auto narrower = MetaStruct::New("Row");
    narrower->SetField("name", "");
    std::vector<std::string> errors;
    EXPECT_FALSE(reference->IsSameStructure(MetaList::New(Struct, narrower), &errors));
    EXPECT_EQ((std::vector<std::string>{
                  "Mismatch on number of fields set in struct. Expected 2 found 1",
                  "Missing field in input: size", "List type mismatch list and input"}),
              errors);
    EXPECT_TRUE(
        reference->IsSameStructure(MetaList::New(Struct, std::shared_ptr<MetaStruct>()), nullptr));
}
