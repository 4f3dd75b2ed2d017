#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

using namespace Tindra::MetaObj;

namespace {

std::shared_ptr<MetaStruct> Definition() {
    auto definition = MetaStruct::New("Disk");
    definition->SetField("a", 0L);
    definition->SetField("b", "text");
    return definition;
}

}  // namespace

TEST(StructConstruction, TypeNameMustBeLettersAndDigits) {
    EXPECT_EQ("Invalid name specified for MetaStruct: my_type",
              ThrownMessage([] { MetaStruct::New("my_type"); }));
    EXPECT_EQ("Invalid name specified for MetaStruct: ",
              ThrownMessage([] { MetaStruct::New(std::string()); }));
    EXPECT_EQ("Disk1", MetaStruct::New(std::string("Disk1"))->GetTypeName());
}

TEST(StructFields, AreKeptInByteOrderWithDocumentation) {
    auto s = MetaStruct::New("T");
    s->SetField("b", MetaInt::New(2L), "second");
    s->SetField("Param List", true);
    s->SetField("a", std::string("x"));
    EXPECT_EQ((std::vector<std::string>{"Param List", "a", "b"}), s->GetFieldNames());
    EXPECT_EQ("second", s->GetFieldDocumentation("b"));
    EXPECT_EQ("Documentation missing", s->GetFieldDocumentation("a"));
    EXPECT_EQ(MetaStruct::_docMissingStaticString, s->GetFieldDocumentation("a"));
    EXPECT_EQ("Field c is not present in the structure T",
              ThrownMessage([&] { s->GetFieldDocumentation("c"); }));
    EXPECT_EQ(String, s->GetFieldType("a"));
    EXPECT_THROW(s->GetFieldType("c"), int);
    EXPECT_EQ(nullptr, s->GetField("c"));
    EXPECT_FALSE(s->HasField("c"));
}

TEST(StructFields, ReplacingDropsTheOldDocumentation) {
    auto s = MetaStruct::New("T");
    s->SetField("a", MetaInt::New(1L), "doc");
    s->SetField("a", 2L);
    EXPECT_EQ("Documentation missing", s->GetFieldDocumentation("a"));
    EXPECT_EQ(2, std::static_pointer_cast<MetaInt>(s->GetField("a"))->GetValue());
}

TEST(StructFields, ConvenienceOverloadsStoreSharedScalarsAndLists) {
    auto s = MetaStruct::New("T");
    s->SetField("flag", true);
    s->SetField("count", 3);
    s->SetField("empty", "");
    s->SetField("names", std::vector<std::string>{"x", "y"});
    s->SetField("sizes", std::vector<long>{1, 2});
    s->SetField("bits", std::vector<bool>{true});
    EXPECT_EQ(MetaBool::New(true), s->GetField("flag"));
    EXPECT_EQ(MetaInt::New(3L), s->GetField("count"));
    EXPECT_EQ(MetaString::New(), s->GetField("empty"));
    auto names = std::static_pointer_cast<MetaList>(s->GetField("names"));
    EXPECT_EQ(String, names->GetListType());
    EXPECT_EQ("x, y", names->ToString());
    EXPECT_EQ(Int, std::static_pointer_cast<MetaList>(s->GetField("sizes"))->GetListType());
    EXPECT_EQ(Bool, std::static_pointer_cast<MetaList>(s->GetField("bits"))->GetListType());
}

TEST(StructFields, NullValueIsRefusedWithoutChange) {
    auto s = MetaStruct::New("T");
    EXPECT_EQ("Invalid NULL value was assigned to the field a in the structure T",
              ThrownMessage([&] { s->SetField("a", std::shared_ptr<MetaObject>()); }));
    EXPECT_EQ(0u, s->GetFieldCount());
}

TEST(StructLocking, DefinitionIsLockedWhenUsedAsTemplate) {
    auto definition = Definition();
    auto instance = MetaStruct::New(definition);
    EXPECT_EQ("Disk", instance->GetTypeName());
    EXPECT_EQ(definition, instance->GetStructureDefinition());

    EXPECT_EQ("Unable to set new field c on structure. Structure has been locked",
              ThrownMessage([&] { definition->SetField("c", 1L); }));
    definition->SetField("a", MetaInt::New(5L), "new doc");
    EXPECT_EQ("new doc", definition->GetFieldDocumentation("a"));
    EXPECT_EQ("Structure is locked, unable to remove fields",
              ThrownMessage([&] { definition->RemoveField("a"); }));
    EXPECT_EQ(2u, definition->GetFieldCount());
}

