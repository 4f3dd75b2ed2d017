#ifndef TINDRA_SRC_XML_COMPACTNODE_H
#define TINDRA_SRC_XML_COMPACTNODE_H

// Internal: a node of a compact copy of a document's element tree. It has the shape and names
// the parser's tree gives the document and the same access functions as the parser's nodes,
// so the node readers take either.

#include <cstddef>
#include <string>

namespace Tindra {
namespace AutoCli {

enum class CompactKind : unsigned char { Element, Text, Cdata, Comment, Other };

// The texts are zero-terminated and owned by the tree.
struct CompactAttribute {
    char const* name = "";  // as the tree names it: the local name, or prefix:name when unbound
    char const* value = "";
    CompactAttribute const* next = nullptr;
};

struct CompactNode {
    CompactKind kind = CompactKind::Other;
    // As the tree names the node: the tag, "text", "comment", "" for CDATA, or the target of a
    // processing instruction.
    char const* name = "";
    char const* content = nullptr;  // of text, CDATA and comment nodes
    size_t contentLength = 0;
    CompactNode const* firstChild = nullptr;
    CompactNode const* next = nullptr;
    CompactAttribute const* firstAttribute = nullptr;
};

inline char const* GrammarNodeName(CompactNode const* node) {
    return node->name;
}

inline CompactNode const* FirstChildOf(CompactNode const* node) {
    return node->firstChild;
}

inline bool CarriesContent(CompactNode const* node) {
    return node->kind == CompactKind::Text || node->kind == CompactKind::Cdata ||
           node->kind == CompactKind::Comment;
}

// The text a text, CDATA or comment node holds; nullptr for other nodes.
inline char const* ContentOf(CompactNode const* node) {
    return node->content;
}

// The value of the element's first attribute of that name; "" when it has none.
std::string XmlUtil_ExtractAttribute(CompactNode const* node, char const* name);
std::string XmlUtil_ExtractAttribute(CompactNode const* node, std::string const& name);

}  // namespace AutoCli
}  // namespace Tindra

#endif
