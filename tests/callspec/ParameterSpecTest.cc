#include <gtest/gtest.h>

#include <climits>

#include "support/ThrownMessage.h"
#include "tindra/callspec/ParameterSpec.h"

using namespace Tindra::CallSpec;

namespace {

using Messages = std::vector<std::string>;

Messages Check(ParameterSpec const& spec, Messages const& values, bool expected) {
    auto output = Output::New();
    EXPECT_EQ(expected, spec.Validate(values, output));
    return output->GetErrors();
}

std::shared_ptr<ParameterConstraint> Constraint(ParameterConstraintType kind) {
    auto constraint = ParameterConstraint::New(kind);
    if (kind == ConstraintStringEnum) {
        constraint->AddStringEnum("z", "last");
        constraint->AddStringEnum("a", "first");
        constraint->AddStringEnum("m");
    } else if (kind == ConstraintIntRange) {
        constraint->SetIntRange(1, 100);
    }
    return constraint;
}

}  // namespace

TEST(ParameterDeclaration, NamesShortNamesAndSecrets) {
    EXPECT_EQ(
        "Invalid Parameter name 'my_name' parameter names can only contain lower-case "
        "alphanumeric characters, numbers and '-'",
        ThrownMessage([] { ParameterSpec::New("my_name", ParamString); }));
    // Names are [a-z0-9-]+ as a whole.
    for (char const* name : {"a", "-", "9", "x-1-"}) {
        EXPECT_NO_THROW(ParameterSpec::New(name, ParamString)) << name;
    }
    for (std::string const& name :
         std::vector<std::string>{"", "A", "a b", "a.b", "a\n", "a\x80", std::string("a\0", 2)}) {
        EXPECT_ANY_THROW(ParameterSpec::New(name, ParamString)) << name;
    }
    auto spec = ParameterSpec::New(std::string("x"), ParamFlag);
    EXPECT_TRUE(spec->IsRequired());
    for (char const* bad : {"vv", "-", "", "\xC3"}) {
        EXPECT_EQ("Invalid value for shortName, must be a single character a-z, A-Z or 0-9",
                  ThrownMessage([&] { spec->SetShortName(bad); }));
    }
    spec->SetShortName("9");
    EXPECT_EQ("Cannot be set for parameter count",
              ThrownMessage([] { ParameterSpec::New("count", ParamInt)->SetSecret(true); }));
    ParameterSpec::New("password", ParamString)->SetSecret(true);
}

TEST(ParameterDeclaration, ConstraintMustSuitTheKind) {
    auto const refused = [](ParameterType type, ParameterConstraintType kind) {
        auto spec = ParameterSpec::New("value", type);
        return ThrownMessage([&] { spec->SetConstraint(Constraint(kind)); });
    };
    std::string const message =
        "Invalid constraint specified for parameter value.  The parameter constraint specified "
        "is not allowed for a parameter of this type.";
    EXPECT_EQ(message, refused(ParamInt, ConstraintStringEnum));
    EXPECT_EQ(message, refused(ParamStringList, ConstraintNone));
    EXPECT_EQ("<nothing thrown>", refused(ParamStringList, ConstraintRegex));
    // A refused or empty constraint keeps the one set before.
    auto spec = ParameterSpec::New("value", ParamInt);
    auto const range = Constraint(ConstraintIntRange);
    spec->SetConstraint(range);
    EXPECT_ANY_THROW(spec->SetConstraint(Constraint(ConstraintStringEnum)));
    spec->SetConstraint(nullptr);
    EXPECT_EQ(range, spec->GetConstraint());
}

