#ifndef TINDRA_SRC_XML_XMLUTIL_H
#define TINDRA_SRC_XML_XMLUTIL_H

// Internal: the readers of the value grammar and the small node readers for either tree, a node
// of the parser's (xmlNode) or of a compact copy of it (CompactNode const). The public header
// declares the xmlNode entry points.

#include <libxml/tree.h>

#include <memory>
#include <string>

#include "tindra/autocli/xml/XmlUtil.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaStruct.h"
#include "xml/CompactNode.h"
#include "xml/OutputDocumentReader.h"

namespace Tindra {
namespace AutoCli {

// Builds the value one element denotes (list, structure, int, bool, string).
template <typename Node>
std::shared_ptr<MetaObj::MetaObject> XmlUtil_BuildMetaObject(Node* node);
template <typename Node>
std::shared_ptr<MetaObj::MetaStruct> BuildMetaStruct(Node* node);
template <typename Node>
std::shared_ptr<MetaObj::MetaList> BuildMetaList(Node* node);

// The element's text: the content of its last text, CDATA or comment child.
template <typename Node>
std::string XmlUtil_GetContent(Node* node);

// The text of the one child with that tag; empty when there is none.
template <typename Node>
std::string XmlUtil_GetContentForChildByTag(Node* node, std::string const& tag);
template <typename Node>
std::string XmlUtil_GetContentForChildByTag(Node* node, char const* tag);

// The one child with that tag, or nullptr; a second one is an error.
template <typename Node>
Node* XmlUtil_FindChildNode(Node* node, std::string const& tag);
template <typename Node>
Node* XmlUtil_FindChildNode(Node* node, char const* tag);

}  // namespace AutoCli
}  // namespace Tindra

#endif
