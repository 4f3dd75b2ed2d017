// Reading <input-spec> and <parameter> elements: kinds, marks, the order of the checks and
// which messages are wrapped here and which pass through from the call contract.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "autocli/plugins/DescriptorReaders.h"
#include "descriptor_Snippet.h"
#include "support/ThrownMessage.h"

namespace {

using DescriptorTest::Snippet;
using Tindra::AutoCli::ExtractInputParam;
using Tindra::AutoCli::ExtractInputSpec;
using Tindra::CallSpec::InputSpec;
using Tindra::CallSpec::ParameterSpec;

std::shared_ptr<InputSpec> Read(std::string const& body) {
    Snippet const snippet("<input-spec>" + body + "</input-spec>");
    return ExtractInputSpec(snippet.Root());
}

std::string ReadError(std::string const& body) {
    return ThrownMessage([&] { Read(body); });
}

std::string Param(std::string const& attributes, std::string const& inner = "") {
    return "<parameter " + attributes + ">" + inner + "</parameter>";
}

std::string const kDescription = "<description>d</description>";

TEST(InputSpecReaderTest, EveryKeywordSelectsItsKindFlagIncluded) {
    std::vector<std::pair<std::string, Tindra::CallSpec::ParameterType>> const kinds = {
        {"string", Tindra::CallSpec::ParamString},
        {"int", Tindra::CallSpec::ParamInt},
        {"bool", Tindra::CallSpec::ParamBool},
        {"flag", Tindra::CallSpec::ParamFlag},
        {"string-list", Tindra::CallSpec::ParamStringList},
        {"int-list", Tindra::CallSpec::ParamIntList},
        {"bool-list", Tindra::CallSpec::ParamBoolList},
    };
    for (auto const& [keyword, kind] : kinds) {
        auto spec =
            Read(Param("name=\"pp\" type=\"" + keyword + "\" required=\"false\"", kDescription));
        ASSERT_EQ(1u, spec->parameters.size()) << keyword;
        EXPECT_EQ(kind, spec->parameters[0]->GetType()) << keyword;
    }
}

TEST(InputSpecReaderTest, AttributesAndDescriptionAreCarriedOverAndSorted) {
    auto spec = Read(Param("name=\"zeta\" type=\"string\" required=\"true\" secret=\"true\" "
                           "shortname=\"z\"",
                           "<description>The secret</description>") +
                     "<!-- between -->" +
                     Param("name=\"alpha\" type=\"int\" required=\"false\"", kDescription));
    ASSERT_EQ(2u, spec->parameters.size());
    ParameterSpec const& alpha = *spec->parameters[0];
    ParameterSpec const& zeta = *spec->parameters[1];
    EXPECT_EQ("alpha", alpha.GetName());
    EXPECT_EQ("", alpha.GetShortName());
    EXPECT_FALSE(alpha.IsRequired());
    EXPECT_FALSE(alpha.IsSecret());
    EXPECT_EQ("zeta", zeta.GetName());
    EXPECT_EQ("z", zeta.GetShortName());
    EXPECT_EQ("The secret", zeta.GetDescription(false));
    EXPECT_TRUE(zeta.IsRequired());
    EXPECT_TRUE(zeta.IsSecret());
}

TEST(InputSpecReaderTest, ContextsAreCollectedAndOtherChildrenIgnored) {
    auto spec = Read(
        "<context-supported>user</context-supported><unknown name=\"x\"/>"
        "<context-supported>host</context-supported>"
        "<context-supported>user</context-supported>");
    EXPECT_TRUE(spec->IsContextSupported("user"));
    EXPECT_TRUE(spec->IsContextSupported("host"));
    EXPECT_FALSE(spec->IsContextSupported("other"));
    EXPECT_TRUE(spec->parameters.empty());
}

TEST(InputSpecReaderTest, ChecksComeInTheirOrderWithTheirOwnSpelling) {
    std::string const typeError =
        "Unable to parse Input Parameter pp. Missing or invalid required attribute: 'type'.  "
        "Must be one of [string, string-list, bool, bool-list, int, int-list]";
    std::string const requiredError =
        "Unable to parse Input Paramter pp. Missing or invalid 'required', must be one of "
        "['true', 'false']";
    std::string const descriptionError =
        "Unable to parse Input Paramter pp. Missing command description";
    std::string const secretError =
        "Unable to parse Input Paramter pp. Invalid 'secret', must be one of ['true', 'false']";
    // Each case breaks its own rule and every later one, so only the first check may speak.
    EXPECT_EQ("Unable to parse Input Parameter.  Missing required attribute: 'name'",
              ReadError(Param("name=\"\" type=\"nope\"")));
    EXPECT_EQ(typeError, ReadError(Param("name=\"pp\" required=\"maybe\"")));
    EXPECT_EQ(typeError, ReadError(Param("name=\"pp\" type=\"String\" required=\"true\"")));
    EXPECT_EQ(requiredError, ReadError(Param("name=\"pp\" type=\"int\" secret=\"x\"")));
    EXPECT_EQ(requiredError, ReadError(Param("name=\"pp\" type=\"int\" required=\"True\"")));
    EXPECT_EQ(descriptionError,
              ReadError(Param("name=\"pp\" type=\"int\" required=\"true\" secret=\"x\"")));
    EXPECT_EQ(descriptionError, ReadError(Param("name=\"pp\" type=\"int\" required=\"true\"",
                                                "<description></description>")));
    EXPECT_EQ(secretError, ReadError(Param("name=\"pp\" type=\"int\" required=\"true\" "
                                           "secret=\"yes\"",
                                           kDescription)));
    EXPECT_EQ(
        "Unable to parse Input Paramter pp. Invalid type int-list for secret, must be "
        "'string'",
        ReadError(Param("name=\"pp\" type=\"int-list\" required=\"true\" secret=\"true\"",
                        kDescription)));
}

TEST(InputSpecReaderTest, AnEmptyDuplicateDescriptionIsToleratedATextOneIsNot) {
    auto spec = Read(Param("name=\"pp\" type=\"string\" required=\"true\"",
                           "<description/><description>late</description>"));
    EXPECT_EQ("late", spec->parameters.at(0)->GetDescription(false));
    EXPECT_EQ(
        "Illegal Duplicate tags found.  The tag description was expected only once, but "
        "was found multiple times.",
        ReadError(Param("name=\"pp\" type=\"string\" required=\"true\"",
                        "<description>a</description><description>b</description>")));
}

TEST(InputSpecReaderTest, CallContractErrorsArriveUnwrapped) {
    std::string const rest = "type=\"string\" required=\"true\"";
    EXPECT_EQ(
        "Invalid Parameter name 'Name' parameter names can only contain lower-case "
        "alphanumeric characters, numbers and '-'",
        ReadError(Param("name=\"Name\" " + rest, kDescription)));
    EXPECT_EQ("Invalid value for shortName, must be a single character a-z, A-Z or 0-9",
              ReadError(Param("name=\"pp\" shortname=\"ab\" " + rest, kDescription)));
    EXPECT_EQ("Parameter name must be at least 2 characters",
              ReadError(Param("name=\"x\" " + rest, kDescription)));
    EXPECT_EQ("Found a duplicate paramater specification for parameter named 'pp'",
              ReadError(Param("name=\"pp\" " + rest, kDescription) +
                        Param("name=\"pp\" " + rest, kDescription)));
}

TEST(InputSpecReaderTest, ConstraintErrorsAreWrappedWithTheParameterName) {
    std::string const prefix =
        "Unable to build parameter constraint for parameter count.  Error was: ";
    std::string const intParam = "name=\"count\" type=\"int\" required=\"true\"";
    EXPECT_EQ(
        prefix + "Invalid values for SetIntRange, constraints must have a min value <= max value",
        ReadError(Param(intParam, kDescription + "<constraint type=\"range\">"
                                                 "<range min=\"10\" max=\"1\"/></constraint>")));
    EXPECT_EQ(prefix +
                  "Invalid constraint specified for parameter count.  The parameter "
                  "constraint specified is not allowed for a parameter of this type.",
              ReadError(Param(intParam, kDescription + "<constraint type=\"regex\">"
                                                       "<regex>[0-9]+</regex></constraint>")));
    EXPECT_EQ(prefix +
                  "Missing or invalid constraint 'type', must be one of [stringenum, "
                  "intenum, regex, range] got ''",
              ReadError(Param(intParam, kDescription + "<constraint/>")));
}

TEST(InputSpecReaderTest, ALaterConstraintReplacesAnEarlierOne) {
    auto spec = Read(
        Param("name=\"count\" type=\"int-list\" required=\"false\"",
              kDescription + "<constraint type=\"range\"><range min=\"1\" max=\"5\"/></constraint>"
                             "<constraint type=\"intenum\"><enum>"
                             "<enum-value value=\"7\">seven</enum-value></enum></constraint>"));
    auto constraint = spec->parameters.at(0)->GetConstraint();
    ASSERT_TRUE(constraint);
    EXPECT_EQ(Tindra::CallSpec::ConstraintIntEnum, constraint->GetType());
    EXPECT_EQ(std::vector<long>{7}, constraint->GetIntEnum());
}

TEST(InputSpecReaderTest, AFailingParameterLeavesTheSpecificationAsItWas) {
    auto spec = InputSpec::New();
    Snippet const good(Param("name=\"aa\" type=\"string\" required=\"true\"", kDescription));
    Snippet const bad(Param("name=\"bb\" type=\"string\" required=\"true\"",
                            kDescription + "<constraint type=\"regex\"><regex/></constraint>"));
    ExtractInputParam(good.Root(), spec);
    EXPECT_NE("<nothing thrown>", ThrownMessage([&] { ExtractInputParam(bad.Root(), spec); }));
    ASSERT_EQ(1u, spec->parameters.size());
    EXPECT_EQ("aa", spec->parameters[0]->GetName());
}

}  // namespace
