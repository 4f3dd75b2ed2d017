#include "xml/OutputValueBuilder.h"

#include "tindra/TindraException.h"
#include "xml/ValueClone.h"
#include "xml/XmlUtil.h"

namespace Tindra {
namespace AutoCli {

namespace {

void FreeChildren(xmlNode* parent) {
    while (xmlNode* child = parent->children) {
        xmlUnlinkNode(child);
        xmlFreeNode(child);
    }
}

}  // namespace

template <typename Step>
void OutputValueBuilder::Guarded(Step step) {
    if (failed) {
        return;
    }
    try {
        step();
    } catch (TindraException const& problem) {
        // The first error is the answer; the rest of the document is only passed over.
        failed = true;
        error = problem.what();
        value.reset();
        for (Frame& frame : frames) {
            frame = Frame(frame.node, Role::Passive);
        }
    }
}

void OutputValueBuilder::ElementOpened(xmlNode* element) {
    if (frames.empty()) {
        frames.emplace_back(element, sawRoot ? Role::Passive : Role::Root);
        sawRoot = true;
        return;
    }
    Frame frame(element, Role::Passive);
    Guarded([&] { frame = ChildFrame(frames.back(), element); });
    frames.push_back(std::move(frame));
}

// What a child element is to its parent: the parent's value, an item, a field or nothing.
OutputValueBuilder::Frame OutputValueBuilder::ChildFrame(Frame& parent, xmlNode* child) {
    char const* name = GrammarNodeName(child);
    switch (parent.role) {
        case Role::Root:
        case Role::Field:
            if (parent.hasValueChild || IsSkippedChildName(name)) {
                break;
            }
            parent.hasValueChild = true;
            return ValueFrame(child);
        case Role::List:
            if (IsSkippedChildName(name)) {
                break;
            }
            return ValueFrame(child);
        case Role::Structure:
            if (IsFieldName(name)) {
                Frame field(child, Role::Field);
                field.fieldName = XmlUtil_ExtractAttribute(child, "name");
                CheckFieldName(field.fieldName);
                return field;
            }
            break;
        default:
            break;
    }
    return Frame(child, Role::Passive);
}

OutputValueBuilder::Frame OutputValueBuilder::ValueFrame(xmlNode* node) const {
    ValueTag const tag = ClassifyValueTag(GrammarNodeName(node));
    if (tag == ValueTag::List) {
        Frame frame(node, Role::List);
        frame.itemType = ListItemTypeFromAttribute(XmlUtil_ExtractAttribute(node, "type"));
        if (!IsCompoundItemType(frame.itemType)) {
            frame.list = MakeValueList(frame.itemType, nullptr);
        }
        return frame;
    }
    if (tag == ValueTag::Structure) {
        Frame frame(node, Role::Structure);
        frame.structure = MetaObj::MetaStruct::New(XmlUtil_ExtractAttribute(node, "typeName"));
        // Items of a list of structures have the fields of its first item.
        Frame const& parent = frames.back();
        if (parent.role == Role::List && parent.list && parent.list->GetListStructure()) {
            frame.structure->ReserveFields(parent.list->GetListStructure()->GetFieldCount());
        }
        return frame;
    }
    Frame frame(node, Role::Scalar);
    frame.tag = tag;
    return frame;
}

void OutputValueBuilder::NodeAdded(xmlNode* node) {
    if (frames.empty()) {
        return;
    }
    Guarded([&] {
        Frame& parent = frames.back();
        char const* name = GrammarNodeName(node);
        switch (parent.role) {
            case Role::Root:
            case Role::Field:
                if (!parent.hasValueChild && !IsSkippedChildName(name)) {
                    parent.hasValueChild = true;
                    Deliver(parent, XmlUtil_BuildMetaObject(node));
                }
                break;
            case Role::List:
                if (!IsSkippedChildName(name)) {
                    Deliver(parent, XmlUtil_BuildMetaObject(node));
                }
                break;
            case Role::Structure:
                if (IsFieldName(name)) {
                    CheckFieldName(XmlUtil_ExtractAttribute(node, "name"));
                }
                break;
            default:
                break;
        }
    });
}

void OutputValueBuilder::ElementClosed() {
    if (frames.empty()) {
        return;
    }
    Frame frame = std::move(frames.back());
    frames.pop_back();
    Guarded([&] {
        if (frame.role == Role::Root) {
            value = std::move(frame.value);
        } else if (frame.role == Role::Field) {
            if (frame.value) {
                frames.back().structure->SetField(frame.fieldName, frame.value,
                                                  MetaObj::MetaStruct::_docEmpty);
            }
        } else if (auto item = Finished(frame)) {
            Deliver(frames.back(), std::move(item));
        }
    });
    FreeWhatIsRead(frame.node);
}

std::shared_ptr<MetaObj::MetaObject> OutputValueBuilder::Finished(Frame& frame) {
    switch (frame.role) {
        case Role::Scalar:
            return MakeScalarValue(frame.tag, XmlUtil_GetContent(frame.node));
        case Role::List:
            return frame.list ? std::move(frame.list) : MakeValueList(frame.itemType, nullptr);
        case Role::Structure:
            return std::move(frame.structure);
        default:
            return nullptr;
    }
}

void OutputValueBuilder::Deliver(Frame& parent, std::shared_ptr<MetaObj::MetaObject> item) {
    if (parent.role != Role::List) {
        parent.value = std::move(item);  // Root or Field: their one value
        return;
    }
    if (!parent.list) {
        // The first item of a compound list also gives the list its prototype, as in the
        // tree builder.
        parent.list = MakeValueList(parent.itemType, ListPrototypeOf(item));
    }
    parent.list->Add(item);
}

// Everything under an element that is not a scalar has been read once one of its child
// elements closes. A scalar's text is the content of its last content child, so its child
// elements stay as separators between texts, emptied.
void OutputValueBuilder::FreeWhatIsRead(xmlNode* closed) {
    if (frames.empty()) {
        return;  // the root element: freed with the document
    }
    if (frames.back().role == Role::Scalar) {
        FreeChildren(closed);
    } else {
        FreeChildren(frames.back().node);
    }
}

}  // namespace AutoCli
}  // namespace Tindra
