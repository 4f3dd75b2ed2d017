#include "tindra/callspec/ParameterConstraint.h"

#include <algorithm>
#include <boost/algorithm/string/join.hpp>
#include <boost/regex.hpp>

#include "tindra/TindraException.h"
#include "tindra/callspec/ParameterSpec.h"

namespace Tindra {
namespace CallSpec {

namespace {

template <typename Value>
bool Contains(std::vector<Value> const& values, Value const& value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

std::string ConstraintMessageStart(std::string const& parameterName) {
    return "Invalid data constraint for parameter '" + parameterName + "'. ";
}

std::string BracketedSet(std::vector<std::string> const& values) {
    return " [" + boost::algorithm::join(values, ", ") + "]";
}

std::vector<std::string> AsTexts(std::vector<long> const& values) {
    std::vector<std::string> texts;
    texts.reserve(values.size());
    for (long const value : values) {
        texts.push_back(std::to_string(value));
    }
    return texts;
}

}  // namespace

std::shared_ptr<ParameterConstraint> ParameterConstraint::New(ParameterConstraintType type) {
    return std::make_shared<ParameterConstraint>(type);
}

void ParameterConstraint::SetIntRange(long minimum, long maximum) {
    if (minimum > maximum) {
        throw TindraException(
            "Invalid values for SetIntRange, constraints must have a min value <= max value");
    }
    min = minimum;
    max = maximum;
}

void ParameterConstraint::GetIntRange(long& minimum, long& maximum) const {
    minimum = min;
    maximum = max;
}

void ParameterConstraint::AddIntEnum(long value) {
    if (Contains(intEnum, value)) {
        throw TindraException("Duplicate Value found in ParameterConstraint::AddIntEnum");
    }
    intEnum.push_back(value);
}

void ParameterConstraint::AddStringEnum(std::string const& value, std::string const& description) {
    if (Contains(stringEnum, value)) {
        throw TindraException("Duplicate Value found in ParameterConstraint::AddStringEnum: " +
                              value);
    }
    if (!description.empty()) {
        stringEnumDesc[value] = description;
    }
    stringEnum.push_back(value);
}

void ParameterConstraint::AddStringEnum(char const* value, char const* description) {
    AddStringEnum(std::string(value), std::string(description));
}

void ParameterConstraint::AddStringEnum(char const* value) {
    AddStringEnum(std::string(value), std::string());
}

std::string ParameterConstraint::ToString() const {
    switch (type) {
        case ConstraintNone:
            return "no constraint";
        case ConstraintIntRange:
            return "integer in the range " + std::to_string(min) + "-" + std::to_string(max);
        case ConstraintIntEnum:
            return BracketedSet(AsTexts(intEnum));
        case ConstraintStringEnum:
            return BracketedSet(stringEnum);
        case ConstraintRegex:
            return "a string matching the regular expression " + regex;
    }
    return "unknown";
}

bool ParameterConstraint::Validate(std::string const& value, std::string const& parameterName,
                                   std::shared_ptr<Output> const& output) const {
    switch (type) {
        case ConstraintNone:
            return true;
        case ConstraintIntRange:
        case ConstraintIntEnum: {
            long number = 0;
            if (!ParameterSpec::GetInt(value, number)) {
                output->AddErrorMessage("Invalid data type for parameter '" + parameterName +
                                        "'. Expected an Integer");
                return false;
            }
            bool const range = type == ConstraintIntRange;
            if (range ? (min <= number && number <= max) : Contains(intEnum, number)) {
                return true;
            }
            output->AddErrorMessage(
                ConstraintMessageStart(parameterName) +
                (range ? "Expected " : "Expected a single value from the set ") + ToString());
            return false;
        }
        case ConstraintStringEnum:
            if (Contains(stringEnum, value)) {
                return true;
            }
            output->AddErrorMessage(ConstraintMessageStart(parameterName) +
                                    "Expected a single value from the set " + ToString() +
                                    " got '" + value + "'");
            return false;
        case ConstraintRegex:
            // Compiled per call on purpose: the expression comes unchecked from the declaration.
            if (boost::regex_match(value, boost::regex(regex))) {
                return true;
            }
            output->AddErrorMessage(ConstraintMessageStart(parameterName) +
                                    "Value does not match the expected regular expression (" +
                                    regex + ")");
            return false;
    }
    return false;
}

}  // namespace CallSpec
}  // namespace Tindra
