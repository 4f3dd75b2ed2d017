#ifndef TINDRA_SRC_XML_VALUEGRAMMAR_H
#define TINDRA_SRC_XML_VALUEGRAMMAR_H

// The rules of the value grammar of output documents, independent of how the document is
// walked: the tree builder and the streaming reader both decide through these functions, so
// they cannot drift apart.

#include <libxml/tree.h>

#include <memory>
#include <string>

#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaType.h"

namespace Tindra {
namespace AutoCli {

enum class ValueTag { List, Structure, Int, Bool, String };

// The node's name as the parser gives it ("text", "comment", the tag, ...); "" when unnamed.
char const* GrammarNodeName(xmlNode const* node);

// The first child of an element; other nodes have none (an entity reference's child is its
// declaration, not content).
xmlNode* FirstChildOf(xmlNode* node);

// Children with these names never denote a value and are skipped by every walk.
bool IsSkippedChildName(char const* name);

// Text, CDATA and comment nodes carry the text of their parent element.
bool CarriesContent(xmlNode const* node);

// The text a text, CDATA or comment node holds; nullptr for other nodes or when it has none.
char const* ContentOf(xmlNode const* node);

// Which value a node of that name denotes; throws for text, comment and unknown tags.
ValueTag ClassifyValueTag(char const* name);

// A scalar value from the element's text (tag is Int, Bool or String).
std::shared_ptr<MetaObj::MetaObject> MakeScalarValue(ValueTag tag, std::string&& text);

// Reads a signed 64-bit integer as formatted stream extraction does: leading white space
// skipped, optional sign, decimal digits up to the first other character. False when there
// are no digits or the value is out of range.
bool ReadLeadingInt(std::string const& text, long& value);

// The list item type named by a list's type attribute; throws for any other text.
MetaObj::MetaType ListItemTypeFromAttribute(std::string const& type);

// A list of that item type; compound item types take the prototype (which may be empty).
std::shared_ptr<MetaObj::MetaList> MakeValueList(MetaObj::MetaType itemType,
                                                 std::shared_ptr<MetaObj::MetaObject> const& proto);

// Throws unless a field element carries a usable name.
void CheckFieldName(std::string const& name);

bool IsFieldName(char const* name);
bool IsCompoundItemType(MetaObj::MetaType itemType);

// Wraps a build error of a whole document into the reader's own message.
std::string OutputBuildErrorMessage(char const* inner);
char const* NoRootElementMessage();

}  // namespace AutoCli
}  // namespace Tindra

#endif
