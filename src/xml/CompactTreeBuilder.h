#ifndef TINDRA_SRC_XML_COMPACTTREEBUILDER_H
#define TINDRA_SRC_XML_COMPACTTREEBUILDER_H

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "xml/CompactTree.h"
#include "xml/NodeEventSink.h"

namespace Tindra {
namespace AutoCli {

// Copies the root element of a document, with everything in it, from the parser's events into
// a compact tree: the same nodes, names, text and attributes as the parser's own tree, at a
// fraction of its cost. Nodes outside the root element are not kept.
class CompactTreeBuilder : public NodeEventSink {
public:
    explicit CompactTreeBuilder(CompactTree& tree) : tree(tree) {}

    void ElementStart(char const* name, AttributeSource const& attributes) override;
    void ElementEnd() override;
    void Characters(char const* text, size_t length) override;
    void CdataBlock(char const* text, size_t length) override;
    void Comment(char const* text) override;
    void OtherNode(char const* name) override;
    void DocumentEnd() override {}

    // False when the copy may differ from the parser's tree or its builder reports something
    // on the way: a document type declaration (attribute defaults, entities) or an attribute
    // bound to a namespace (the builder checks and registers xml:id values).
    bool IsFaithful() const { return faithful; }

private:
    struct OpenElement {
        CompactNode* element;
        CompactNode* lastChild;
    };

    // A name as the parser handed it over, and the tree's copy.
    struct NameCopy {
        char const* parsed = nullptr;
        size_t length = 0;
        char const* copy = nullptr;
    };

    CompactNode* Append(CompactKind kind, char const* name);
    void AddText(CompactKind kind, char const* name, char const* text, size_t length);
    void CopyAttributes(CompactNode& element, AttributeSource const& attributes);
    char const* CopyName(std::string_view name);
    char const* Copy(std::string_view text);

    static constexpr int kNameSlotBits = 6;

    CompactTree& tree;
    std::vector<OpenElement> open;
    std::array<NameCopy, 1 << kNameSlotBits> names;
    bool faithful = true;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