TEST(StructLocking, InstanceTakesOnlyDefinedNamesAndIsNotLocked) {
    auto instance = MetaStruct::New(Definition());
    EXPECT_FALSE(instance->MatchesStructureDefinition());
    instance->SetField("a", 1L);
    EXPECT_EQ(
        "Unable to set new field c on structure.  The field does not match the Structure "
        "definition for this MetaStruct.",
        ThrownMessage([&] { instance->SetField("c", 1L); }));
    EXPECT_FALSE(instance->MatchesStructureDefinition());
    instance->SetField("b", 7L);  // a name check only: the wrong type is found later
    EXPECT_FALSE(instance->MatchesStructureDefinition());
    instance->SetField("b", "text");
    EXPECT_TRUE(instance->MatchesStructureDefinition());
    instance->RemoveField("b");
    instance->RemoveField("never there");
    EXPECT_EQ((std::vector<std::string>{"a"}), instance->GetFieldNames());
    EXPECT_TRUE(MetaStruct::New("Free")->MatchesStructureDefinition());
}

TEST(StructComparison, ExtraFieldShowsOnlyInTheCount) {
    auto reference = Definition();
    auto other = Definition();
    other->SetField("c", true);
    std::vector<std::string> errors;
    EXPECT_FALSE(reference->IsSameStructure(other, &errors));
    EXPECT_EQ((std::vector<std::string>{"Mismatch on number of fields set in struct. Expected 2 "
                                        "found 3"}),
              errors);
}

TEST(StructComparison, MissingFieldStopsAfterTheCount) {
    auto other = MetaStruct::New("Disk");
    other->SetField("a", 1L);
    std::vector<std::string> errors;
    EXPECT_FALSE(Definition()->IsSameStructure(other, &errors));
    EXPECT_EQ(
        (std::vector<std::string>{"Mismatch on number of fields set in struct. Expected 2 found 1",
                                  "Missing field in input: b"}),
        errors);
}

TEST(StructComparison, TypeNameDifferenceIsRecordedButPasses) {
    auto other = MetaStruct::New("Other");
    other->SetField("a", 99L);
    other->SetField("b", "different");
    std::vector<std::string> errors;
    EXPECT_TRUE(Definition()->IsSameStructure(other, &errors));
    EXPECT_EQ((std::vector<std::string>{"Type names do not match."}), errors);
    EXPECT_TRUE(Definition()->IsSameStructure(other, nullptr));
}

TEST(StructComparison, FieldMismatchesAreNamedInnermostFirst) {
    auto reference = MetaStruct::New("Outer");
    auto inner = MetaStruct::New("Inner");
    inner->SetField("x", 1L);
    reference->SetField("inner", inner);
    reference->SetField("n", 1L);

    auto other = MetaStruct::New("Outer");
    auto otherInner = MetaStruct::New("Inner");
    otherInner->SetField("x", "not an int");
    other->SetField("inner", otherInner);
    other->SetField("n", 1L);

    std::vector<std::string> errors;
    EXPECT_FALSE(reference->IsSameStructure(other, &errors));
    // A kind difference is named at the field; the scalar's own message is not added.
    EXPECT_EQ(
        (std::vector<std::string>{"Type mismatch on field: x", "Type mismatch on field: inner"}),
        errors);

    errors.clear();
    other->SetField("n", "text");
    otherInner->SetField("x", 2L);
    EXPECT_FALSE(reference->IsSameStructure(other, &errors));
    EXPECT_EQ((std::vector<std::string>{"Type mismatch on field: n"}), errors);
}

TEST(StructComparison, NonStructuresAreRefused) {
    std::vector<std::string> errors;
    EXPECT_FALSE(Definition()->IsSameStructure(nullptr, &errors));
    EXPECT_FALSE(Definition()->IsSameStructure(MetaList::New(Int), &errors));
    EXPECT_EQ((std::vector<std::string>{
                  "Invalid NULL input to MetaStruct validation.",
                  "Type Mismatch in MetaStruct Validation: Expected type Struct got type List"}),
              errors);
}

TEST(StructPrinting, ListsFieldsInNameOrder) {
    auto s = MetaStruct::New("T");
    s->SetField("b", "x");
    s->SetField("a", 1L);
    EXPECT_EQ("{'a' => '1', 'b' => 'x', }", s->ToString());
    EXPECT_EQ("{}", MetaStruct::New("T")->ToString());
}
