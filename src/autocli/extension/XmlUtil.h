#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_XMLUTIL_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_XMLUTIL_H

// Internal: readers of the value grammar and small node readers shared with the descriptor
// reader. Kept out of the public headers because it exposes libxml2 types.

#include <libxml/tree.h>

#include <memory>
#include <string>

#include "autocli/extension/OutputDocumentReader.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// Builds the value one element denotes (list, structure, int, bool, string).
std::shared_ptr<MetaObj::MetaObject> XmlUtil_BuildMetaObject(xmlNode* node);
std::shared_ptr<MetaObj::MetaStruct> BuildMetaStruct(xmlNode* node);
std::shared_ptr<MetaObj::MetaList> BuildMetaList(xmlNode* node);

// The attribute's value; the empty string when it is missing.
std::string XmlUtil_ExtractAttribute(xmlNode* node, std::string const& name);
std::string XmlUtil_ExtractAttribute(xmlNode* node, char const* name);

// The element's text: the content of its last text, CDATA or comment child.
std::string XmlUtil_GetContent(xmlNode* node);

// The text of the one child with that tag; empty when there is none.
std::string XmlUtil_GetContentForChildByTag(xmlNode* node, std::string const& tag);
std::string XmlUtil_GetContentForChildByTag(xmlNode* node, char const* tag);

// The one child with that tag, or nullptr; a second one is an error.
xmlNode* XmlUtil_FindChildNode(xmlNode* node, std::string const& tag);
xmlNode* XmlUtil_FindChildNode(xmlNode* node, char const* tag);

}  // namespace AutoCli
}  // namespace Tindra

#endif
