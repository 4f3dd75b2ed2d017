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

using Messages = std::vector<std::string>;

}  // namespace

TEST(StructFields, OrderDocumentationAndAbsence) {
    EXPECT_EQ("Invalid name specified for MetaStruct: my_type",
              ThrownMessage([] { MetaStruct::New("my_type"); }));
    auto s = MetaStruct::New("T");
    s->SetField("b", MetaInt::New(2L), "second");
    s->SetField("Param List", true);
    s->SetField("a", std::string("x"));
    EXPECT_EQ((Messages{"Param List", "a", "b"}), s->GetFieldNames());
    EXPECT_EQ("second", s->GetFieldDocumentation("b"));
    EXPECT_EQ("Documentation missing", s->GetFieldDocumentation("a"));
    s->SetField("b", 3L);  // a new value drops the old documentation
    EXPECT_EQ("Documentation missing", s->GetFieldDocumentation("b"));
    EXPECT_EQ("Field c is not present in the structure T",
              ThrownMessage([&] { s->GetFieldDocumentation("c"); }));
    EXPECT_THROW(s->GetFieldType("c"), int);
    EXPECT_EQ(nullptr, s->GetField("c"));
    EXPECT_EQ("Invalid NULL value was assigned to the field c in the structure T",
              ThrownMessage([&] { s->SetField("c", std::shared_ptr<MetaObject>()); }));
    EXPECT_EQ(3u, s->GetFieldCount());
}

TEST(StructFields, ConvenienceOverloadsStoreSharedScalarsAndTypedLists) {
    auto s = MetaStruct::New("T");
    s->SetField("flag", true);
    s->SetField("empty", "");
    s->SetField("names", std::vector<std::string>{"x", "y"});
    s->SetField("bits", std::vector<bool>{true});
    EXPECT_EQ(MetaBool::New(true), s->GetField("flag"));
    EXPECT_EQ(MetaString::New(), s->GetField("empty"));
    auto names = std::static_pointer_cast<MetaList>(s->GetField("names"));
    EXPECT_EQ(String, names->GetListType());
    EXPECT_EQ("x, y", names->ToString());
    EXPECT_EQ(Bool, std::static_pointer_cast<MetaList>(s->GetField("bits"))->GetListType());
}

TEST(StructLocking, DefinitionIsLockedWhenUsedAsTemplate) {
    auto definition = Definition();
    auto instance = MetaStruct::New(definition);
    EXPECT_EQ("Disk", instance->GetTypeName());
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
    instance->SetField("a", 1L);
    EXPECT_EQ(
        "Unable to set new field c on structure.  The field does not match the Structure "
        "definition for this MetaStruct.",
        ThrownMessage([&] { instance->SetField("c", 1L); }));
    EXPECT_FALSE(instance->MatchesStructureDefinition());
    instance->SetField("b", 7L);  // only the name is checked here; the kind is checked later
    EXPECT_FALSE(instance->MatchesStructureDefinition());
    instance->SetField("b", "text");
    EXPECT_TRUE(instance->MatchesStructureDefinition());
    instance->RemoveField("b");
    EXPECT_EQ(Messages{"a"}, instance->GetFieldNames());
}

TEST(StructComparison, ExtraFieldShowsOnlyInTheCount) {
    auto other = Definition();
    other->SetField("c", true);
    Messages errors;
    EXPECT_FALSE(Definition()->IsSameStructure(other, &errors));
    EXPECT_EQ(Messages{"Mismatch on number of fields set in struct. Expected 2 found 3"}, errors);
}

TEST(StructComparison, MissingFieldStopsAfterTheCount) {
    auto other = MetaStruct::New("Disk");
    other->SetField("a", 1L);
    Messages errors;
    EXPECT_FALSE(Definition()->IsSameStructure(other, &errors));
    EXPECT_EQ((Messages{"Mismatch on number of fields set in struct. Expected 2 found 1",
                        "Missing field in input: b"}),
              errors);
}

TEST(StructComparison, TypeNameDifferenceIsRecordedButPasses) {
    auto other = MetaStruct::New("Other");
    other->SetField("a", 99L);
    other->SetField("b", "different");
    Messages errors;
    EXPECT_TRUE(Definition()->IsSameStructure(other, &errors));
    EXPECT_EQ(Messages{"Type names do not match."}, errors);
}

TEST(StructComparison, FieldMismatchesAreNamedInnermostFirst) {
    auto reference = MetaStruct::New("Outer");
    auto inner = MetaStruct::New("Inner");
    inner->SetField("x", 1L);
    reference->SetField("inner", inner);
    auto other = MetaStruct::New("Outer");
    auto otherInner = MetaStruct::New("Inner");
    otherInner->SetField("x", "not an int");
    other->SetField("inner", otherInner);

    Messages errors;
    EXPECT_FALSE(reference->IsSameStructure(other, &errors));
    // A kind difference is named at the field; the scalar's own message is not added.
    EXPECT_EQ((Messages{"Type mismatch on field: x", "Type mismatch on field: inner"}), errors);

    errors.clear();
    EXPECT_FALSE(reference->IsSameStructure(MetaList::New(Int), &errors));
    EXPECT_EQ(
        Messages{"Type Mismatch in MetaStruct Validation: Expected type Struct got type List"},
        errors);
}

TEST(StructPrinting, ListsFieldsInNameOrder) {
    auto s = MetaStruct::New("T");
    s->SetField("b", "x");
    s->SetField("a", 1L);
    EXPECT_EQ("{'a' => '1', 'b' => 'x', }", s->ToString());
    EXPECT_EQ("{}", MetaStruct::New("T")->ToString());
}
