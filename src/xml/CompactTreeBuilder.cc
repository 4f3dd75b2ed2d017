#include "xml/CompactTreeBuilder.h"

#include <libxml/parserInternals.h>

#include <cstdint>
#include <cstring>

namespace Tindra {
namespace AutoCli {

namespace {

char const* Text(xmlChar const* text) {
    return reinterpret_cast<char const*>(text);
}

// The tree's names for text and comment nodes are libxml2's own constants; it has no name for
// a CDATA node.
char const* const kCdataName = "";

}  // namespace

void CompactTreeBuilder::ElementStart(char const* name, AttributeSource const& attributes) {
    if (attributes.MayAddDeclaredDefaults()) {
        faithful = false;
    }
    CompactNode* element = Append(CompactKind::Element, CopyName(name));
    if (element == nullptr) {
        return;
    }
    CopyAttributes(*element, attributes);
    open.push_back({element, nullptr});
}

void CompactTreeBuilder::ElementEnd() {
    if (!open.empty()) {
        open.pop_back();
    }
}

void CompactTreeBuilder::Characters(char const* text, size_t length) {
    AddText(CompactKind::Text, Text(xmlStringText), text, length);
}

void CompactTreeBuilder::CdataBlock(char const* text, size_t length) {
    AddText(CompactKind::Cdata, kCdataName, text, length);
}

void CompactTreeBuilder::Comment(char const* text) {
    if (CompactNode* comment = Append(CompactKind::Comment, Text(xmlStringComment))) {
        comment->contentLength = std::strlen(text);
        comment->content = tree.Texts().Copy(text, comment->contentLength);
    }
}

void CompactTreeBuilder::OtherNode(char const* name) {
    Append(CompactKind::Other, Copy(name));
}

// Hangs a new node under the open element, or makes it the root; nodes beside the root
// element are dropped (nullptr). The name must outlive the tree.
CompactNode* CompactTreeBuilder::Append(CompactKind kind, char const* name) {
    if (open.empty() && (kind != CompactKind::Element || tree.Root() != nullptr)) {
        return nullptr;
    }
    CompactNode& node = tree.NewNode();
    node.kind = kind;
    node.name = name;
    if (open.empty()) {
        tree.SetRoot(&node);
        return &node;
    }
    OpenElement& parent = open.back();
    if (parent.lastChild == nullptr) {
        parent.element->firstChild = &node;
    } else {
        parent.lastChild->next = &node;
    }
    parent.lastChild = &node;
    return &node;
}

// Text continues the element's last child when that is a node of the same kind, as the tree
// builder merges it.
void CompactTreeBuilder::AddText(CompactKind kind, char const* name, char const* text,
                                 size_t length) {
    if (open.empty()) {
        return;
    }
    CompactNode* last = open.back().lastChild;
    if (last != nullptr && last->kind == kind) {
        last->content = tree.Texts().Extend(last->content, last->contentLength, text, length);
    } else {
        last = Append(kind, name);
        last->content = tree.Texts().Copy(text, length);
    }
    last->contentLength += length;
}

void CompactTreeBuilder::CopyAttributes(CompactNode& element, AttributeSource const& attributes) {
    CompactAttribute* last = nullptr;
    for (int i = 0, count = attributes.WrittenCount(); i < count; ++i) {
        WrittenAttribute const written = attributes.Written(i);
        if (written.namespaced) {
            faithful = false;
        }
        CompactAttribute& attribute = tree.NewAttribute();
        attribute.name = CopyName(written.name);
        attribute.value = Copy(written.value);
        if (last == nullptr) {
            element.firstAttribute = &attribute;
        } else {
            last->next = &attribute;
        }
        last = &attribute;
    }
}

// Names repeat all through a document and the parser hands most of them over as the same
// interned string each time, so each is copied once; the text is compared as well because a
// composed name may reuse the address of another.
char const* CompactTreeBuilder::CopyName(std::string_view name) {
    // Fibonacci hashing of the address: the parser packs its strings tightly.
    std::uint64_t const address = reinterpret_cast<std::uintptr_t>(name.data());
    NameCopy& known = names[(address * 0x9E3779B97F4A7C15u) >> (64 - kNameSlotBits)];
    if (known.parsed != name.data() || known.length != name.size() ||
        std::memcmp(known.copy, name.data(), name.size()) != 0) {
        known = {name.data(), name.size(), Copy(name)};
    }
    return known.copy;
}

char const* CompactTreeBuilder::Copy(std::string_view text) {
    return tree.Texts().Copy(text.data(), text.size());
}

}  // namespace AutoCli
}  // namespace Tindra
