#include "tindra/callspec/Input.h"

#include <iterator>

#include "tindra/TindraException.h"

namespace Tindra {
namespace CallSpec {

namespace {

std::string const& EmptyText() {
    static std::string const text;
    return text;
}

// -1 stands for absent and for malformed numbers alike.
long IntegerOrMinusOne(std::string const& text) {
    long number = -1;
    if (text.empty() || !ParameterSpec::GetInt(text, number)) {
        return -1;
    }
    return number;
}

// Only the true spellings count; anything else, the empty text included, is false.
bool IsTrueText(std::string const& text) {
    bool value = false;
    return ParameterSpec::GetBool(text, value) && value;
}

}  // namespace

std::shared_ptr<Input> Input::New() {
    return std::make_shared<Input>();
}

void Input::AddParameter(std::string const& name, std::string const& value) {
    parameters[name].push_back(value);
}

// Values typed under a short name go after those typed under the long one.
void Input::SetInputSpec(std::shared_ptr<InputSpec> const& spec) {
    inputSpec = spec;
    if (!inputSpec) {
        return;
    }
    for (auto const& declared : inputSpec->parameters) {
        auto const shortEntry = parameters.find(declared->GetShortName());
        if (declared->GetShortName().empty() || shortEntry == parameters.end()) {
            continue;
        }
        auto& longValues = parameters[declared->GetName()];
        longValues.insert(longValues.end(), std::make_move_iterator(shortEntry->second.begin()),
                          std::make_move_iterator(shortEntry->second.end()));
        parameters.erase(shortEntry);
    }
}

bool Input::HasParameter(std::string const& name) const {
    return parameters.count(name) != 0;
}
bool Input::HasParameter(char const* name) const {
    return HasParameter(std::string(name));
}
bool Input::IsFlagSet(std::string const& name) const {
    return HasParameter(name);
}
bool Input::IsFlagSet(char const* name) const {
    return HasParameter(std::string(name));
}

ParameterType Input::GetParameterType(std::string const& name) const {
    auto const declared = inputSpec ? inputSpec->FindParameter(name) : nullptr;
    if (!declared) {
        throw TindraException("Request for unknown parameter: " + name);
    }
    return declared->GetParameterType();
}

std::string const& Input::GetParameter(std::string const& name) const {
    ParameterType const type = GetParameterType(name);
    if (type == ParamFlag) {
        throw TindraException("Request for GetParameter on a flag type parameter: " + name);
    }
    if (type == ParamStringList || type == ParamIntList || type == ParamBoolList) {
        throw TindraException(
            "Request for GetParameter on a parameter that can have multiple values: " + name);
    }
    auto const found = parameters.find(name);
    if (found == parameters.end() || found->second.size() != 1) {
        return EmptyText();
    }
    return found->second.front();
}

std::string const& Input::GetParameter(char const* name) const {
    return GetParameter(std::string(name));
}

long Input::GetParameterInt(std::string const& name) const {
    return IntegerOrMinusOne(GetParameter(name));
}

long Input::GetParameterInt(char const* name) const {
    return GetParameterInt(std::string(name));
}

bool Input::GetParameterBool(std::string const& name) const {
    return IsTrueText(GetParameter(name));
}

bool Input::GetParameterBool(char const* name) const {
    return GetParameterBool(std::string(name));
}

void Input::GetParameterList(std::string const& name, std::vector<std::string>& out) const {
    auto const found = parameters.find(name);
    if (found != parameters.end()) {
        out.insert(out.end(), found->second.begin(), found->second.end());
    }
}

void Input::GetParameterList(char const* name, std::vector<std::string>& out) const {
    GetParameterList(std::string(name), out);
}

std::string Input::GetParameterListAsString(std::string const& name, char separator,
                                            bool quote) const {
    std::string text = quote ? "\"" : "";
    auto const found = parameters.find(name);
    if (found != parameters.end()) {
        for (size_t i = 0; i < found->second.size(); ++i) {
            if (i != 0) {
                text += separator;
            }
            text += found->second[i];
        }
    }
    if (quote) {
        text += '"';
    }
    return text;
}

void Input::GetParameterIntList(std::string const& name, std::vector<long>& out) const {
    std::vector<std::string> texts;
    GetParameterList(name, texts);
    for (auto const& text : texts) {
        long number = 0;
        if (!text.empty() && ParameterSpec::GetInt(text, number)) {
            out.push_back(number);
        }
    }
}

void Input::GetParameterBoolList(std::string const& name, std::vector<bool>& out) const {
    std::vector<std::string> texts;
    GetParameterList(name, texts);
    for (auto const& text : texts) {
        out.push_back(IsTrueText(text));
    }
}

std::string const& Input::GetContext(std::string const& key) const {
    auto const found = context.find(key);
    return found == context.end() ? EmptyText() : found->second;
}

}  // namespace CallSpec
}  // namespace Tindra
