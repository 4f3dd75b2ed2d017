// Reads <input-spec> and its <parameter> elements into the call contract.
#include <array>
#include <string>
#include <utility>

#include "tindra/TindraException.h"
#include "tindra/autocli/plugins/DescriptorReaders.h"
#include "tindra/callspec/ParameterSpec.h"
#include "xml/ValueGrammar.h"
#include "xml/XmlUtil.h"

namespace Tindra {
namespace AutoCli {

using CallSpec::InputSpec;
using CallSpec::ParameterSpec;
using CallSpec::ParameterType;

namespace {

struct TypeKeyword {
    char const* keyword;
    ParameterType type;
};

// The descriptor keywords of the parameter kinds.
constexpr std::array<TypeKeyword, 7> kTypeKeywords{{
    {"string", CallSpec::ParamString},
    {"int", CallSpec::ParamInt},
    {"bool", CallSpec::ParamBool},
    {"flag", CallSpec::ParamFlag},
    {"string-list", CallSpec::ParamStringList},
    {"int-list", CallSpec::ParamIntList},
    {"bool-list", CallSpec::ParamBoolList},
}};

bool ParameterTypeFromKeyword(std::string const& keyword, ParameterType& type) {
    for (TypeKeyword const& entry : kTypeKeywords) {
        if (keyword == entry.keyword) {
            type = entry.type;
            return true;
        }
    }
    return false;
}

bool IsTrueOrFalse(std::string const& text) {
    return text == "true" || text == "false";
}

// The attributes and description of one <parameter>, as written.
struct ParameterText {
    std::string name;
    std::string type;
    std::string required;
    std::string secret;
    std::string shortName;
    std::string description;
};

ParameterText ReadParameterText(xmlNode* node) {
    ParameterText text;
    text.name = XmlUtil_ExtractAttribute(node, "name");
    text.type = XmlUtil_ExtractAttribute(node, "type");
    text.required = XmlUtil_ExtractAttribute(node, "required");
    text.secret = XmlUtil_ExtractAttribute(node, "secret");
    text.shortName = XmlUtil_ExtractAttribute(node, "shortname");
    text.description = XmlUtil_GetContentForChildByTag(node, "description");
    if (text.secret.empty()) {
        text.secret = "false";
    }
    return text;
}

// Checks the written attributes in the documented order; returns the parameter kind.
ParameterType CheckParameterText(ParameterText const& text) {
    if (text.name.empty()) {
        throw TindraException(
            "Unable to parse Input Parameter.  Missing required attribute: 'name'");
    }
    ParameterType type;
    if (!ParameterTypeFromKeyword(text.type, type)) {
        throw TindraException("Unable to parse Input Parameter " + text.name +
                              ". Missing or invalid required attribute: 'type'.  Must be one of "
                              "[string, string-list, bool, bool-list, int, int-list]");
    }
    // Composed only on error: every parameter of every descriptor passes here.
    auto const prefix = [&text] { return "Unable to parse Input Paramter " + text.name + ". "; };
    if (!IsTrueOrFalse(text.required)) {
        throw TindraException(prefix() +
                              "Missing or invalid 'required', must be one of ['true', 'false']");
    }
    if (text.description.empty()) {
        throw TindraException(prefix() + "Missing command description");
    }
    if (!IsTrueOrFalse(text.secret)) {
        throw TindraException(prefix() + "Invalid 'secret', must be one of ['true', 'false']");
    }
    if (text.secret == "true" && type != CallSpec::ParamString) {
        throw TindraException(prefix() + "Invalid type " + text.type +
                              " for secret, must be 'string'");
    }
    return type;
}

// Every <constraint> child in order; a later one replaces an earlier one.
void ReadConstraints(xmlNode* node, ParameterSpec& parameter) {
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (!HasTag(child, "constraint")) {
            continue;
        }
        try {
            parameter.SetConstraint(ExtractParamConstraint(child));
        } catch (TindraException const& error) {
            throw TindraException("Unable to build parameter constraint for parameter " +
                                  parameter.GetName() + ".  Error was: " + error.what());
        }
    }
}

}  // namespace

std::shared_ptr<InputSpec> ExtractInputSpec(xmlNode* node) {
    std::shared_ptr<InputSpec> spec = InputSpec::New();
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (HasTag(child, "parameter")) {
            ExtractInputParam(child, spec);
        } else if (HasTag(child, "context-supported")) {
            spec->SetContextSupported(XmlUtil_GetContent(child));
        }
    }
    return spec;
}

void ExtractInputParam(xmlNode* node, std::shared_ptr<InputSpec> spec) {
    ParameterText text = ReadParameterText(node);
    ParameterType const type = CheckParameterText(text);
    std::shared_ptr<ParameterSpec> parameter = ParameterSpec::New(std::move(text.name), type);
    if (!text.shortName.empty()) {
        parameter->SetShortName(text.shortName);
    }
    parameter->SetDescription(std::move(text.description));
    parameter->SetRequired(text.required == "true");
    if (text.secret == "true") {
        parameter->SetSecret(true);
    }
    ReadConstraints(node, *parameter);
    spec->AddParameter(parameter);
}

}  // namespace AutoCli
}  // namespace Tindra
