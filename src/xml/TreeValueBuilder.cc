// Builds values from a parsed element tree (descriptor prototypes and small documents).
#include "xml/ValueClone.h"
#include "xml/ValueGrammar.h"
#include "xml/XmlUtil.h"

namespace Tindra {
namespace AutoCli {

namespace {

xmlNode* FirstValueChild(xmlNode* node) {
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (!IsSkippedChildName(GrammarNodeName(child))) {
            return child;
        }
    }
    return nullptr;
}

void AddField(MetaObj::MetaStruct& structure, xmlNode* field) {
    std::string name = XmlUtil_ExtractAttribute(field, "name");
    CheckFieldName(name);
    xmlNode* valueNode = FirstValueChild(field);
    if (valueNode != nullptr) {
        structure.SetField(name, XmlUtil_BuildMetaObject(valueNode),
                           MetaObj::MetaStruct::_docEmpty);
    }
}

}  // namespace

std::shared_ptr<MetaObj::MetaObject> XmlUtil_BuildMetaObject(xmlNode* node) {
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

std::shared_ptr<MetaObj::MetaStruct> BuildMetaStruct(xmlNode* node) {
    auto structure = MetaObj::MetaStruct::New(XmlUtil_ExtractAttribute(node, "typeName"));
    // Counted first: descriptors keep thousands of these prototypes, each exactly this size.
    size_t fieldCount = 0;
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        fieldCount += IsFieldName(GrammarNodeName(child)) ? 1 : 0;
    }
    structure->ReserveFields(fieldCount);
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (IsFieldName(GrammarNodeName(child))) {
            AddField(*structure, child);
        }
    }
    return structure;
}

std::shared_ptr<MetaObj::MetaList> BuildMetaList(xmlNode* node) {
    MetaObj::MetaType itemType = ListItemTypeFromAttribute(XmlUtil_ExtractAttribute(node, "type"));
    // The first item of a compound list is built once and serves as its prototype too;
    // building it twice doubled the work at every level of nested lists.
    xmlNode* first = IsCompoundItemType(itemType) ? FirstValueChild(node) : nullptr;
    std::shared_ptr<MetaObj::MetaObject> firstItem;
    if (first != nullptr) {
        firstItem = XmlUtil_BuildMetaObject(first);
    }
    auto list = MakeValueList(itemType, ListPrototypeOf(firstItem));
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (child == first) {
            list->Add(firstItem);
        } else if (!IsSkippedChildName(GrammarNodeName(child))) {
            list->Add(XmlUtil_BuildMetaObject(child));
        }
    }
    return list;
}

}  // namespace AutoCli
}  // namespace Tindra
