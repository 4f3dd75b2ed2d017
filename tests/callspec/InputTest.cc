#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/callspec/Input.h"

using namespace Tindra::CallSpec;

namespace {

using Messages = std::vector<std::string>;

std::shared_ptr<ParameterSpec> Declare(char const* name, ParameterType type,
                                       char const* shortName = "", bool required = false) {
    auto spec = ParameterSpec::New(name, type);
    if (*shortName != '\0') {
        spec->SetShortName(shortName);
    }
    spec->SetRequired(required);
    return spec;
}

std::vector<std::string> Names(InputSpec const& spec) {
    std::vector<std::string> names;
    for (auto const& parameter : spec.parameters) {
        names.push_back(parameter->GetName());
    }
    return names;
}

// A declaration of every kind, so the getters can be checked against each.
std::shared_ptr<Input> InputWith(std::vector<std::pair<char const*, char const*>> const& pairs) {
    auto spec = InputSpec::New();
    spec->AddParameter(Declare("name", ParamString, "n"));
    spec->AddParameter(Declare("count", ParamInt, "c"));
    spec->AddParameter(Declare("force", ParamBool));
    spec->AddParameter(Declare("all", ParamFlag));
    spec->AddParameter(Declare("tags", ParamStringList, "t"));
    spec->AddParameter(Declare("ids", ParamIntList));
    spec->AddParameter(Declare("bits", ParamBoolList));
    auto input = Input::New();
    for (auto const& pair : pairs) {
        input->AddParameter(pair.first, pair.second);
    }
    input->SetInputSpec(spec);
    return input;
}

}  // namespace

TEST(InputSpecAdd, KeepsDeclarationsSortedByLongName) {
    auto spec = InputSpec::New();
    spec->AddParameter(Declare("zeta", ParamString));
    spec->AddParameter(Declare("alpha", ParamString));
    spec->AddParameter(Declare("mid-one", ParamString));
    EXPECT_EQ((std::vector<std::string>{"alpha", "mid-one", "zeta"}), Names(*spec));
}

TEST(InputSpecAdd, RefusesShortDuplicateAndClashingNamesWithoutChange) {
    auto spec = InputSpec::New();
    spec->AddParameter(Declare("verbose", ParamFlag, "v"));
    EXPECT_EQ("Parameter name must be at least 2 characters",
              ThrownMessage([&] { spec->AddParameter(Declare("x", ParamString)); }));
    EXPECT_EQ("Found a duplicate paramater specification for parameter named 'verbose'",
              ThrownMessage([&] { spec->AddParameter(Declare("verbose", ParamInt)); }));
    EXPECT_EQ(
        "Invalid short name specified for --version. The short name -v is already used for "
        "--verbose",
        ThrownMessage([&] { spec->AddParameter(Declare("version", ParamFlag, "v")); }));
    EXPECT_EQ(std::vector<std::string>{"verbose"}, Names(*spec));
    spec->AddParameter(Declare("all", ParamFlag));  // two empty short names do not clash
}

TEST(InputFolding, ShortNameValuesFollowLongNameValues) {
    auto input = InputWith({{"t", "a"}, {"tags", "b"}, {"t", "c"}, {"n", "x"}});
    EXPECT_EQ((Input::ParameterMap{{"name", {"x"}}, {"tags", {"b", "a", "c"}}}),
              input->GetParameters());
    EXPECT_FALSE(input->HasParameter("t"));
}

TEST(InputValidate, HelpSkipsEveryOtherCheck) {
    auto spec = InputSpec::New();
    spec->AddParameter(Declare("target", ParamString, "", true));
    auto input = Input::New();
    input->AddParameter("help", "");
    input->AddParameter("bogus", "1");
    input->SetInputSpec(spec);
    auto output = Output::New();
    EXPECT_TRUE(spec->Validate(input, output));
    EXPECT_FALSE(output->HasError());
}

TEST(InputValidate, UnknownAndInvalidInNameOrderThenMissingRequired) {
    auto spec = InputSpec::New();
    spec->AddParameter(Declare("zz-required", ParamString, "", true));
    spec->AddParameter(Declare("count", ParamInt));
    spec->AddParameter(Declare("aa-required", ParamString, "", true));
    auto input = Input::New();
    input->AddParameter("x", "1");
    input->AddParameter("count", "many");
    input->AddParameter("b", "");
    input->SetInputSpec(spec);
    auto output = Output::New();
    EXPECT_FALSE(spec->Validate(input, output));
    EXPECT_EQ((Messages{"Unknown parameter : b",
                        "Invalid data 'many' for parameter count expected type Integer",
                        "Unknown parameter : x", "Missing required parameter --aa-required",
                        "Missing required parameter --zz-required"}),
              output->GetErrors());
}

TEST(InputGetters, SingleValuesAndTheirConversions) {
    auto input = InputWith({{"name", "disk"}, {"c", "12"}, {"force", "yes"}, {"all", ""}});
    EXPECT_EQ("disk", input->GetParameter("name"));
    EXPECT_EQ(12, input->GetParameterInt("count"));
    EXPECT_TRUE(input->GetParameterBool("force"));
    EXPECT_TRUE(input->IsFlagSet("all"));

    auto absent = InputWith({});
    EXPECT_EQ("", absent->GetParameter("name"));
    EXPECT_EQ(-1, absent->GetParameterInt("count"));
    EXPECT_FALSE(absent->GetParameterBool("force"));

    auto odd = InputWith({{"name", "a"}, {"name", "b"}, {"count", "7x"}, {"force", "maybe"}});
    EXPECT_EQ("", odd->GetParameter("name"));
    EXPECT_EQ(-1, odd->GetParameterInt("count"));
    EXPECT_FALSE(odd->GetParameterBool("force"));
}

TEST(InputGetters, MisuseByTheCommandThrows) {
    auto input = InputWith({});
    EXPECT_EQ("Request for unknown parameter: nope",
              ThrownMessage([&] { input->GetParameter("nope"); }));
    EXPECT_EQ("Request for GetParameter on a flag type parameter: all",
              ThrownMessage([&] { input->GetParameter("all"); }));
    EXPECT_EQ("Request for GetParameter on a parameter that can have multiple values: ids",
              ThrownMessage([&] { input->GetParameterInt("ids"); }));
    EXPECT_EQ("Request for unknown parameter: name",
              ThrownMessage([] { Input::New()->GetParameterType("name"); }));
}

TEST(InputGetters, ListsKeepOrderAndSkipOrDefaultBadValues) {
    auto input = InputWith({{"tags", "a"}, {"t", "b"}, {"ids", "1"}, {"ids", ""}, {"ids", "x"}});
    input->AddParameter("ids", "-4");
    input->AddParameter("bits", "T");
    input->AddParameter("bits", "nope");
    std::vector<std::string> tags{"kept"};
    input->GetParameterList("tags", tags);
    EXPECT_EQ((std::vector<std::string>{"kept", "a", "b"}), tags);
    std::vector<long> ids;
    input->GetParameterIntList("ids", ids);
    EXPECT_EQ((std::vector<long>{1, -4}), ids);
    std::vector<bool> bits;
    input->GetParameterBoolList("bits", bits);
    EXPECT_EQ((std::vector<bool>{true, false}), bits);

    EXPECT_EQ("\"a,b\"", input->GetParameterListAsString("tags", ',', true));
    EXPECT_EQ("\"\"", input->GetParameterListAsString("absent", ',', true));
    EXPECT_EQ("", input->GetParameterListAsString("absent", ',', false));
}
