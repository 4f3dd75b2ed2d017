#ifndef TINDRA_SRC_XML_XMLUTIL_H
#define TINDRA_SRC_XML_XMLUTIL_H

// Internal: the public node readers with libxml2's node type complete, and the name and text
// tests that every walk over a parsed tree shares.

#include <libxml/tree.h>

#include <cstring>
#include <string>

#include "tindra/autocli/xml/XmlUtil.h"
#include "xml/ValueGrammar.h"

namespace Tindra {
namespace AutoCli {

// Whether the node carries that name (elements by tag; text and comments as the parser names
// them).
inline bool HasTag(xmlNode const* node, char const* tag) {
    char const* name = GrammarNodeName(node);
    return name[0] == tag[0] && std::strcmp(name, tag) == 0;  // most names differ at once
}

// The text of a text, CDATA or comment node; empty for other nodes.
inline std::string NodeContent(xmlNode const* node) {
    char const* content = ContentOf(node);
    return content != nullptr ? content : "";
}

}  // namespace AutoCli
}  // namespace Tindra

#endif
