#include <gtest/gtest.h>

#include <sstream>

#include "tindra/metaobj/MetaBool.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaString.h"

using namespace Tindra::MetaObj;

TEST(SharedInstances, AreBuiltAtLoad) {
    EXPECT_TRUE(MetaBool::_sInitialized);
    EXPECT_TRUE(MetaInt::_sInitialized);
    EXPECT_TRUE(MetaString::_sInitialized);
}

TEST(SharedInstances, BooleansAreTheTwoSharedObjects) {
    EXPECT_EQ(MetaBool::New(true), MetaBool::New(true));
    EXPECT_EQ(MetaBool::New(false), MetaBool::New());
    EXPECT_NE(MetaBool::New(true), MetaBool::New(false));
    EXPECT_TRUE(MetaBool::New(true)->GetValue());
    EXPECT_FALSE(MetaBool::New()->GetValue());
}

TEST(SharedInstances, IntegersFromMinusOneToTwentyAreShared) {
    EXPECT_EQ(MetaInt::New(20L), MetaInt::New(20L));
    EXPECT_EQ(MetaInt::New(-1L), MetaInt::New(-1L));
    EXPECT_EQ(MetaInt::New(), MetaInt::New(0L));
    for (long v = -1; v <= 20; ++v) {
        EXPECT_EQ(v, MetaInt::New(v)->GetValue());
    }

    auto const first = MetaInt::New(21L);
    auto const second = MetaInt::New(21L);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->GetValue(), second->GetValue());
    EXPECT_NE(MetaInt::New(-2L), MetaInt::New(-2L));
}

TEST(SharedInstances, EveryEmptyStringIsTheSameObject) {
    std::string empty;
    auto const shared = MetaString::New();
    EXPECT_EQ(shared, MetaString::New(""));
    EXPECT_EQ(shared, MetaString::New(empty));
    EXPECT_EQ(shared, MetaString::New(std::string()));
    EXPECT_EQ(shared, MetaString::NewUtf8WithEscapes(std::string()));
    EXPECT_NE(MetaString::New("x"), MetaString::New("x"));
}

TEST(MetaTypeString, NamesEachKindAndNothingElse) {
    EXPECT_EQ("Int", MetaTypeString(Int));
    EXPECT_EQ("Bool", MetaTypeString(Bool));
    EXPECT_EQ("String", MetaTypeString(String));
    EXPECT_EQ("Struct", MetaTypeString(Struct));
    EXPECT_EQ("List", MetaTypeString(List));
    EXPECT_EQ("", MetaTypeString(static_cast<MetaType>(7)));
    EXPECT_EQ("", MetaTypeString(static_cast<MetaType>(5)));
}

TEST(NamePredicates, StructNamesAreAsciiLettersAndDigitsOnly) {
    EXPECT_TRUE(IsValidStructName("Abc123"));
    EXPECT_TRUE(IsValidStructName("9"));
    EXPECT_FALSE(IsValidStructName("ab_c"));
    EXPECT_FALSE(IsValidStructName("a b"));
    EXPECT_FALSE(IsValidStructName("a-b"));
    EXPECT_FALSE(IsValidStructName(""));
    EXPECT_FALSE(IsValidStructName("abc\n"));
    EXPECT_FALSE(IsValidStructName("caf\xC3\xA9"));
}

TEST(NamePredicates, FieldNamesAreUnrestricted) {
    EXPECT_TRUE(IsValidFieldName("Param List"));
    EXPECT_TRUE(IsValidFieldName(""));
    EXPECT_TRUE(IsValidFieldName("a.b/c"));
}

TEST(ScalarComparison, ComparesKindsNotValues) {
    std::vector<std::string> errors;
    EXPECT_TRUE(MetaInt::New(3L)->IsSameStructure(MetaInt::New(400L), &errors));
    EXPECT_TRUE(MetaString::New("a")->IsSameStructure(MetaString::New(), &errors));
    EXPECT_TRUE(MetaBool::New(true)->IsSameStructure(MetaBool::New(false), &errors));
    EXPECT_TRUE(errors.empty());
}

TEST(ScalarComparison, MismatchRecordsMessageOnlyWithErrorList) {
    std::vector<std::string> errors;
    EXPECT_FALSE(MetaInt::New(1L)->IsSameStructure(MetaString::New("1"), &errors));
    ASSERT_EQ(1u, errors.size());
    EXPECT_EQ("Type mismatch in structure.  Expecting Int got String", errors[0]);

    EXPECT_FALSE(MetaBool::New()->IsSameStructure(MetaInt::New(0L), nullptr));
    EXPECT_FALSE(MetaString::New()->IsSameStructure(nullptr, nullptr));
}

TEST(ScalarPrinting, UsesPlainTexts) {
    EXPECT_EQ("-42", MetaInt::New(-42L)->ToString());
    EXPECT_EQ("9223372036854775807", MetaInt::New(9223372036854775807L)->ToString());
    EXPECT_EQ("true", MetaBool::New(true)->ToString());
    EXPECT_EQ("false", MetaBool::New(false)->ToString());
    EXPECT_EQ("a 'quoted' \"text\"", MetaString::New("a 'quoted' \"text\"")->ToString());

    std::ostringstream out;
    out << *MetaInt::New(7L) << '|' << *MetaString::New("s");
    EXPECT_EQ("7|s", out.str());
}

TEST(Utf8Escapes, ValidTextIsKeptAsIs) {
    std::string const text = "gr\xC3\xBC\xC3\x9F \xE2\x82\xAC \xF0\x9F\x98\x80";
    EXPECT_EQ(text, MetaString::NewUtf8WithEscapes(std::string(text))->GetValue());
}

TEST(Utf8Escapes, InvalidBytesAreEscaped) {
    EXPECT_EQ("a\\xFFb", MetaString::NewUtf8WithEscapes("a\xFF"
                                                        "b")
                             ->GetValue());
    EXPECT_EQ("\\xC3", MetaString::NewUtf8WithEscapes("\xC3")->GetValue());
    EXPECT_EQ("ok \xC3\xA9 \\xE9", MetaString::NewUtf8WithEscapes("ok \xC3\xA9 \xE9")->GetValue());
}
