#include <gtest/gtest.h>

#include "support/ShortStrings.h"
#include "tindra/TindraException.h"
#include "tindra/callspec/ParameterSpec.h"

namespace Tindra {
namespace CallSpec {
namespace {

bool NameAccepted(std::string const& name) {
    try {
        ParameterSpec::New(name, ParamString);
        return true;
    } catch (TindraException const&) {
        return false;
    }
}

TEST(ParameterNameTest, AcceptsExactlyThePatternLanguage) {
    EXPECT_EQ(std::vector<std::string>(), Testing::DisagreementsWith("[a-z0-9-]+", NameAccepted));
}

}  // namespace
}  // namespace CallSpec
}  // namespace Tindra
