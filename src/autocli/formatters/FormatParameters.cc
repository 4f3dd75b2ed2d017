#include "tindra/autocli/formatters/FormatParameters.h"

#include "autocli/formatters/Tokens.h"

namespace Tindra {
namespace AutoCli {

std::string const& FormatParameters::GetParameter(std::string const& key) const {
    static std::string const absent;
    auto const found = parameters.find(key);
    return found == parameters.end() ? absent : found->second;
}

void FormatParameters::SetParameter(std::string key, std::string value) {
    parameters[std::move(key)] = std::move(value);
}

void FormatParameters::SetParameter(char const* key, char const* value) {
    parameters[key] = value;
}

std::vector<std::string> FormatParameters::GetParameterAsList(std::string const& key) const {
    return SplitTokens(GetParameter(key), ',');
}

void FormatParameters::OverrideValues(FormatParameters& other) {
    if (!other.formatter.empty()) {
        formatter = other.formatter;
    }
    for (auto const& [key, value] : other.parameters) {
        parameters[key] = value;
    }
}

}  // namespace AutoCli
}  // namespace Tindra
