#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/callspec/ParameterConstraint.h"

using namespace Tindra::CallSpec;

namespace {

using Messages = std::vector<std::string>;

// Runs one check and returns the messages it recorded.
Messages Check(ParameterConstraint const& constraint, std::string const& value, bool expected) {
    auto output = Output::New();
    EXPECT_EQ(expected, constraint.Validate(value, "size", output)) << value;
    return output->GetErrors();
}

std::string const kPrefix = "Invalid data constraint for parameter 'size'. ";

}  // namespace

TEST(IntRange, IncludesBothEndsAndWantsDecimalText) {
    auto range = ParameterConstraint::New(ConstraintIntRange);
    range->SetIntRange(5, 5);
    EXPECT_EQ(Messages{}, Check(*range, "5", true));
    EXPECT_EQ(Messages{kPrefix + "Expected integer in the range 5-5"}, Check(*range, "6", false));
    EXPECT_EQ("Invalid values for SetIntRange, constraints must have a min value <= max value",
              ThrownMessage([&] { range->SetIntRange(6, 5); }));
    range->SetIntRange(1, 10);
    EXPECT_EQ(Messages{"Invalid data type for parameter 'size'. Expected an Integer"},
              Check(*range, "0x5", false));
    EXPECT_EQ(Messages{}, Check(*range, " +7", true));
    range->SetIntRange(-5, -1);
    EXPECT_EQ("integer in the range -5--1", range->ToString());
}

TEST(Enums, RefuseDuplicatesAndListTheSetAfterTwoBlanks) {
    auto ints = ParameterConstraint::New(ConstraintIntEnum);
    ints->AddIntEnum(1);
    ints->AddIntEnum(2);
    EXPECT_EQ(Messages{kPrefix + "Expected a single value from the set  [1, 2]"},
              Check(*ints, "3", false));
    EXPECT_EQ(Messages{}, Check(*ints, "2", true));
    EXPECT_EQ("Duplicate Value found in ParameterConstraint::AddIntEnum",
              ThrownMessage([&] { ints->AddIntEnum(2); }));

    auto strings = ParameterConstraint::New(ConstraintStringEnum);
    strings->AddStringEnum("b", "second");
    strings->AddStringEnum("a");
    EXPECT_EQ(Messages{kPrefix + "Expected a single value from the set  [b, a] got 'A'"},
              Check(*strings, "A", false));
    EXPECT_EQ(Messages{}, Check(*strings, "a", true));
    EXPECT_EQ("Duplicate Value found in ParameterConstraint::AddStringEnum: b",
              ThrownMessage([&] { strings->AddStringEnum("b", "again"); }));
}

TEST(Regex, MustMatchTheWholeValueAsSetAtEachCall) {
    auto pattern = ParameterConstraint::New(ConstraintRegex);
    pattern->SetStringRegex("[0-9]+");
    EXPECT_EQ(Messages{}, Check(*pattern, "12", true));
    EXPECT_EQ(Messages{kPrefix + "Value does not match the expected regular expression ([0-9]+)"},
              Check(*pattern, "12a", false));
    EXPECT_EQ("a string matching the regular expression [0-9]+", pattern->ToString());
    pattern->SetStringRegex("x|y");
    EXPECT_TRUE(pattern->Validate("y", "size", Output::New()));
}

TEST(ConstraintKinds, NoneAcceptsAndUnknownRefusesSilently) {
    EXPECT_EQ(Messages{}, Check(*ParameterConstraint::New(ConstraintNone), "anything", true));
    EXPECT_EQ("no constraint", ParameterConstraint::New(ConstraintNone)->ToString());
    auto unknown = ParameterConstraint::New(static_cast<ParameterConstraintType>(9));
    EXPECT_EQ(Messages{}, Check(*unknown, "anything", false));
    EXPECT_EQ("unknown", unknown->ToString());
}
