#include "xml/ValueGrammar.h"

#include <cstring>
#include <limits>

#include "tindra/TindraException.h"
#include "tindra/metaobj/MetaBool.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaString.h"

namespace Tindra {
namespace AutoCli {

using MetaObj::MetaType;

namespace {

bool Same(char const* a, char const* b) {
    return std::strcmp(a, b) == 0;
}

// The white space of the classic locale, which formatted extraction skips.
bool IsClassicSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::shared_ptr<MetaObj::MetaObject> MakeInt(std::string const& text) {
    if (text.empty()) {
        return MetaObj::MetaInt::New();
    }
    long value = 0;
    if (!ReadLeadingInt(text, value)) {
        throw TindraException("Unable to read an int value from: '" + text + "'");
    }
    return MetaObj::MetaInt::New(value);
}

std::shared_ptr<MetaObj::MetaObject> MakeBool(std::string const& text) {
    bool isFalse = text == "false" || text == "f" || text == "0";
    return MetaObj::MetaBool::New(!isFalse);
}

}  // namespace

char const* GrammarNodeName(xmlNode const* node) {
    return node->name != nullptr ? reinterpret_cast<char const*>(node->name) : "";
}

xmlNode* FirstChildOf(xmlNode* node) {
    return node->type == XML_ELEMENT_NODE ? node->children : nullptr;
}

bool IsSkippedChildName(char const* name) {
    // Tested for every node of a document, hence the look at the first letter before comparing.
    return (name[0] == 't' && Same(name, "text")) || (name[0] == 'c' && Same(name, "comment"));
}

bool CarriesContent(xmlNode const* node) {
    return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE ||
           node->type == XML_COMMENT_NODE;
}

char const* ContentOf(xmlNode const* node) {
    return CarriesContent(node) ? reinterpret_cast<char const*>(node->content) : nullptr;
}

ValueTag ClassifyValueTag(char const* name) {
    // Tested in the order text, comment, list, structure, int, bool, string; the first letter
    // tells which of them can match.
    switch (name[0]) {
        case 't':
            if (Same(name, "text")) {
                throw TindraException("Trying to make a meta object from a text field");
            }
            break;
        case 'c':
            if (Same(name, "comment")) {
                throw TindraException("Trying to make a meta object from a comment");
            }
            break;
        case 'l':
            if (Same(name, "list")) {
                return ValueTag::List;
            }
            break;
        case 's':
            if (Same(name, "structure")) {
                return ValueTag::Structure;
            }
            if (Same(name, "string")) {
                return ValueTag::String;
            }
            break;
        case 'i':
            if (Same(name, "int")) {
                return ValueTag::Int;
            }
            break;
        case 'b':
            if (Same(name, "bool")) {
                return ValueTag::Bool;
            }
            break;
        default:
            break;
    }
    throw TindraException(std::string("Unable to make a MetaObject from a node with tag '") + name +
                          "'");
}

std::shared_ptr<MetaObj::MetaObject> MakeScalarValue(ValueTag tag, std::string&& text) {
    switch (tag) {
        case ValueTag::Int:
            return MakeInt(text);
        case ValueTag::Bool:
            return MakeBool(text);
        case ValueTag::String:
            return MetaObj::MetaString::New(std::move(text));
        default:
            throw TindraException("Not a scalar value tag");
    }
}

bool ReadLeadingInt(std::string const& text, long& value) {
    size_t pos = 0;
    while (pos < text.size() && IsClassicSpace(text[pos])) {
        ++pos;
    }
    bool negative = false;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
        negative = text[pos] == '-';
        ++pos;
    }
    // Accumulate the magnitude unsigned so that the most negative value is representable.
    unsigned long const limit =
        negative ? static_cast<unsigned long>(std::numeric_limits<long>::max()) + 1UL
                 : static_cast<unsigned long>(std::numeric_limits<long>::max());
    unsigned long magnitude = 0;
    bool overflow = false;
    size_t const firstDigit = pos;
    for (; pos < text.size() && IsDigit(text[pos]); ++pos) {
        unsigned long digit = static_cast<unsigned long>(text[pos] - '0');
        if (magnitude > (limit - digit) / 10) {
            overflow = true;
        } else {
            magnitude = magnitude * 10 + digit;
        }
    }
    if (pos == firstDigit || overflow) {
        return false;
    }
    value = negative ? static_cast<long>(0UL - magnitude) : static_cast<long>(magnitude);
    return true;
}

MetaType ListItemTypeFromAttribute(std::string const& type) {
    if (type == "string") {
        return MetaType::String;
    }
    if (type == "int") {
        return MetaType::Int;
    }
    if (type == "bool") {
        return MetaType::Bool;
    }
    if (type == "structure") {
        return MetaType::Struct;
    }
    if (type == "list") {
        return MetaType::List;
    }
    throw TindraException(
        "Invalid list type attribute.  Must be one of [string, int, bool, structure, list]");
}

bool IsCompoundItemType(MetaType itemType) {
    return itemType == MetaType::Struct || itemType == MetaType::List;
}

std::shared_ptr<MetaObj::MetaList> MakeValueList(
    MetaType itemType, std::shared_ptr<MetaObj::MetaObject> const& proto) {
    if (IsCompoundItemType(itemType)) {
        return MetaObj::MetaList::New(itemType, proto);
    }
    return MetaObj::MetaList::New(itemType);
}

void CheckFieldName(std::string const& name) {
    if (name.empty()) {
        throw TindraException("Invalid <field> tag found.  <field> requires a 'name' attribute.");
    }
}

bool IsFieldName(char const* name) {
    return Same(name, "field");
}

std::string OutputBuildErrorMessage(char const* inner) {
    return std::string(
               "Error parsing command output.  Unable to build a proper metaobject from output "
               "tag.  output must contain properly formatted tags of type bool, int, string, "
               "structure and list. Error was : ") +
           inner;
}

char const* NoRootElementMessage() {
    return "Error parsing command output.  Unable to find a properly formatted output tag as the "
           "document root";
}

}  // namespace AutoCli
}  // namespace Tindra
