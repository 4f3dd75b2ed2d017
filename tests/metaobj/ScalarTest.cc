#include <gtest/gtest.h>

#include <sstream>

#include "support/ShortStrings.h"
#include "tindra/metaobj/MetaBool.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaString.h"

using namespace Tindra::MetaObj;

TEST(SharedInstances, BooleansSmallIntegersAndTheEmptyString) {
    EXPECT_EQ(MetaBool::New(true), MetaBool::New(true));
    EXPECT_EQ(MetaBool::New(false), MetaBool::New());
    EXPECT_NE(MetaBool::New(true), MetaBool::New(false));
    for (long v : {-1L, 0L, 20L}) {
        EXPECT_EQ(MetaInt::New(v), MetaInt::New(v));
        EXPECT_EQ(v, MetaInt::New(v)->GetValue());
    }
    EXPECT_EQ(MetaInt::New(), MetaInt::New(0L));
    EXPECT_NE(MetaInt::New(21L), MetaInt::New(21L));
    EXPECT_NE(MetaInt::New(-2L), MetaInt::New(-2L));
    auto const empty = MetaString::New();
    EXPECT_EQ(empty, MetaString::New(std::string()));
    EXPECT_EQ(empty, MetaString::NewUtf8WithEscapes(std::string()));
    EXPECT_NE(MetaString::New("x"), MetaString::New("x"));
}

TEST(Names, KindNamesAndStructNames) {
    EXPECT_EQ("List", MetaTypeString(List));
    EXPECT_EQ("", MetaTypeString(static_cast<MetaType>(7)));
    EXPECT_EQ(std::vector<std::string>(),
              Tindra::Testing::DisagreementsWith("[a-zA-Z0-9]+", IsValidStructName));
    EXPECT_TRUE(IsValidFieldName("Param List"));
}

TEST(Scalars, CompareKindsNotValuesAndPrintPlainTexts) {
    std::vector<std::string> errors;
    EXPECT_TRUE(MetaInt::New(3L)->IsSameStructure(MetaInt::New(400L), &errors));
    EXPECT_TRUE(MetaString::New("a")->IsSameStructure(MetaString::New(), &errors));
    EXPECT_TRUE(errors.empty());
    EXPECT_FALSE(MetaInt::New(1L)->IsSameStructure(MetaString::New("1"), &errors));
    EXPECT_EQ(std::vector<std::string>{"Type mismatch in structure.  Expecting Int got String"},
              errors);
    EXPECT_FALSE(MetaBool::New()->IsSameStructure(MetaInt::New(0L), nullptr));

    std::ostringstream out;
    out << *MetaInt::New(-42L) << '|' << *MetaBool::New(true) << '|' << *MetaString::New("'s'");
    EXPECT_EQ("-42|true|'s'", out.str());
}

TEST(Scalars, OnlyInvalidUtf8IsEscaped) {
    std::string const valid = "gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80";
    EXPECT_EQ(valid, MetaString::NewUtf8WithEscapes(std::string(valid))->GetValue());
    EXPECT_EQ("ok \xC3\xA9 \\xE9", MetaString::NewUtf8WithEscapes("ok \xC3\xA9 \xE9")->GetValue());
}
