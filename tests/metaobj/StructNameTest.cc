#include <gtest/gtest.h>

#include "support/ShortStrings.h"
#include "tindra/metaobj/MetaType.h"

namespace Tindra {
namespace MetaObj {
namespace {

TEST(StructNameTest, AcceptsExactlyThePatternLanguage) {
    EXPECT_EQ(std::vector<std::string>(),
              Testing::DisagreementsWith("[a-zA-Z0-9]+", IsValidStructName));
}

}  // namespace
}  // namespace MetaObj
}  // namespace Tindra
