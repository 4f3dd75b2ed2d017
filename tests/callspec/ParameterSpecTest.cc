#include <gtest/gtest.h>

#include <tuple>

#include "support/ThrownMessage.h"
#include "tindra/callspec/ParameterSpec.h"

using namespace Tindra::CallSpec;

namespace {

using Messages = std::vector<std::string>;

// Every kind's settings at once, as each kind reads only its own: 5-5, [1, 2], [z, a, m], [0-9]+.
std::shared_ptr<ParameterConstraint> Constraint(ParameterConstraintType kind) {
    auto constraint = ParameterConstraint::New(kind);
    constraint->SetIntRange(5, 5);
    constraint->AddIntEnum(1);
    constraint->AddIntEnum(2);
    constraint->AddStringEnum("z", "last");
    constraint->AddStringEnum("a", "first");
    constraint->AddStringEnum("m");
    constraint->SetStringRegex("[0-9]+");
    return constraint;
}

std::shared_ptr<ParameterSpec> Spec(ParameterType type, ParameterConstraintType kind) {
    auto spec = ParameterSpec::New(std::string("size"), type);
    spec->SetConstraint(kind == ConstraintNone ? nullptr : Constraint(kind));
    return spec;
}

}  // namespace

TEST(ParameterDeclaration, RefusesBadNamesShortNamesSecretsAndUnsuitableConstraints) {
    std::string const withNul("a\0", 2);
    EXPECT_THROW(ParameterSpec::New(withNul, ParamString), Tindra::TindraException);
    auto spec = Spec(ParamInt, ConstraintNone);
    EXPECT_EQ("Invalid value for shortName, must be a single character a-z, A-Z or 0-9",
              ThrownMessage([&] { spec->SetShortName("\xC3"); }));
    EXPECT_EQ("Cannot be set for parameter size", ThrownMessage([&] { spec->SetSecret(true); }));
    std::string const unsuitable =
        "Invalid constraint specified for parameter size.  The parameter constraint specified "
        "is not allowed for a parameter of this type.";
    EXPECT_EQ(unsuitable, ThrownMessage([] { Spec(ParamInt, ConstraintStringEnum); }));
    EXPECT_EQ(unsuitable, ThrownMessage([] { Spec(ParamIntList, ConstraintRegex); }));
    EXPECT_EQ(unsuitable, ThrownMessage([&] {
                  spec->SetConstraint(ParameterConstraint::New(ConstraintNone));
              }));
}

// Conversion first, then the constraint on the values that converted; messages in value order.
TEST(ParameterValidate, KindAndConstraintMessages) {
    std::vector<std::tuple<ParameterType, ParameterConstraintType, Messages>> const rows = {
        {ParamInt, ConstraintNone, {"1", "x"}},
        {ParamInt, ConstraintNone, {}},
        {ParamBoolList, ConstraintNone, {"n", "TRUE"}},
        {ParamFlag, ConstraintNone, {"1"}},
        {ParamFlag, ConstraintNone, {""}},
        {ParamIntList, ConstraintIntRange, {"http", "6", " +5", "4"}},
        {ParamIntList, ConstraintIntEnum, {"2", "3"}},
        {ParamStringList, ConstraintStringEnum, {"a", "A"}},
        {ParamStringList, ConstraintRegex, {"12", "12a"}},
    };
    std::string verdicts;
    auto output = Output::New();
    for (auto const& [type, kind, values] : rows)
        verdicts += Spec(type, kind)->Validate(values, output) ? '+' : '-';
    EXPECT_EQ(verdicts, "----+----");
    std::string const constraint = "Invalid data constraint for parameter 'size'. ";
    std::string const range = constraint + "Expected integer in the range 5-5";
    EXPECT_EQ(
        output->GetErrors(),
        (Messages{"Found multiple values for size this parameter can only accept a single value.",
                  "Invalid data 'x' for parameter size expected type Integer",
                  "Missing value for parameter size",
                  "Invalid data 'TRUE' for parameter size expected one of [1, 0, y, n, true, "
                  "false, True, False, yes, no, t, f, T, F]",
                  "Invalid data '1' for parameter size.  This parameter is a flag and cannot "
                  "accept any values. ",
                  "Invalid data 'http' for parameter size expected type Integer", range, range,
                  constraint + "Expected a single value from the set  [1, 2]",
                  constraint + "Expected a single value from the set  [z, a, m] got 'A'",
                  constraint + "Value does not match the expected regular expression ([0-9]+)"}));
}

TEST(ParameterConstraint, RefusesEmptyRangesAndDuplicates) {
    auto range = Constraint(ConstraintIntRange);
    EXPECT_EQ("Invalid values for SetIntRange, constraints must have a min value <= max value",
              ThrownMessage([&] { range->SetIntRange(6, 5); }));
    EXPECT_EQ("Duplicate Value found in ParameterConstraint::AddIntEnum",
              ThrownMessage([] { Constraint(ConstraintIntEnum)->AddIntEnum(2); }));
    EXPECT_EQ("Duplicate Value found in ParameterConstraint::AddStringEnum: m",
              ThrownMessage([] { Constraint(ConstraintStringEnum)->AddStringEnum("m", "x"); }));
}

TEST(ParameterDescription, ExpandsEachPlaceholderOnce) {
    auto spec = Spec(ParamString, ConstraintStringEnum);
    spec->SetDescription("One of%ENUM%, again %ENUM%.%FULLENUM%");
    EXPECT_EQ("One of%ENUM%, again %ENUM%.%FULLENUM%", spec->GetDescription(false));
    EXPECT_EQ("One of [z, a, m], again %ENUM%.\n    a: first\n    z: last\n",
              spec->GetDescription(true));
    // For other kinds the full list is only a line break.
    spec = Spec(ParamString, ConstraintRegex);
    spec->SetDescription("Id %REGEX%%FULLENUM%end");
    EXPECT_EQ("Id a string matching the regular expression [0-9]+\nend",
              spec->GetDescription(true));
}
