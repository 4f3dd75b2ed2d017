// Structures and lists: definitions, locking, homogeneous items and comparison. Values nested
// far deeper than any document can hold are refused by comparing and printing with a message,
// and releasing them does not exhaust the stack.
#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

using namespace Tindra::MetaObj;

namespace {

using Messages = std::vector<std::string>;

std::shared_ptr<MetaStruct> Disk(char const* typeName = "Disk", bool withB = true) {
    auto definition = MetaStruct::New(typeName);
    definition->SetField("a", 0L);
    if (withB) {
        definition->SetField("b", "text");
    }
    return definition;
}

Messages Compare(std::shared_ptr<MetaStruct> const& reference,
                 std::shared_ptr<MetaObject> const& other, bool expected) {
    Messages errors;
    EXPECT_EQ(expected, reference->IsSameStructure(other, &errors));
    return errors;
}

// Lists of one structure each, levels deep; a list's template shares the item's fields.
std::shared_ptr<MetaObject> Chain(int levels) {
    std::shared_ptr<MetaObject> inner = MetaList::New(Int);
    for (int level = 0; level < levels; ++level) {
        auto item = MetaStruct::New("Level");
        item->SetField("Sub", inner);
        auto prototype = MetaStruct::New("Level");
        prototype->SetField("Sub", inner);
        auto list = MetaList::New(Struct, prototype);
        list->Add(item);
        inner = list;
    }
    return inner;
}

}  // namespace

TEST(StructFields, OrderDocumentationAbsenceOverloadsAndPrinting) {
    EXPECT_EQ("Invalid name specified for MetaStruct: my_type",
              ThrownMessage([] { MetaStruct::New("my_type"); }));
    auto s = MetaStruct::New("T");
    s->SetField("b", MetaInt::New(2L), "second");
    s->SetField("Param List", true);
    s->SetField("a", std::string("x"));
    EXPECT_EQ("{'Param List' => 'true', 'a' => 'x', 'b' => '2', }", s->ToString());
    EXPECT_EQ("second", s->GetFieldDocumentation("b"));
    EXPECT_EQ("Documentation missing", s->GetFieldDocumentation("a"));
    s->SetField("b", 3L);  // a new value drops the old documentation
    EXPECT_EQ("Documentation missing", s->GetFieldDocumentation("b"));
    EXPECT_EQ("Field c is not present in the structure T",
              ThrownMessage([&] { s->GetFieldDocumentation("c"); }));
    EXPECT_EQ("Invalid NULL value was assigned to the field c in the structure T",
              ThrownMessage([&] { s->SetField("c", std::shared_ptr<MetaObject>()); }));
}

TEST(StructLocking, DefinitionLocksWhileInstanceTakesOnlyDefinedNames) {
    auto definition = Disk();
    auto instance = MetaStruct::New(definition);
    EXPECT_EQ("Unable to set new field c on structure. Structure has been locked",
              ThrownMessage([&] { definition->SetField("c", 1L); }));
    definition->SetField("a", MetaInt::New(5L), "new doc");  // a defined name still takes values

    instance->SetField("a", 1L);
    EXPECT_EQ(
        "Unable to set new field c on structure.  The field does not match the Structure "
        "definition for this MetaStruct.",
        ThrownMessage([&] { instance->SetField("c", 1L); }));
    EXPECT_FALSE(instance->MatchesStructureDefinition());
    instance->SetField("b", "text");
    EXPECT_TRUE(instance->MatchesStructureDefinition());
    instance->RemoveField("b");  // an instance is not locked
    EXPECT_EQ(Messages{"a"}, instance->GetFieldNames());
}

TEST(StructComparison, MessagesForEachDifference) {
    auto extra = Disk();
    extra->SetField("c", true);  // an extra field shows only in the count
    EXPECT_EQ(Messages{"Mismatch on number of fields set in struct. Expected 2 found 3"},
              Compare(Disk(), extra, false));
    EXPECT_EQ((Messages{"Mismatch on number of fields set in struct. Expected 2 found 1",
                        "Missing field in input: b"}),
              Compare(Disk(), Disk("Disk", false), false));
    EXPECT_EQ(Messages{"Type names do not match."}, Compare(Disk(), Disk("Other"), true));
    EXPECT_EQ(
        Messages{"Type Mismatch in MetaStruct Validation: Expected type Struct got type List"},
        Compare(Disk(), MetaList::New(Int), false));
}

