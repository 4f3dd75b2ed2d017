#include <gtest/gtest.h>

#include <climits>
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
    auto spec = ParameterSpec::New("size", type);
    spec->SetConstraint(kind == ConstraintNone ? nullptr : Constraint(kind));
    return spec;
}

}  // namespace

TEST(ParameterDeclaration, NamesShortNamesSecretsAndConstraintsThatSuitTheKind) {
    for (char const* name : {"a", "-", "9", "x-1-"})  // [a-z0-9-]+ as a whole
        EXPECT_NO_THROW(ParameterSpec::New(name, ParamString)) << name;
    for (std::string const& name :
         std::vector<std::string>{"", "A", "a b", "a.b", "a\n", "a\x80", std::string("a\0", 2)})
        EXPECT_THROW(ParameterSpec::New(name, ParamString), Tindra::TindraException) << name;
    auto spec = ParameterSpec::New(std::string("x"), ParamInt);
    for (char const* bad : {"vv", "-", "", "\xC3"})
        EXPECT_EQ("Invalid value for shortName, must be a single character a-z, A-Z or 0-9",
                  ThrownMessage([&] { spec->SetShortName(bad); }));
    spec->SetShortName("9");
    EXPECT_EQ("Cannot be set for parameter x", ThrownMessage([&] { spec->SetSecret(true); }));

    std::string const unsuitable =
        "Invalid constraint specified for parameter size.  The parameter constraint specified "
        "is not allowed for a parameter of this type.";
    EXPECT_EQ(unsuitable, ThrownMessage([] { Spec(ParamInt, ConstraintStringEnum); }));
    EXPECT_EQ(unsuitable, ThrownMessage([] { Spec(ParamIntList, ConstraintRegex); }));
    EXPECT_EQ("<nothing thrown>", ThrownMessage([] { Spec(ParamStringList, ConstraintRegex); }));
    // A refused or empty constraint keeps the one set before.
    spec = Spec(ParamInt, ConstraintIntRange);
    auto const range = spec->GetConstraint();
    EXPECT_ANY_THROW(spec->SetConstraint(ParameterConstraint::New(ConstraintNone)));
    spec->SetConstraint(nullptr);
    EXPECT_EQ(range, spec->GetConstraint());
}

TEST(ParameterConversion, IntegersFollowDecimalStrtollAndBooleansExactSpellings) {
    long number = 77;
    EXPECT_TRUE(ParameterSpec::GetInt("", number) && number == 0);
    EXPECT_TRUE(ParameterSpec::GetInt("  -12", number) && number == -12);
    EXPECT_TRUE(ParameterSpec::GetInt("99999999999999999999", number) && number == LONG_MAX);
    number = 77;
    for (std::string const& bad : std::vector<std::string>{"12 ", "0x10", "1e3", "-", " ", "twelve",
                                                           std::string("12\0003", 4)})
        EXPECT_FALSE(ParameterSpec::GetInt(bad, number)) << bad;
    EXPECT_EQ(77, number);
    std::string readings;  // T or F as read, - where the word is refused and the value kept
    for (char const* word : {"1", "yes", "y", "true", "True", "t", "T", "0", "no", "n", "false",
                             "False", "f", "F", "TRUE", "Yes", "", "on", "2"}) {
        bool fromFalse = false, fromTrue = true;
        bool const known = ParameterSpec::GetBool(word, fromFalse);
        EXPECT_EQ(known, ParameterSpec::GetBool(word, fromTrue)) << word;
        readings += fromFalse != fromTrue ? '-' : fromTrue ? 'T' : 'F';
    }
    EXPECT_EQ(readings, "TTTTTTTFFFFFFF-----");
}

// Conversion first, then the constraint on the values that converted; messages in value order.
TEST(ParameterValidate, KindAndConstraintMessages) {
    std::vector<std::tuple<ParameterType, ParameterConstraintType, Messages>> const rows = {
        {ParamInt, ConstraintNone, {"1", "x"}},
        {ParamInt, ConstraintNone, {}},
        {ParamBoolList, ConstraintNone, {"y", "TRUE"}},
        {ParamFlag, ConstraintNone, {"1"}},
        {ParamFlag, ConstraintNone, {""}},
        {ParamIntList, ConstraintIntRange, {"http", "6", " +5", "4"}},
        {ParamInt, ConstraintIntEnum, {"3"}},
        {ParamIntList, ConstraintIntEnum, {"2", "1"}},
        {ParamString, ConstraintStringEnum, {"A"}},
        {ParamStringList, ConstraintStringEnum, {"a", "m"}},
        {ParamString, ConstraintRegex, {"12a"}},
        {ParamStringList, ConstraintRegex, {"12", "0"}},
    };
    std::string verdicts;
    auto output = Output::New();
    for (auto const& [type, kind, values] : rows)
        verdicts += Spec(type, kind)->Validate(values, output) ? '+' : '-';
    EXPECT_EQ(verdicts, "----+--+-+-+");
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

TEST(ParameterConstraint, RefusesBadSetsAndReadsThePatternAtEachCall) {
    auto range = Constraint(ConstraintIntRange);
    EXPECT_EQ("Invalid values for SetIntRange, constraints must have a min value <= max value",
              ThrownMessage([&] { range->SetIntRange(6, 5); }));
    EXPECT_EQ("Duplicate Value found in ParameterConstraint::AddIntEnum",
              ThrownMessage([] { Constraint(ConstraintIntEnum)->AddIntEnum(2); }));
    EXPECT_EQ("Duplicate Value found in ParameterConstraint::AddStringEnum: m",
              ThrownMessage([] { Constraint(ConstraintStringEnum)->AddStringEnum("m", "x"); }));
    auto pattern = Constraint(ConstraintRegex);
    pattern->SetStringRegex("x|y");
    EXPECT_TRUE(pattern->Validate("y", "size", Output::New()));
}

TEST(ParameterDescription, ExpandsEachPlaceholderOnce) {
    auto spec = Spec(ParamString, ConstraintNone);
    spec->SetDescription("One of%ENUM%, again %ENUM%.");
    EXPECT_EQ("One of%ENUM%, again %ENUM%.", spec->GetDescription(true));
    spec->SetConstraint(Constraint(ConstraintStringEnum));
    EXPECT_EQ("One of%ENUM%, again %ENUM%.", spec->GetDescription(false));
    EXPECT_EQ("One of [z, a, m], again %ENUM%.", spec->GetDescription(true));
    spec->SetDescription("Mode:%FULLENUM%");
    EXPECT_EQ("Mode:\n    a: first\n    z: last\n", spec->GetDescription(true));
    // For other kinds the full list is only a line break.
    spec->SetConstraint(Constraint(ConstraintRegex));
    spec->SetDescription("Id %REGEX%%FULLENUM%end");
    EXPECT_EQ("Id a string matching the regular expression [0-9]+\nend",
              spec->GetDescription(true));
}
