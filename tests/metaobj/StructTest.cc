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

}  // namespace

TEST(StructFields, OrderDocumentationAbsenceOverloadsAndPrinting) {
    EXPECT_EQ("Invalid name specified for MetaStruct: my_type",
              ThrownMessage([] { MetaStruct::New("my_type"); }));
    auto s = MetaStruct::New("T");
    EXPECT_EQ("{}", s->ToString());
    s->SetField("b", MetaInt::New(2L), "second");
    s->SetField("Param List", true);
    s->SetField("a", std::string("x"));
    EXPECT_EQ((Messages{"Param List", "a", "b"}), s->GetFieldNames());
    EXPECT_EQ("{'Param List' => 'true', 'a' => 'x', 'b' => '2', }", s->ToString());
    EXPECT_EQ("second", s->GetFieldDocumentation("b"));
    EXPECT_EQ("Documentation missing", s->GetFieldDocumentation("a"));
    s->SetField("b", 3L);  // a new value drops the old documentation
    EXPECT_EQ("Documentation missing", s->GetFieldDocumentation("b"));
    EXPECT_EQ("Field c is not present in the structure T",
              ThrownMessage([&] { s->GetFieldDocumentation("c"); }));
    EXPECT_EQ(nullptr, s->GetField("c"));
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
    instance->SetField("b", 7L);  // only the name is checked here; the kind is checked later
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
