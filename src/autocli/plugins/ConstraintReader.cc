// Reads <constraint> elements of descriptor parameters and the enumerations inside them.
#include <string>

#include "tindra/TindraException.h"
#include "tindra/autocli/plugins/DescriptorReaders.h"
#include "xml/ValueGrammar.h"
#include "xml/XmlUtil.h"

namespace Tindra {
namespace AutoCli {

using CallSpec::ParameterConstraint;
using CallSpec::ParameterConstraintType;
using Enumeration = std::vector<std::pair<std::string, std::string>>;

namespace {

// What a constraint's type attribute selects: the kind and the child element that holds it.
struct ConstraintKind {
    ParameterConstraintType type;
    char const* childTag;
};

bool ConstraintKindFromKeyword(std::string const& keyword, ConstraintKind& kind) {
    if (keyword == "stringenum") {
        kind = {CallSpec::ConstraintStringEnum, "enum"};
    } else if (keyword == "intenum") {
        kind = {CallSpec::ConstraintIntEnum, "enum"};
    } else if (keyword == "regex") {
        kind = {CallSpec::ConstraintRegex, "regex"};
    } else if (keyword == "range") {
        kind = {CallSpec::ConstraintIntRange, "range"};
    } else {
        return false;
    }
    return true;
}

std::shared_ptr<ParameterConstraint> MakeEnumConstraint(ParameterConstraintType type,
                                                        Enumeration const& values) {
    std::shared_ptr<ParameterConstraint> constraint = ParameterConstraint::New(type);
    for (auto const& [value, description] : values) {
        if (type == CallSpec::ConstraintStringEnum) {
            constraint->AddStringEnum(value, description);
            continue;
        }
        long number = 0;
        if (!ReadLeadingInt(value, number)) {
            throw TindraException("Error parsing integer enumeration. Expected integer, but got " +
                                  value);
        }
        constraint->AddIntEnum(number);
    }
    return constraint;
}

std::shared_ptr<ParameterConstraint> MakeRegexConstraint(xmlNode* child) {
    std::shared_ptr<ParameterConstraint> constraint =
        ParameterConstraint::New(CallSpec::ConstraintRegex);
    std::string const expression = XmlUtil_GetContent(child);
    if (expression.empty()) {
        throw TindraException(
            "Error parsing regex from parameter constraint.Missing or empty 'regex' tag");
    }
    constraint->SetStringRegex(expression);
    return constraint;
}

std::shared_ptr<ParameterConstraint> MakeRangeConstraint(xmlNode* child) {
    std::shared_ptr<ParameterConstraint> constraint =
        ParameterConstraint::New(CallSpec::ConstraintIntRange);
    long minimum = 0;
    long maximum = 0;
    if (!ReadLeadingInt(XmlUtil_ExtractAttribute(child, "min"), minimum) ||
        !ReadLeadingInt(XmlUtil_ExtractAttribute(child, "max"), maximum)) {
        throw TindraException(
            "Error parsing 'range' parameter constraint.  Range requires both 'min' and 'max' "
            "attributes and that both are integers.");
    }
    constraint->SetIntRange(minimum, maximum);
    return constraint;
}

}  // namespace

std::shared_ptr<ParameterConstraint> ExtractParamConstraint(xmlNode* node) {
    std::string const keyword = XmlUtil_ExtractAttribute(node, "type");
    ConstraintKind kind;
    if (!ConstraintKindFromKeyword(keyword, kind)) {
        throw TindraException(
            "Missing or invalid constraint 'type', must be one of [stringenum, intenum, regex, "
            "range] got '" +
            keyword + "'");
    }
    // Every matching child builds a new constraint, so the last one counts; the found mark
    // stays set once any of them held data.
    std::shared_ptr<ParameterConstraint> constraint;
    bool found = false;
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (!HasTag(child, kind.childTag)) {
            continue;
        }
        if (kind.type == CallSpec::ConstraintRegex) {
            constraint = MakeRegexConstraint(child);
            found = true;
        } else if (kind.type == CallSpec::ConstraintIntRange) {
            constraint = MakeRangeConstraint(child);
            found = true;
        } else {
            Enumeration const values = ExtractEnum(child);
            found = found || !values.empty();
            constraint = MakeEnumConstraint(kind.type, values);
        }
    }
    if (!found) {
        throw TindraException(
            "Error parsing parameter constraint.  There was no data included inside the "
            "<constraint> tag for the given constraint type");
    }
    return constraint;
}

Enumeration ExtractEnum(xmlNode* node) {
    Enumeration values;
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (IsSkippedChildName(GrammarNodeName(child))) {
            continue;
        }
        if (!HasTag(child, "enum-value")) {
            throw TindraException(
                std::string("Found unexpected tag while building an enum.  Unexpected tag was: ") +
                GrammarNodeName(child));
        }
        // One pair per piece of content, so an empty element counts for nothing.
        for (xmlNode* piece = FirstChildOf(child); piece != nullptr; piece = piece->next) {
            if (!CarriesContent(piece)) {
                continue;
            }
            std::string value = XmlUtil_ExtractAttribute(child, "value");
            if (value.empty()) {
                throw TindraException(
                    "Error parsing 'enum-value', missing required attribute 'value'");
            }
            values.emplace_back(std::move(value), NodeContent(piece));
        }
    }
    return values;
}

}  // namespace AutoCli
}  // namespace Tindra