TEST(Lists, KindsTemplatesIndexErrorsRefusedItemsAndComparison) {
    EXPECT_EQ("Integer, boolean or string type expected for list.",
              ThrownMessage([] { MetaList::New(Struct); }));
    EXPECT_EQ("Struct type expected for list.",
              ThrownMessage([] { MetaList::New(String, Disk()); }));
    auto row = Disk();
    MetaList::New(Struct, row);
    EXPECT_EQ("Structure is locked, unable to remove fields",
              ThrownMessage([&] { row->RemoveField("a"); }));
    std::shared_ptr<MetaObject> notAStruct = MetaInt::New(1L);
    EXPECT_EQ(nullptr, MetaList::New(Struct, notAStruct)->GetListStructure());

    auto list = MetaList::New(Int);
    auto big = MetaInt::New(1000L);
    list->Add(big);
    list->AddAll(std::vector<long>{3, 4});
    EXPECT_EQ("Get requested on invalid index of MetaList",
              ThrownMessage([&] { list->GetItem(3); }));
    EXPECT_EQ("Delete requested on invalid index of MetaList",
              ThrownMessage([&] { list->Delete(3); }));
    EXPECT_EQ(big, list->GetItem(0));
    list->Delete(0);
    EXPECT_EQ("3, 4", list->ToString());

    EXPECT_EQ(
        "Invalid type specificed in MetaList.  Expected object of type Int got object of type "
        "String",
        ThrownMessage([&] { list->Add("x"); }));
    Messages errors;
    EXPECT_FALSE(list->Validate(MetaString::New("x"), &errors));
    EXPECT_EQ(Messages{"There was an error adding an item to this list.  The item being added was "
                       "not the correct type for this list, so it was not added."},
              errors);

    auto rows = MetaList::New(Struct, Disk());
    EXPECT_EQ(
        "Invalid structure detected by MetaList::Add.  Type Errors were: (3) : Mismatch on number "
        "of fields set in struct. Expected 2 found 1, Missing field in input: b, There was an "
        "error adding an item to this list.  The item being added did not match the declared "
        "structure of this list, so it was not added.",
        ThrownMessage([&] { rows->Add(Disk("Disk", false)); }));
    EXPECT_EQ(
        "Invalid structure detected by MetaList::Add.  Type Errors were: (1) : List created with "
        "NULL structure.  No items can be added to this list.",
        ThrownMessage([] { MetaList::New(Struct, std::shared_ptr<MetaStruct>())->Add(Disk()); }));

    // Lists compare by item kind and template, never by their items.
    auto reference = MetaList::New(Int);
    reference->Add(1);
    errors.clear();
    EXPECT_TRUE(reference->IsSameStructure(MetaList::New(Int), &errors));
    EXPECT_FALSE(reference->IsSameStructure(MetaList::New(String), &errors));
    EXPECT_FALSE(reference->IsSameStructure(MetaInt::New(1L), &errors));
    EXPECT_FALSE(reference->IsSameStructure(nullptr, &errors));
    EXPECT_EQ(
        (Messages{"Mismatch on list type", "Type mismatch!  Was expecting a List, but got a Int",
                  "Mismatch on structure, NULL comparison"}),
        errors);
}

TEST(DeepNesting, LimitIsNamedAndReleaseNeverRecurses) {
    std::vector<std::string> errors;
    auto const limit = Chain(1000);
    EXPECT_TRUE(limit->IsSameStructure(Chain(1000), &errors));
    EXPECT_TRUE(errors.empty());
    EXPECT_EQ(1000u * 15, limit->ToString().size());  // "{'Sub' => '" ... "', }" per level

    EXPECT_FALSE(Chain(1001)->IsSameStructure(Chain(1001), &errors));
    // The refusal at the 1001st structure, then 1000 structures' and 1001 lists' messages.
    ASSERT_EQ(2002u, errors.size());
    EXPECT_EQ("Structure nested more than 1000 levels deep, unable to compare it.", errors[0]);
    EXPECT_EQ("List type mismatch list and input", errors.back());
    auto const deep = Chain(20000);
    EXPECT_EQ("Structure nested more than 1000 levels deep, unable to print it.",
              ThrownMessage([&] { deep->ToString(); }));
    EXPECT_TRUE(deep->IsSameStructure(deep, nullptr));  // itself, without a walk
}
