#include "xml/ElementAttributes.h"

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

xmlChar const* LocalNameOf(xmlChar const** attributes, int index) {
    return attributes[index * kFieldsPerAttribute];
}

xmlChar const* PrefixOf(xmlChar const** attributes, int index) {
    return attributes[index * kFieldsPerAttribute + 1];
}

xmlChar const* UriOf(xmlChar const** attributes, int index) {
    return attributes[index * kFieldsPerAttribute + 2];
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
        // The tree keeps an unbound prefix as part of the attribute's name.
        if (PrefixOf(attributes, i) != nullptr && UriOf(attributes, i) == nullptr) {
            qualified.emplace_back(i, std::string(Text(PrefixOf(attributes, i))) + ":" +
                                          Text(LocalNameOf(attributes, i)));
        }
    }
}

std::string ElementAttributes::Get(char const* name) const {
    for (int i = 0; i < count; ++i) {
        if (HasTreeName(i, name)) {
            return std::string(Value(i));
        }
    }
    return DeclaredDefault(name);
}

WrittenAttribute ElementAttributes::Written(int index) const {
    return {TreeName(index), Value(index), UriOf(attributes, index) != nullptr};
}

bool ElementAttributes::MayAddDeclaredDefaults() const {
    return context->myDoc != nullptr && context->myDoc->intSubset != nullptr;
}

bool ElementAttributes::HasTreeName(int index, char const* name) const {
    if (qualified.empty()) {  // the usual tag: every attribute is known by its local name
        return std::strcmp(Text(LocalNameOf(attributes, index)), name) == 0;
    }
    return TreeName(index) == name;
}

std::string_view ElementAttributes::TreeName(int index) const {
    for (auto const& entry : qualified) {
        if (entry.first == index) {
            return entry.second;
        }
    }
    return Text(LocalNameOf(attributes, index));
}

std::string_view ElementAttributes::Value(int index) const {
    for (auto const& entry : expanded) {
        if (entry.first == index) {
            return entry.second;
        }
    }
    xmlChar const* value = ValueOf(attributes, index);
    return std::string_view(Text(value), static_cast<size_t>(EndOf(attributes, index) - value));
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
    if (!MayAddDeclaredDefaults()) {
        return std::string();
    }
    xmlDoc* document = context->myDoc;
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
