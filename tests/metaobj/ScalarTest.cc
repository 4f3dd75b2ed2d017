#include <gtest/gtest.h>

#include <sstream>

#include "support/ShortStrings.h"
#include "tindra/metaobj/MetaBool.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaString.h"

using namespace Tindra::MetaObj;

// Booleans, integers from -1 to 20 and the empty string are shared; other values are not.
TEST(Scalars, SharedInstancesKindComparisonAndPrinting) {
    EXPECT_EQ(MetaBool::New(false), MetaBool::New());
    EXPECT_EQ(MetaInt::New(), MetaInt::New(0L));
    EXPECT_EQ(20L, MetaInt::New(20L)->GetValue());
    EXPECT_NE(MetaInt::New(21L), MetaInt::New(21L));
    EXPECT_EQ(MetaString::New(), MetaString::NewUtf8WithEscapes(std::string()));

    EXPECT_TRUE(MetaInt::New(3L)->IsSameStructure(MetaInt::New(400L), nullptr));
    EXPECT_FALSE(MetaBool::New()->IsSameStructure(MetaInt::New(0L), nullptr));
    std::ostringstream out;
    out << *MetaInt::New(-42L) << '|' << *MetaBool::New(true) << '|' << *MetaString::New("'s'");
    EXPECT_EQ("-42|true|'s'", out.str());
    EXPECT_EQ("ok \xC3\xA9 \\xE9", MetaString::NewUtf8WithEscapes("ok \xC3\xA9 \xE9")->GetValue());
}

TEST(Names, KindNamesAndStructNames) {
    EXPECT_EQ("List", MetaTypeString(List));
    EXPECT_EQ("", MetaTypeString(static_cast<MetaType>(7)));
    EXPECT_EQ(std::vector<std::string>(),
              Tindra::Testing::DisagreementsWith("[a-zA-Z0-9]+", IsValidStructName));
    EXPECT_TRUE(IsValidFieldName("Param List"));
}
