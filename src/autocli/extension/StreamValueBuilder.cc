#include "autocli/extension/StreamValueBuilder.h"

#include "autocli/extension/ValueClone.h"
#include "autocli/extension/ValueGrammar.h"
#include "autocli/extension/XmlUtil.h"

namespace Tindra {
namespace AutoCli {

template <typename Visit>
void StreamValueBuilder::ForEachChild(Visit visit) {
    if (!reader.IsElementWithContent()) {
        return;
    }
    int const depth = reader.Depth();
    while (reader.Read()) {
        if (reader.IsEndElementAt(depth)) {
            return;
        }
        visit();
    }
    throw MalformedDocument();
}

std::shared_ptr<MetaObj::MetaObject> StreamValueBuilder::BuildValue() {
    ValueTag tag = ClassifyValueTag(GrammarNodeName(reader.Node()));
    switch (tag) {
        case ValueTag::List:
            return BuildList();
        case ValueTag::Structure:
            return BuildStruct();
        default:
            return MakeScalarValue(tag, ReadContent());
    }
}

std::shared_ptr<MetaObj::MetaObject> StreamValueBuilder::BuildFirstValueChild() {
    std::shared_ptr<MetaObj::MetaObject> value;
    bool found = false;
    ForEachChild([&] {
        if (!found && !IsSkippedChildName(GrammarNodeName(reader.Node()))) {
            found = true;
            value = BuildValue();
        } else {
            reader.SkipSubtree();
        }
    });
    return value;
}

std::string StreamValueBuilder::ReadContent() {
    std::string text;
    ForEachChild([&] {
        xmlNode* child = reader.Node();
        if (CarriesContent(child) && child->content != nullptr) {
            text.assign(reinterpret_cast<char const*>(child->content));
        } else {
            reader.SkipSubtree();
        }
    });
    return text;
}

std::shared_ptr<MetaObj::MetaStruct> StreamValueBuilder::BuildStruct() {
    auto structure = MetaObj::MetaStruct::New(XmlUtil_ExtractAttribute(reader.Node(), "typeName"));
    ForEachChild([&] {
        if (IsFieldName(GrammarNodeName(reader.Node()))) {
            AddField(*structure);
        } else {
            reader.SkipSubtree();
        }
    });
    return structure;
}

void StreamValueBuilder::AddField(MetaObj::MetaStruct& structure) {
    std::string name = XmlUtil_ExtractAttribute(reader.Node(), "name");
    CheckFieldName(name);
    auto value = BuildFirstValueChild();
    if (value) {
        structure.SetField(name, value, MetaObj::MetaStruct::_docEmpty);
    }
}

std::shared_ptr<MetaObj::MetaList> StreamValueBuilder::BuildList() {
    MetaObj::MetaType itemType =
        ListItemTypeFromAttribute(XmlUtil_ExtractAttribute(reader.Node(), "type"));
    std::shared_ptr<MetaObj::MetaList> list;
    if (!IsCompoundItemType(itemType)) {
        list = MakeValueList(itemType, nullptr);
    }
    ForEachChild([&] {
        if (IsSkippedChildName(GrammarNodeName(reader.Node()))) {
            reader.SkipSubtree();
            return;
        }
        auto item = BuildValue();
        if (!list) {
            // The first item doubles as the prototype; the list gets its own copy so that
            // locking the prototype does not lock the item.
            list = MakeValueList(itemType, item);
            item = CloneValue(item);
        }
        list->Add(item);
    });
    if (!list) {
        list = MakeValueList(itemType, nullptr);
    }
    return list;
}

}  // namespace AutoCli
}  // namespace Tindra
