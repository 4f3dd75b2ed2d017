#include "autocli/extension/ElementAttributes.h"

#include <libxml/tree.h>
#include <libxml/valid.h>

#include <cstring>
#include <memory>

namespace Tindra {
namespace AutoCli {

namespace {

// Each attribute is reported as five pointers: local name, prefix, namespace, value, value end.
int const kFieldsPerAttribute = 5;

struct NodeListFree {
    void operator()(xmlNode* list) const { xmlFreeNodeList(list); }
};
struct XmlCharFree {
    void operator()(xmlChar* text) const { xmlFree(text); }
};

char const* Text(xmlChar const* text) {
    return reinterpret_cast<char const*>(text);
}

// The tree keeps an unbound prefix as part of the attribute's name.
bool HasTreeName(xmlChar const* const* attribute, char const* name) {
    xmlChar const* localName = attribute[0];
    xmlChar const* prefix = attribute[1];
    xmlChar const* uri = attribute[2];
    if (prefix == nullptr || uri != nullptr) {
        return std::strcmp(Text(localName), name) == 0;
    }
    size_t prefixLength = std::strlen(Text(prefix));
    return std::strncmp(Text(prefix), name, prefixLength) == 0 && name[prefixLength] == ':' &&
           std::strcmp(Text(localName), name + prefixLength + 1) == 0;
}

xmlChar const* ValueOf(xmlChar const** attributes, int index) {
    return attributes[index * kFieldsPerAttribute + 3];
}

xmlChar const* EndOf(xmlChar const** attributes, int index) {
    return attributes[index * kFieldsPerAttribute + 4];
}

// A value still in the input ends at its quote; a copied one (references kept for the tree
// builder to resolve) ends with a zero.
bool IsCopied(xmlChar const** attributes, int index) {
    return *EndOf(attributes, index) == 0;
}

}  // namespace

ElementAttributes::ElementAttributes(xmlParserCtxt* context, char const* elementName, int count,
                                     xmlChar const** attributes)
    : context(context), elementName(elementName), count(count), attributes(attributes) {
    for (int i = 0; i < count; ++i) {
        if (IsCopied(attributes, i)) {
            expanded.emplace_back(i, ExpandReferences(i));
        }
    }
}

std::string ElementAttributes::Get(char const* name) const {
    for (int i = 0; i < count; ++i) {
        if (HasTreeName(attributes + i * kFieldsPerAttribute, name)) {
            return Value(i);
        }
    }
    return DeclaredDefault(name);
}

std::string ElementAttributes::Value(int index) const {
    for (auto const& entry : expanded) {
        if (entry.first == index) {
            return entry.second;
        }
    }
    xmlChar const* value = ValueOf(attributes, index);
    return std::string(Text(value), static_cast<size_t>(EndOf(attributes, index) - value));
}

std::string ElementAttributes::ExpandReferences(int index) const {
    xmlChar const* value = ValueOf(attributes, index);
    xmlChar const* end = EndOf(attributes, index);
    std::unique_ptr<xmlNode, NodeListFree> list(
        xmlStringLenGetNodeList(context->myDoc, value, static_cast<int>(end - value)));
    if (!list) {
        return std::string();
    }
    if (list->next == nullptr &&
        (list->type == XML_TEXT_NODE || list->type == XML_CDATA_SECTION_NODE)) {
        return list->content != nullptr ? Text(list->content) : "";
    }
    std::unique_ptr<xmlChar, XmlCharFree> joined(
        xmlNodeListGetString(context->myDoc, list.get(), 1));
    return joined ? Text(joined.get()) : "";
}

std::string ElementAttributes::DeclaredDefault(char const* name) const {
    xmlDoc* document = context->myDoc;
    if (document == nullptr || document->intSubset == nullptr) {
        return std::string();
    }
    auto const* element = reinterpret_cast<xmlChar const*>(elementName);
    auto const* attribute = reinterpret_cast<xmlChar const*>(name);
    xmlAttribute* declaration = xmlGetDtdAttrDesc(document->intSubset, element, attribute);
    if (declaration == nullptr && document->extSubset != nullptr) {
        declaration = xmlGetDtdAttrDesc(document->extSubset, element, attribute);
    }
    if (declaration == nullptr || declaration->defaultValue == nullptr) {
        return std::string();
    }
    return Text(declaration->defaultValue);
}

}  // namespace AutoCli
}  // namespace Tindra
