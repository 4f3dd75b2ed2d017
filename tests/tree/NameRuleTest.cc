#include <gtest/gtest.h>

#include "support/ShortStrings.h"
#include "tindra/autocli/tree/NamespaceNode.h"

namespace Tindra {
namespace AutoCli {
namespace {

TEST(NameRuleTest, AcceptsExactlyThePatternLanguage) {
    EXPECT_EQ(std::vector<std::string>(),
              Testing::DisagreementsWith("([a-z0-9]+[A-Z0-9]{0,1})+", AutoCli_IsValidName));
}

}  // namespace
}  // namespace AutoCli
}  // namespace Tindra
