// The small node readers shared by the output reader and the descriptor reader.
#include <cstring>

#include "autocli/extension/ValueGrammar.h"
#include "autocli/extension/XmlUtil.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

namespace {

// Owns a string handed out by libxml2.
struct XmlCharDeleter {
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using XmlString = std::unique_ptr<xmlChar, XmlCharDeleter>;

bool HasName(xmlNode const* node, char const* tag) {
    return std::strcmp(GrammarNodeName(node), tag) == 0;
}

}  // namespace

std::string XmlUtil_ExtractAttribute(xmlNode* node, char const* name) {
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
        if (CarriesContent(child) && child->content != nullptr) {
            content = reinterpret_cast<char const*>(child->content);
        }
    }
    return std::string(content);
}

std::string XmlUtil_GetContentForChildByTag(xmlNode* node, char const* tag) {
    std::string found;
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (!HasName(child, tag)) {
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
        if (!HasName(child, tag)) {
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
