#include "tindra/callspec/InputSpec.h"

#include <algorithm>

#include "tindra/TindraException.h"
#include "tindra/callspec/Input.h"

namespace Tindra {
namespace CallSpec {

namespace {

constexpr size_t kMinimumNameLength = 2;
constexpr char kHelpParameter[] = "help";

void CheckAgainst(ParameterSpec const& added, ParameterSpec const& present) {
    if (added.GetName() == present.GetName()) {
        throw TindraException("Found a duplicate paramater specification for parameter named '" +
                              added.GetName() + "'");
    }
    if (!added.GetShortName().empty() && added.GetShortName() == present.GetShortName()) {
        throw TindraException("Invalid short name specified for --" + added.GetName() +
                              ". The short name -" + added.GetShortName() +
                              " is already used for --" + present.GetName());
    }
}

}  // namespace

std::shared_ptr<InputSpec> InputSpec::New() {
    return std::make_shared<InputSpec>();
}

void InputSpec::AddParameter(std::shared_ptr<ParameterSpec> const& parameter) {
    if (!parameter) {
        throw TindraException("Invalid NULL parameter specification");
    }
    if (parameter->GetName().size() < kMinimumNameLength) {
        throw TindraException("Parameter name must be at least 2 characters");
    }
    for (auto const& present : parameters) {
        CheckAgainst(*parameter, *present);
    }
    // Kept in name order; a new parameter goes after any of the same name.
    auto const position =
        std::upper_bound(parameters.begin(), parameters.end(), parameter,
                         [](auto const& a, auto const& b) { return a->GetName() < b->GetName(); });
    parameters.insert(position, parameter);
}

std::shared_ptr<ParameterSpec> InputSpec::FindParameter(std::string const& name) const {
    for (auto const& parameter : parameters) {
        if (parameter->GetName() == name) {
            return parameter;
        }
    }
    return nullptr;
}

// Unknown and invalid values first, in name order, then missing required parameters.
bool InputSpec::Validate(std::shared_ptr<Input> const& input,
                         std::shared_ptr<Output> const& output) const {
    auto const& given = input->GetParameters();
    if (given.count(kHelpParameter) != 0) {
        return true;
    }
    bool result = true;
    for (auto const& entry : given) {
        auto const declared = FindParameter(entry.first);
        if (!declared) {
            output->AddErrorMessage("Unknown parameter : " + entry.first);
            result = false;
        } else if (!declared->Validate(entry.second, output)) {
            result = false;
        }
    }
    for (auto const& parameter : parameters) {
        if (parameter->IsRequired() && given.count(parameter->GetName()) == 0) {
            output->AddErrorMessage("Missing required parameter --" + parameter->GetName());
            result = false;
        }
    }
    return result;
}

}  // namespace CallSpec
}  // namespace Tindra
