#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_XMLUTIL_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_XMLUTIL_H

// Internal: readers of the value grammar and small node readers shared with the descriptor
// reader. Kept out of the public headers because it exposes libxml2 types. Each reader takes
// a node of the parser's tree (xmlNode) or of a compact copy of it (CompactNode const).

#include <libxml/tree.h>

#include <memory>
#include <string>

#include "autocli/extension/CompactNode.h"
#include "autocli/extension/OutputDocumentReader.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// Builds the value one element denotes (list, structure, int, bool, string).
template <typename Node>
std::shared_ptr<MetaObj::MetaObject> XmlUtil_BuildMetaObject(Node* node);
template <typename Node>
std::shared_ptr<MetaObj::MetaStruct> BuildMetaStruct(Node* node);
template <typename Node>
std::shared_ptr<MetaObj::MetaList> BuildMetaList(Node* node);

// The attribute's value; the empty string when it is missing.
std::string XmlUtil_ExtractAttribute(xmlNode* node, std::string const& name);
std::string XmlUtil_ExtractAttribute(xmlNode* node, char const* name);

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
