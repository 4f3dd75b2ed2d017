// Builds values from a parsed element tree (descriptor prototypes and small documents).
#include "xml/ValueClone.h"
#include "xml/ValueGrammar.h"
#include "xml/XmlUtil.h"

namespace Tindra {
namespace AutoCli {

namespace {

template <typename Node>
Node* FirstValueChild(Node* node) {
    for (Node* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (!IsSkippedChildName(GrammarNodeName(child))) {
            return child;
        }
    }
    return nullptr;
}

template <typename Node>
void AddField(MetaObj::MetaStruct& structure, Node* field) {
    std::string name = XmlUtil_ExtractAttribute(field, "name");
    CheckFieldName(name);
    Node* valueNode = FirstValueChild(field);
    if (valueNode != nullptr) {
        structure.SetField(name, XmlUtil_BuildMetaObject(valueNode),
                           MetaObj::MetaStruct::_docEmpty);
    }
}

}  // namespace

template <typename Node>
std::shared_ptr<MetaObj::MetaObject> XmlUtil_BuildMetaObject(Node* node) {
    ValueTag tag = ClassifyValueTag(GrammarNodeName(node));
    switch (tag) {
        case ValueTag::List:
            return BuildMetaList(node);
        case ValueTag::Structure:
            return BuildMetaStruct(node);
        default:
            return MakeScalarValue(tag, XmlUtil_GetContent(node));
    }
}

template <typename Node>
std::shared_ptr<MetaObj::MetaStruct> BuildMetaStruct(Node* node) {
    auto structure = MetaObj::MetaStruct::New(XmlUtil_ExtractAttribute(node, "typeName"));
    // Counted first: descriptors keep thousands of these prototypes, each exactly this size.
    size_t fieldCount = 0;
    for (Node* child = FirstChildOf(node); child != nullptr; child = child->next) {
        fieldCount += IsFieldName(GrammarNodeName(child)) ? 1 : 0;
    }
    structure->ReserveFields(fieldCount);
    for (Node* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (IsFieldName(GrammarNodeName(child))) {
            AddField(*structure, child);
        }
    }
    return structure;
}

template <typename Node>
std::shared_ptr<MetaObj::MetaList> BuildMetaList(Node* node) {
    MetaObj::MetaType itemType = ListItemTypeFromAttribute(XmlUtil_ExtractAttribute(node, "type"));
    // The first item of a compound list is built once and serves as its prototype too;
    // building it twice doubled the work at every level of nested lists.
    Node* first = IsCompoundItemType(itemType) ? FirstValueChild(node) : nullptr;
    std::shared_ptr<MetaObj::MetaObject> firstItem;
    if (first != nullptr) {
        firstItem = XmlUtil_BuildMetaObject(first);
    }
    auto list = MakeValueList(itemType, ListPrototypeOf(firstItem));
    for (Node* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (child == first) {
            list->Add(firstItem);
        } else if (!IsSkippedChildName(GrammarNodeName(child))) {
            list->Add(XmlUtil_BuildMetaObject(child));
        }
    }
    return list;
}

// The builders for the parser's tree and for its compact copy.
std::shared_ptr<MetaObj::MetaObject> XmlUtil_BuildMetaObject(xmlNode* node) {
    return XmlUtil_BuildMetaObject<xmlNode>(node);
}
std::shared_ptr<MetaObj::MetaStruct> BuildMetaStruct(xmlNode* node) {
    return BuildMetaStruct<xmlNode>(node);
}
std::shared_ptr<MetaObj::MetaList> BuildMetaList(xmlNode* node) {
    return BuildMetaList<xmlNode>(node);
}

template std::shared_ptr<MetaObj::MetaObject> XmlUtil_BuildMetaObject(CompactNode const* node);
template std::shared_ptr<MetaObj::MetaStruct> BuildMetaStruct(CompactNode const* node);
template std::shared_ptr<MetaObj::MetaList> BuildMetaList(CompactNode const* node);

}  // namespace AutoCli
}  // namespace Tindra
