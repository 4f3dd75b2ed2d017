// The small node readers shared by the output reader and the descriptor reader.
#include <cstring>

#include "tindra/TindraException.h"
#include "xml/ValueGrammar.h"
#include "xml/XmlUtil.h"

namespace Tindra {
namespace AutoCli {

namespace {

// Owns a string handed out by libxml2.
struct XmlCharDeleter {
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using XmlString = std::unique_ptr<xmlChar, XmlCharDeleter>;

xmlAttr const* FindAttribute(xmlNode const* node, char const* name) {
    for (xmlAttr const* attribute = node->properties; attribute != nullptr;
         attribute = attribute->next) {
        if (std::strcmp(reinterpret_cast<char const*>(attribute->name), name) == 0) {
            return attribute;
        }
    }
    return nullptr;
}

// The value when it is a single text node, as parsing makes it; nullptr otherwise.
char const* PlainValue(xmlAttr const* attribute) {
    xmlNode const* value = attribute != nullptr ? attribute->children : nullptr;
    bool const plain = value != nullptr && value->next == nullptr &&
                       (value->type == XML_TEXT_NODE || value->type == XML_CDATA_SECTION_NODE);
    return plain ? reinterpret_cast<char const*>(value->content) : nullptr;
}

bool MayHaveDefaultAttributes(xmlNode const* node) {
    return node->doc != nullptr && node->doc->intSubset != nullptr;
}

}  // namespace

std::string XmlUtil_ExtractAttribute(xmlNode* node, char const* name) {
    // Read in place where possible: every element of every descriptor is asked for several
    // attributes, and copying each value through libxml2 showed in the loading profile. The
    // rare rest (entity references, defaults from a document type) is left to libxml2.
    if (node->type == XML_ELEMENT_NODE) {
        xmlAttr const* attribute = FindAttribute(node, name);
        if (attribute == nullptr && !MayHaveDefaultAttributes(node)) {
            return std::string();
        }
        if (char const* value = PlainValue(attribute)) {
            return std::string(value);
        }
    }
    XmlString value(xmlGetProp(node, reinterpret_cast<xmlChar const*>(name)));
    if (!value) {
        return std::string();
    }
    return std::string(reinterpret_cast<char const*>(value.get()));
}

std::string XmlUtil_ExtractAttribute(xmlNode* node, std::string const& name) {
    return XmlUtil_ExtractAttribute(node, name.c_str());
}

std::string XmlUtil_GetContent(xmlNode* node) {
    char const* content = "";
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (char const* text = ContentOf(child)) {
            content = text;
        }
    }
    return std::string(content);
}

std::string XmlUtil_GetContentForChildByTag(xmlNode* node, char const* tag) {
    std::string found;
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (!HasTag(child, tag)) {
            continue;
        }
        if (!found.empty()) {
            throw TindraException(std::string("Illegal Duplicate tags found.  The tag ") + tag +
                                  " was expected only once, but was found multiple times.");
        }
        found = XmlUtil_GetContent(child);
    }
    return found;
}

std::string XmlUtil_GetContentForChildByTag(xmlNode* node, std::string const& tag) {
    return XmlUtil_GetContentForChildByTag(node, tag.c_str());
}

xmlNode* XmlUtil_FindChildNode(xmlNode* node, char const* tag) {
    xmlNode* found = nullptr;
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (!HasTag(child, tag)) {
            continue;
        }
        if (found != nullptr) {
            throw TindraException(std::string("More than one instance of ") + tag +
                                  " found, expected only one.");
        }
        found = child;
    }
    return found;
}

xmlNode* XmlUtil_FindChildNode(xmlNode* node, std::string const& tag) {
    return XmlUtil_FindChildNode(node, tag.c_str());
}

}  // namespace AutoCli
}  // namespace Tindra
