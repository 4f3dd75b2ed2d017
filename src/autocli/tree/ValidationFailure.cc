#include "autocli/tree/ValidationFailure.h"

#include "autocli/tree/ExceptionText.h"
#include "tindra/callspec/Output.h"

namespace Tindra {
namespace AutoCli {

namespace {

// Empty when the value can be checked, else why not.
std::string CheckFailure(CallSpec::ParameterSpec const& parameter, std::string const& value) {
    try {
        parameter.GetConstraint()->Validate(value, parameter.GetName(), CallSpec::Output::New());
    } catch (...) {
        return CurrentExceptionText();
    }
    return "";
}

bool HasRegexConstraint(CallSpec::ParameterSpec const& parameter) {
    auto constraint = parameter.GetConstraint();
    return constraint && constraint->GetType() == CallSpec::ConstraintRegex;
}

}  // namespace

std::string DescribeValidationFailure(CallSpec::InputSpec const& spec, CommandInput& input,
                                      std::string const& failure) {
    auto const& values = input.GetParameters();
    for (auto const& parameter : spec.parameters) {
        auto given = values.find(parameter->GetName());
        if (!HasRegexConstraint(*parameter) || given == values.end()) {
            continue;
        }
        for (auto const& value : given->second) {
            std::string const why = CheckFailure(*parameter, value);
            if (!why.empty()) {
                return "Unable to check the value of parameter '" + parameter->GetName() +
                       "' against the regular expression (" +
                       parameter->GetConstraint()->GetStringRegex() + "): " + why;
            }
        }
    }
    return "Unable to validate the input of command " + input.GetCommandPathString() + ": " +
           failure;
}

}  // namespace AutoCli
}  // namespace Tindra
