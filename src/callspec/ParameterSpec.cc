#include "tindra/callspec/ParameterSpec.h"

#include <algorithm>
#include <array>
#include <boost/algorithm/string/replace.hpp>
#include <cctype>
#include <cerrno>
#include <cstdlib>

#include "tindra/TindraException.h"

namespace Tindra {
namespace CallSpec {

namespace {

// The language of "[a-z0-9-]+", matched by hand because every parameter of every descriptor is
// checked.
bool IsValidParameterName(std::string const& name) {
    auto const isNameCharacter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
    };
    return !name.empty() && std::all_of(name.begin(), name.end(), isNameCharacter);
}

bool IsOneOf(std::string const& text, std::array<char const*, 7> const& spellings) {
    for (char const* spelling : spellings) {
        if (text == spelling) {
            return true;
        }
    }
    return false;
}

bool IsListKind(ParameterType type) {
    return type == ParamStringList || type == ParamIntList || type == ParamBoolList;
}

bool ConstraintSuits(ParameterType parameter, ParameterConstraintType constraint) {
    switch (constraint) {
        case ConstraintIntRange:
        case ConstraintIntEnum:
            return parameter == ParamInt || parameter == ParamIntList;
        case ConstraintStringEnum:
        case ConstraintRegex:
            return parameter == ParamString || parameter == ParamStringList;
        default:
            return false;
    }
}

// One line per described value, in value order, then the closing line break.
std::string FullEnumBlock(ParameterConstraint& constraint) {
    std::string block;
    if (constraint.GetType() == ConstraintStringEnum) {
        for (auto const& entry : constraint.GetStringEnumWithDesc()) {
            block += "\n    " + entry.first + ": " + entry.second;
        }
    }
    return block + "\n";
}

std::string InvalidDataStart(std::string const& value, std::string const& name) {
    return "Invalid data '" + value + "' for parameter " + name;
}

// The kind's own conversion; an empty text means the conversion passed.
std::string ConversionError(ParameterSpec const& spec, std::string const& value) {
    long number = 0;
    bool flag = false;
    switch (spec.GetType()) {
        case ParamInt:
        case ParamIntList:
            if (!ParameterSpec::GetInt(value, number)) {
                return InvalidDataStart(value, spec.GetName()) + " expected type Integer";
            }
            break;
        case ParamBool:
        case ParamBoolList:
            if (!ParameterSpec::GetBool(value, flag)) {
                return InvalidDataStart(value, spec.GetName()) +
                       " expected one of [1, 0, y, n, true, false, True, False, yes, no, t, f, "
                       "T, F]";
            }
            break;
        case ParamFlag:
            if (!value.empty()) {
                return InvalidDataStart(value, spec.GetName()) +
                       ".  This parameter is a flag and cannot accept any values. ";
            }
            break;
        default:
            break;
    }
    return std::string();
}

bool ValidateValue(ParameterSpec const& spec, std::string const& value,
                   std::shared_ptr<Output> const& output) {
    std::string error = ConversionError(spec, value);
    if (!error.empty()) {
        output->AddErrorMessage(std::move(error));
        return false;
    }
    auto const constraint = spec.GetConstraint();
    return !constraint || constraint->Validate(value, spec.GetName(), output);
}

}  // namespace

ParameterSpec::ParameterSpec(std::string&& parameterName, ParameterType parameterType)
    : type(parameterType), name(std::move(parameterName)) {
    if (!IsValidParameterName(name)) {
        throw TindraException("Invalid Parameter name '" + name +
                              "' parameter names can only contain lower-case alphanumeric "
                              "characters, numbers and '-'");
    }
}

std::shared_ptr<ParameterSpec> ParameterSpec::New(std::string const& parameterName,
                                                  ParameterType parameterType) {
    return std::make_shared<ParameterSpec>(std::string(parameterName), parameterType);
}

std::shared_ptr<ParameterSpec> ParameterSpec::New(std::string&& parameterName,
                                                  ParameterType parameterType) {
    return std::make_shared<ParameterSpec>(std::move(parameterName), parameterType);
}

std::shared_ptr<ParameterSpec> ParameterSpec::New(char const* parameterName,
                                                  ParameterType parameterType) {
    return std::make_shared<ParameterSpec>(std::string(parameterName), parameterType);
}

void ParameterSpec::SetShortName(std::string const& value) {
    if (value.size() != 1 || !std::isalnum(static_cast<unsigned char>(value[0]))) {
        throw TindraException(
            "Invalid value for shortName, must be a single character a-z, A-Z or 0-9");
    }
    shortName = value;
}

void ParameterSpec::SetShortName(char const* value) {
    SetShortName(std::string(value));
}

void ParameterSpec::SetSecret(bool value) {
    if (type != ParamString) {
        throw TindraException("Cannot be set for parameter " + name);
    }
    secret = value;
}

void ParameterSpec::SetConstraint(std::shared_ptr<ParameterConstraint> const& value) {
    if (!value) {
        return;
    }
    if (!ConstraintSuits(type, value->GetType())) {
        throw TindraException("Invalid constraint specified for parameter " + name +
                              ".  The parameter constraint specified is not allowed for a "
                              "parameter of this type.");
    }
    constraint = value;
}

bool ParameterSpec::AllowMultiple() const {
    return IsListKind(type);
}

// Decimal as strtoll reads it: leading blanks and a sign allowed, saturating, nothing after.
bool ParameterSpec::GetInt(std::string const& text, long& out) {
    char const* const begin = text.c_str();
    char* end = nullptr;
    int const savedErrno = errno;
    long long const number = std::strtoll(begin, &end, 10);
    errno = savedErrno;
    if (end != begin + text.size()) {
        return false;
    }
    out = static_cast<long>(number);
    return true;
}

bool ParameterSpec::GetBool(std::string const& text, bool& out) {
    static std::array<char const*, 7> const trueSpellings = {"1",    "yes", "y", "true",
                                                             "True", "t",   "T"};
    static std::array<char const*, 7> const falseSpellings = {"0",     "no", "n", "false",
                                                              "False", "f",  "F"};
    if (IsOneOf(text, trueSpellings)) {
        out = true;
        return true;
    }
    if (IsOneOf(text, falseSpellings)) {
        out = false;
        return true;
    }
    return false;
}

// Each placeholder is looked for in the original text and replaced once in the copy.
std::string ParameterSpec::GetDescription(bool expand) const {
    if (!expand || !constraint) {
        return description;
    }
    std::string expanded = description;
    if (description.find("%REGEX%") != std::string::npos) {
        boost::algorithm::replace_first(expanded, "%REGEX%", constraint->ToString());
    }
    if (description.find("%ENUM%") != std::string::npos) {
        boost::algorithm::replace_first(expanded, "%ENUM%", constraint->ToString());
    }
    if (description.find("%FULLENUM%") != std::string::npos) {
        boost::algorithm::replace_first(expanded, "%FULLENUM%", FullEnumBlock(*constraint));
    }
    return expanded;
}

bool ParameterSpec::Validate(std::vector<std::string> const& values,
                             std::shared_ptr<Output> const& output) const {
    bool result = true;
    if (values.empty()) {
        output->AddErrorMessage("Missing value for parameter " + name);
        result = false;
    } else if (values.size() > 1 && !AllowMultiple()) {
        output->AddErrorMessage("Found multiple values for " + name +
                                " this parameter can only accept a single value.");
        result = false;
    }
    for (auto const& value : values) {
        if (!ValidateValue(*this, value, output)) {
            result = false;
        }
    }
    return result;
}

}  // namespace CallSpec
}  // namespace Tindra