TEST(ParameterConversion, IntegersFollowDecimalStrtollAndBooleansExactSpellings) {
    long number = 77;
    EXPECT_TRUE(ParameterSpec::GetInt("", number) && number == 0);
    EXPECT_TRUE(ParameterSpec::GetInt("  -12", number) && number == -12);
    EXPECT_TRUE(ParameterSpec::GetInt("99999999999999999999", number) && number == LONG_MAX);
    number = 77;
    for (char const* bad : {"12 ", "0x10", "1e3", "-", " ", "twelve"}) {
        EXPECT_FALSE(ParameterSpec::GetInt(bad, number)) << bad;
    }
    EXPECT_FALSE(ParameterSpec::GetInt(std::string("12\0003", 4), number));
    EXPECT_EQ(77, number);

    auto const check = [](char const* word, bool valid, bool expected) {
        bool value = valid ? !expected : expected;
        EXPECT_EQ(valid, ParameterSpec::GetBool(word, value)) << word;
        EXPECT_EQ(expected, value) << word;
    };
    for (char const* yes : {"1", "yes", "y", "true", "True", "t", "T"}) {
        check(yes, true, true);
    }
    for (char const* no : {"0", "no", "n", "false", "False", "f", "F"}) {
        check(no, true, false);
    }
    for (char const* bad : {"TRUE", "Yes", "", "on", "2"}) {
        check(bad, false, true);  // left unchanged
    }
}

TEST(ParameterValidate, KindAndConstraintMessagesInValueOrder) {
    auto spec = ParameterSpec::New("size", ParamInt);
    EXPECT_EQ((Messages{"Found multiple values for size this parameter can only accept a single "
                        "value.",
                        "Invalid data 'x' for parameter size expected type Integer"}),
              Check(*spec, {"1", "x"}, false));
    EXPECT_EQ(Messages{"Missing value for parameter size"}, Check(*spec, {}, false));
    EXPECT_EQ(Messages{"Invalid data 'TRUE' for parameter on expected one of [1, 0, y, n, true, "
                       "false, True, False, yes, no, t, f, T, F]"},
              Check(*ParameterSpec::New("on", ParamBoolList), {"y", "TRUE"}, false));
    auto flag = ParameterSpec::New("all", ParamFlag);
    EXPECT_EQ(Messages{"Invalid data '1' for parameter all.  This parameter is a flag and cannot "
                       "accept any values. "},
              Check(*flag, {"1"}, false));
    EXPECT_EQ(Messages{}, Check(*flag, {""}, true));

    // The constraint sees only the values that converted.
    auto ports = ParameterSpec::New("port", ParamIntList);
    ports->SetConstraint(Constraint(ConstraintIntRange));
    EXPECT_EQ((Messages{"Invalid data 'http' for parameter port expected type Integer",
                        "Invalid data constraint for parameter 'port'. Expected integer in the "
                        "range 1-100"}),
              Check(*ports, {"http", "200", "80"}, false));
}

TEST(ParameterDescription, ExpandsEachPlaceholderOnce) {
    auto spec = ParameterSpec::New("mode", ParamString);
    spec->SetDescription("One of%ENUM%, again %ENUM%.");
    EXPECT_EQ("One of%ENUM%, again %ENUM%.", spec->GetDescription(true));
    spec->SetConstraint(Constraint(ConstraintStringEnum));
    EXPECT_EQ("One of%ENUM%, again %ENUM%.", spec->GetDescription(false));
    EXPECT_EQ("One of [z, a, m], again %ENUM%.", spec->GetDescription(true));
    spec->SetDescription("Mode:%FULLENUM%");
    EXPECT_EQ("Mode:\n    a: first\n    z: last\n", spec->GetDescription(true));

    // For other kinds the full list is only a line break.
    auto id = ParameterSpec::New("id", ParamString);
    auto pattern = ParameterConstraint::New(ConstraintRegex);
    pattern->SetStringRegex("[a-f]+");
    id->SetConstraint(pattern);
    id->SetDescription("Hex %REGEX%%FULLENUM%end");
    EXPECT_EQ("Hex a string matching the regular expression [a-f]+\nend", id->GetDescription(true));
}
