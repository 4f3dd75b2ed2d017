#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/callspec/Input.h"
#include "tindra/callspec/OutputSpec.h"

using namespace Tindra::CallSpec;
using namespace Tindra::MetaObj;

namespace {

using Messages = std::vector<std::string>;
using Pairs = std::vector<std::pair<char const*, char const*>>;

std::shared_ptr<ParameterSpec> Declare(char const* name, ParameterType type,
                                       char const* shortName = "", bool required = false) {
    auto spec = ParameterSpec::New(name, type);
    if (*shortName != '\0')
        spec->SetShortName(shortName);
    spec->SetRequired(required);
    return spec;
}

// By default one optional declaration of every kind, so the getters can be checked against each.
std::shared_ptr<Input> InputWith(Pairs const& pairs, std::shared_ptr<InputSpec> spec = nullptr) {
    if (!spec) {
        spec = InputSpec::New();
        for (auto const& parameter :
             {Declare("name", ParamString, "n"), Declare("count", ParamInt, "c"),
              Declare("force", ParamBool), Declare("all", ParamFlag),
              Declare("tags", ParamStringList, "t"), Declare("ids", ParamIntList),
              Declare("bits", ParamBoolList)})
            spec->AddParameter(parameter);
    }
    auto input = Input::New();
    for (auto const& [name, value] : pairs)
        input->AddParameter(name, value);
    input->SetInputSpec(spec);
    return input;
}

}  // namespace

// Unknown and invalid values first, in name order, then the missing required parameters in
// declaration order, which is name order; values typed under a short name join the long name's
// after its own.
TEST(InputSpec, RefusesBadDeclarationsFoldsShortNamesAndValidatesInNameOrder) {
    EXPECT_EQ((Input::ParameterMap{{"name", {"x"}}, {"tags", {"b", "a", "c"}}}),
              InputWith({{"t", "a"}, {"tags", "b"}, {"t", "c"}, {"n", "x"}})->GetParameters());
    auto spec = InputSpec::New();
    spec->AddParameter(Declare("zz-required", ParamString, "", true));
    spec->AddParameter(Declare("count", ParamInt, "c"));
    spec->AddParameter(Declare("aa-required", ParamString, "", true));
    EXPECT_EQ("Parameter name must be at least 2 characters",
              ThrownMessage([&] { spec->AddParameter(Declare("x", ParamString)); }));
    EXPECT_EQ("Found a duplicate paramater specification for parameter named 'count'",
              ThrownMessage([&] { spec->AddParameter(Declare("count", ParamFlag)); }));
    EXPECT_EQ(
        "Invalid short name specified for --cc. The short name -c is already used for --count",
        ThrownMessage([&] { spec->AddParameter(Declare("cc", ParamFlag, "c")); }));
    auto output = Output::New();
    EXPECT_TRUE(spec->Validate(InputWith({{"help", ""}, {"bogus", "1"}}, spec), output));
    EXPECT_FALSE(spec->Validate(InputWith({{"x", "1"}, {"c", "many"}, {"b", ""}}, spec), output));
    EXPECT_EQ((Messages{"Unknown parameter : b",
                        "Invalid data 'many' for parameter count expected type Integer",
                        "Unknown parameter : x", "Missing required parameter --aa-required",
                        "Missing required parameter --zz-required"}),
              output->GetErrors());
}

// Repeated or malformed single values read as empty, -1 and false; list getters append,
// skipping integers that do not read and taking any other word as false.
TEST(InputGetters, ConvertOrFallBackAndRefuseMisuse) {
    auto input = InputWith({{"name", "disk"}, {"c", "12"}, {"force", "yes"}, {"all", ""}});
    EXPECT_EQ("disk", input->GetParameter("name"));
    EXPECT_EQ(12, input->GetParameterInt("count"));
    EXPECT_TRUE(input->GetParameterBool("force") && input->IsFlagSet("all"));
    auto odd = InputWith({{"name", "a"}, {"name", "b"}, {"count", "7x"}, {"force", "maybe"}});
    EXPECT_EQ("", odd->GetParameter("name"));
    EXPECT_EQ(-1, odd->GetParameterInt("count"));
    EXPECT_FALSE(odd->GetParameterBool("force"));
    EXPECT_EQ("Request for unknown parameter: nope",
              ThrownMessage([&] { input->GetParameter("nope"); }));
    EXPECT_EQ("Request for GetParameter on a flag type parameter: all",
              ThrownMessage([&] { input->GetParameter("all"); }));
    EXPECT_EQ("Request for GetParameter on a parameter that can have multiple values: ids",
              ThrownMessage([&] { input->GetParameterInt("ids"); }));

    input = InputWith(
        {{"tags", "a"}, {"t", "b"}, {"ids", "1"}, {"ids", "x"}, {"bits", "T"}, {"bits", "nope"}});
    input->AddParameter("ids", "-4");  // added after the declarations were set
    Messages tags{"kept"};
    input->GetParameterList("tags", tags);
    EXPECT_EQ((Messages{"kept", "a", "b"}), tags);
    std::vector<long> ids;
    input->GetParameterIntList("ids", ids);
    EXPECT_EQ((std::vector<long>{1, -4}), ids);
    std::vector<bool> bits;
    input->GetParameterBoolList("bits", bits);
    EXPECT_EQ((std::vector<bool>{true, false}), bits);
    EXPECT_EQ("\"a,b\"", input->GetParameterListAsString("tags", ',', true));
}

// The structure comparison itself is checked with the values and through commands.
TEST(OutputSpecValidate, NamesMissingRoots) {
    Messages errors;
    auto spec = OutputSpec::New();
    auto output = Output::New();
    EXPECT_EQ("Root object cannot be set to null",
              ThrownMessage([&] { spec->SetRootObject(std::shared_ptr<MetaList>()); }));
    EXPECT_FALSE(spec->Validate(output, &errors));
    spec->SetRootObject(MetaInt::New(1L));
    EXPECT_FALSE(spec->Validate(output, &errors));
    EXPECT_EQ((Messages{"No root object set for output spec. Root object for output spec must be "
                        "set for proper validation of output.",
                        "No root object set for output. The command did not provide proper "
                        "output."}),
              errors);
}
