#include "xml/OutputValueBuilder.h"

#include "tindra/TindraException.h"
#include "xml/ElementAttributes.h"
#include "xml/ValueClone.h"

namespace Tindra {
namespace AutoCli {

namespace {

// The tree's names for nodes that are not elements.
char const* const kCommentName = "comment";
char const* const kCdataName = "";

}  // namespace

template <typename Step>
void OutputValueBuilder::Guarded(Step step) {
    if (failed) {
        return;
    }
    try {
        step();
    } catch (TindraException const& problem) {
        failed = true;
        error = problem.what();
        frames.clear();
        value.reset();
    }
}

void OutputValueBuilder::ElementStart(char const* name, AttributeSource const& attributes) {
    Guarded([&] {
        if (!frames.empty()) {
            OpenChild(name, attributes, true);
        } else if (!sawRoot) {
            sawRoot = true;
            frames.emplace_back(Role::Root);
        }
    });
}

void OutputValueBuilder::ElementEnd() {
    Guarded([&] {
        if (!frames.empty()) {
            CloseTop();
        }
    });
}

void OutputValueBuilder::Characters(char const* text, size_t length) {
    Guarded([&] { AddContent(LastChild::Text, text, length); });
}

void OutputValueBuilder::CdataBlock(char const* text, size_t length) {
    Guarded([&] { AddContent(LastChild::Cdata, text, length); });
}

void OutputValueBuilder::Comment(char const* text) {
    Guarded([&] { AddContent(LastChild::Other, text, std::char_traits<char>::length(text)); });
}

void OutputValueBuilder::OtherNode(char const* name) {
    Guarded([&] {
        if (!frames.empty()) {
            OpenChild(name, NoAttributes(), false);
        }
    });
}

void OutputValueBuilder::DocumentEnd() {
    Guarded([&] {
        while (!frames.empty()) {
            CloseTop();
        }
    });
}

// Text, CDATA and comment nodes: the text of a scalar, a skipped or nameless node elsewhere.
// A comment always makes a node of its own; text and CDATA continue a node of their kind.
void OutputValueBuilder::AddContent(LastChild kind, char const* text, size_t length) {
    if (frames.empty()) {
        return;
    }
    Frame& top = frames.back();
    bool continues = kind != LastChild::Other && top.lastChild == kind;
    if (top.role == Role::Scalar) {
        if (continues) {
            top.text.append(text, length);
        } else {
            top.text.assign(text, length);
        }
        top.lastChild = kind;
        return;
    }
    if (continues) {
        return;
    }
    if (kind == LastChild::Text) {
        // A text node is passed over by every frame but a scalar's; this is the commonest node.
        top.lastChild = kind;
        return;
    }
    char const* name = kind == LastChild::Cdata ? kCdataName : kCommentName;
    OpenChild(name, NoAttributes(), false);
    if (!frames.empty()) {
        frames.back().lastChild = kind;
    }
}

void OutputValueBuilder::OpenChild(char const* name, AttributeSource const& attributes,
                                   bool isElement) {
    Frame& parent = frames.back();
    parent.lastChild = LastChild::Other;
    bool skipped = IsSkippedChildName(name);
    switch (parent.role) {
        case Role::Root:
        case Role::Field:
            if (!parent.hasValueChild && !skipped) {
                parent.hasValueChild = true;
                StartValue(name, attributes, isElement);
                return;
            }
            break;
        case Role::List:
            if (!skipped) {
                StartValue(name, attributes, isElement);
                return;
            }
            break;
        case Role::Structure:
            if (IsFieldName(name)) {
                StartField(attributes, isElement);
                return;
            }
            break;
        default:
            break;
    }
    if (isElement) {
        frames.emplace_back(Role::Skipped);
    }
}

void OutputValueBuilder::StartValue(char const* name, AttributeSource const& attributes,
                                    bool isElement) {
    ValueTag tag = ClassifyValueTag(name);
    if (tag == ValueTag::List) {
        Frame frame(Role::List);
        frame.itemType = ListItemTypeFromAttribute(attributes.Get("type"));
        if (!IsCompoundItemType(frame.itemType)) {
            frame.list = MakeValueList(frame.itemType, nullptr);
        }
        frames.push_back(std::move(frame));
    } else if (tag == ValueTag::Structure) {
        Frame frame(Role::Structure);
        frame.structure = MetaObj::MetaStruct::New(attributes.Get("typeName"));
        ReserveLikeSiblings(*frame.structure);
        frames.push_back(std::move(frame));
    } else {
        frames.emplace_back(Role::Scalar);
        frames.back().tag = tag;
    }
    if (!isElement) {
        CloseTop();  // nodes other than elements have no children
    }
}

// Items of a list of structures have the fields of its first item.
void OutputValueBuilder::ReserveLikeSiblings(MetaObj::MetaStruct& structure) const {
    Frame const& parent = frames.back();
    if (parent.role == Role::List && parent.list) {
        if (auto const& prototype = parent.list->GetListStructure()) {
            structure.ReserveFields(prototype->GetFieldCount());
        }
    }
}

void OutputValueBuilder::StartField(AttributeSource const& attributes, bool isElement) {
    std::string name = attributes.Get("name");
    CheckFieldName(name);
    frames.emplace_back(Role::Field);
    frames.back().fieldName = std::move(name);
    if (!isElement) {
        CloseTop();
    }
}

void OutputValueBuilder::CloseTop() {
    // The finished frame stays in place until its value is handed to its parent.
    Frame& frame = frames.back();
    std::shared_ptr<MetaObj::MetaObject> finished;
    switch (frame.role) {
        case Role::Root:
            value = std::move(frame.value);
            break;
        case Role::Field:
            if (frame.value) {
                Frame& parent = frames[frames.size() - 2];
                parent.structure->SetField(frame.fieldName, frame.value,
                                           MetaObj::MetaStruct::_docEmpty);
            }
            break;
        case Role::List:
            if (!frame.list) {
                frame.list = MakeValueList(frame.itemType, nullptr);
            }
            finished = std::move(frame.list);
            break;
        case Role::Structure:
            finished = std::move(frame.structure);
            break;
        case Role::Scalar:
            finished = MakeScalarValue(frame.tag, std::move(frame.text));
            break;
        case Role::Skipped:
            break;
    }
    frames.pop_back();
    if (finished) {
        Deliver(std::move(finished));
    }
}

void OutputValueBuilder::Deliver(std::shared_ptr<MetaObj::MetaObject> item) {
    Frame& parent = frames.back();
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

}  // namespace AutoCli
}  // namespace Tindra
