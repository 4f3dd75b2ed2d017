#include "xml/OutputValueBuilder.h"

#include "tindra/TindraException.h"
#include "xml/ValueClone.h"
#include "xml/XmlUtil.h"

namespace Tindra {
namespace AutoCli {

namespace {

void FreeChildren(xmlNode* parent) {
    xmlNode* children = parent->children;
    parent->children = nullptr;
    parent->last = nullptr;
    xmlFreeNodeList(children);
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
    frames.emplace_back(element, Role::Passive);
    Guarded([&] {
        Frame& parent = frames[frames.size() - 2];
        if (parent.role == Role::Scalar) {
            parent.lastChild = LastChild::Other;
        } else if (parent.role != Role::Passive) {
            frames.back() = ChildFrame(parent, element);
        }
    });
}

// A scalar's text is the content of its last text, CDATA or comment child, not of all of
// them. Consecutive text makes one text node, consecutive CDATA one CDATA node.
void OutputValueBuilder::AddContent(Content kind, char const* text, size_t length) {
    Frame& scalar = frames.back();
    LastChild const child = kind == Content::Text    ? LastChild::Text
                            : kind == Content::Cdata ? LastChild::Cdata
                                                     : LastChild::Other;
    if (child != LastChild::Other && scalar.lastChild == child) {
        scalar.text.append(text, length);
    } else {
        scalar.text.assign(text, length);
    }
    scalar.lastChild = child;
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
            return ValueFrame(parent, child);
        case Role::List:
            if (IsSkippedChildName(name)) {
                break;
            }
            return ValueFrame(parent, child);
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

OutputValueBuilder::Frame OutputValueBuilder::ValueFrame(Frame const& parent, xmlNode* node) {
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
            case Role::Scalar:
                parent.lastChild = LastChild::Other;
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
    Guarded([&] {
        Frame& frame = frames.back();
        if (frame.role == Role::Root) {
            value = std::move(frame.value);
        } else if (frame.role == Role::Field) {
            if (frame.value) {
                frames[frames.size() - 2].structure->SetField(frame.fieldName, frame.value,
                                                              MetaObj::MetaStruct::_docEmpty);
            }
        } else if (auto item = Finished(frame)) {
            Deliver(frames[frames.size() - 2], std::move(item));
        }
    });
    frames.pop_back();
    FreeWhatIsRead();
}

std::shared_ptr<MetaObj::MetaObject> OutputValueBuilder::Finished(Frame& frame) {
    switch (frame.role) {
        case Role::Scalar:
            return MakeScalarValue(frame.tag, std::move(frame.text));
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

// Everything under an element has been read once one of its child elements closes.
void OutputValueBuilder::FreeWhatIsRead() {
    if (!frames.empty()) {
        FreeChildren(frames.back().node);  // the root element is freed with the document
    }
}

}  // namespace AutoCli
}  // namespace Tindra
