#ifndef TINDRA_SRC_XML_COMPACTTREE_H
#define TINDRA_SRC_XML_COMPACTTREE_H

#include "xml/ChunkedStore.h"
#include "xml/CompactNode.h"
#include "xml/TextArena.h"

namespace Tindra {
namespace AutoCli {

// Owns the nodes of a compact copy of one document's element tree (see CompactTreeBuilder).
class CompactTree {
public:
    CompactTree() = default;
    CompactTree(CompactTree const&) = delete;
    CompactTree& operator=(CompactTree const&) = delete;

    CompactNode& NewNode() { return nodes.Add(); }
    CompactAttribute& NewAttribute() { return attributes.Add(); }
    TextArena& Texts() { return texts; }

    // The document's root element; nullptr until one was copied.
    CompactNode const* Root() const { return root; }
    void SetRoot(CompactNode const* element) { root = element; }

private:
    ChunkedStore<CompactNode> nodes;
    ChunkedStore<CompactAttribute> attributes;
    TextArena texts;
    CompactNode const* root = nullptr;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
