#ifndef TINDRA_AUTOCLI_XML_XMLUTIL_H
#define TINDRA_AUTOCLI_XML_XMLUTIL_H

// Readers of command output documents and of single nodes of libxml2's tree. All throw
// TindraException with their own message.

#include <memory>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/xml/XmlNode.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// A whole command output document: an empty pointer when the text is not well-formed XML or
// its root element holds no value.
TINDRA_EXPORT std::shared_ptr<MetaObj::MetaObject> XmlUtil_ParseXmlOutput(std::string const& text);

// The value one element denotes (list, structure, int, bool, string).
TINDRA_EXPORT std::shared_ptr<MetaObj::MetaObject> XmlUtil_BuildMetaObject(xmlNode* node);
TINDRA_EXPORT std::shared_ptr<MetaObj::MetaStruct> BuildMetaStruct(xmlNode* node);
TINDRA_EXPORT std::shared_ptr<MetaObj::MetaList> BuildMetaList(xmlNode* node);

// The attribute's value; the empty string when it is missing.
TINDRA_EXPORT std::string XmlUtil_ExtractAttribute(xmlNode* node, std::string const& name);
TINDRA_EXPORT std::string XmlUtil_ExtractAttribute(xmlNode* node, char const* name);

// The element's text: the content of its last text, CDATA or comment child.
TINDRA_EXPORT std::string XmlUtil_GetContent(xmlNode* node);

// The text of the one child with that tag; empty when there is none. A second child of that
// tag is an error once an earlier one had text.
TINDRA_EXPORT std::string XmlUtil_GetContentForChildByTag(xmlNode* node, std::string const& tag);
TINDRA_EXPORT std::string XmlUtil_GetContentForChildByTag(xmlNode* node, char const* tag);

// The one child with that tag, or nullptr; a second one is an error.
TINDRA_EXPORT xmlNode* XmlUtil_FindChildNode(xmlNode* node, std::string const& tag);
TINDRA_EXPORT xmlNode* XmlUtil_FindChildNode(xmlNode* node, char const* tag);

}  // namespace AutoCli
}  // namespace Tindra

#endif
