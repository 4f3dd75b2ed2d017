#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/callspec/Input.h"

using namespace Tindra::CallSpec;

namespace {

using Messages = std::vector<std::string>;
using Pairs = std::vector<std::pair<char const*, char const*>>;

std::shared_ptr<ParameterSpec> Declare(char const* name, ParameterType type,
                                       char const* shortName = "", bool required = false) {
    auto spec = ParameterSpec::New(name, type);
    if (*shortName != '\0') {
        spec->SetShortName(shortName);
    }
    spec->SetRequired(required);
    return spec;
}

std::shared_ptr<Input> InputWith(std::shared_ptr<InputSpec> const& spec, Pairs const& pairs) {
    auto input = Input::New();
    for (auto const& [name, value] : pairs) {
        input->AddParameter(name, value);
    }
    input->SetInputSpec(spec);
    return input;
}

// A declaration of every kind, so the getters can be checked against each.
std::shared_ptr<Input> InputWith(Pairs const& pairs) {
    auto spec = InputSpec::New();
    for (auto const& parameter : {Declare("name", ParamString, "n"),
                                  Declare("count", ParamInt, "c"), Declare("force", ParamBool),
                                  Declare("all", ParamFlag), Declare("tags", ParamStringList, "t"),
                                  Declare("ids", ParamIntList), Declare("bits", ParamBoolList)}) {
        spec->AddParameter(parameter);
    }
    return InputWith(spec, pairs);
}

}  // namespace

TEST(InputSpecAdd, SortsByLongNameAndRefusesBadNamesWithoutChange) {
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
    spec->AddParameter(Declare("zeta", ParamString));
    spec->AddParameter(Declare("all", ParamFlag));  // two empty short names do not clash
    spec->AddParameter(Declare("mid-one", ParamString));
    Messages names;
    for (auto const& parameter : spec->parameters) {
        names.push_back(parameter->GetName());
    }
    EXPECT_EQ((Messages{"all", "mid-one", "verbose", "zeta"}), names);
}

TEST(InputFolding, ShortNameValuesFollowLongNameValues) {
    auto input = InputWith({{"t", "a"}, {"tags", "b"}, {"t", "c"}, {"n", "x"}});
    EXPECT_EQ((Input::ParameterMap{{"name", {"x"}}, {"tags", {"b", "a", "c"}}}),
              input->GetParameters());
    EXPECT_FALSE(input->HasParameter("t"));
}

TEST(InputValidate, HelpSkipsChecksOtherwiseNameOrderThenMissingRequired) {
    auto spec = InputSpec::New();
    spec->AddParameter(Declare("zz-required", ParamString, "", true));
    spec->AddParameter(Declare("count", ParamInt));
    spec->AddParameter(Declare("aa-required", ParamString, "", true));
    auto output = Output::New();
    EXPECT_TRUE(spec->Validate(InputWith(spec, {{"help", ""}, {"bogus", "1"}}), output));
    EXPECT_FALSE(output->HasError());

    EXPECT_FALSE(
        spec->Validate(InputWith(spec, {{"x", "1"}, {"count", "many"}, {"b", ""}}), output));
    EXPECT_EQ((Messages{"Unknown parameter : b",
                        "Invalid data 'many' for parameter count expected type Integer",
                        "Unknown parameter : x", "Missing required parameter --aa-required",
                        "Missing required parameter --zz-required"}),
              output->GetErrors());
}

TEST(InputGetters, SingleValuesConvertOrFallBack) {
    auto input = InputWith({{"name", "disk"}, {"c", "12"}, {"force", "yes"}, {"all", ""}});
    EXPECT_EQ("disk", input->GetParameter("name"));
    EXPECT_EQ(12, input->GetParameterInt("count"));
    EXPECT_TRUE(input->GetParameterBool("force"));
    EXPECT_TRUE(input->IsFlagSet("all"));
    for (Pairs const& pairs :
         {Pairs{}, Pairs{{"name", "a"}, {"name", "b"}, {"count", "7x"}, {"force", "maybe"}}}) {
        auto odd = InputWith(pairs);
        EXPECT_EQ("", odd->GetParameter("name"));
        EXPECT_EQ(-1, odd->GetParameterInt("count"));
        EXPECT_FALSE(odd->GetParameterBool("force"));
    }
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
    input->AddParameter("ids", "-4");  // added after the declarations were set
    input->AddParameter("bits", "T");
    input->AddParameter("bits", "nope");
    std::vector<std::string> tags{"kept"};
    input->GetParameterList("tags", tags);
    EXPECT_EQ((Messages{"kept", "a", "b"}), tags);
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
