#ifndef TINDRA_SRC_XML_ELEMENTATTRIBUTES_H
#define TINDRA_SRC_XML_ELEMENTATTRIBUTES_H

#include <libxml/parser.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "xml/NodeEventSink.h"

namespace Tindra {
namespace AutoCli {

// The attributes of one start tag as the parser reports them, read with the rules of the tree
// (xmlGetProp): the first attribute of that name whatever its namespace, entity references
// expanded, and a default from the document type declaration when the tag has none.
class ElementAttributes : public AttributeSource {
public:
    // Values holding references are expanded at once, for every start tag, because the tree
    // builder does so and expanding an entity the first time records its content.
    ElementAttributes(xmlParserCtxt* context, char const* elementName, int count,
                      xmlChar const** attributes);

    std::string Get(char const* name) const override;
    int WrittenCount() const override { return count; }
    WrittenAttribute Written(int index) const override;
    bool MayAddDeclaredDefaults() const override;

private:
    bool HasTreeName(int index, char const* name) const;
    std::string_view TreeName(int index) const;
    std::string_view Value(int index) const;
    std::string ExpandReferences(int index) const;
    std::string DeclaredDefault(char const* name) const;

    xmlParserCtxt* context;
    char const* elementName;
    int count;
    xmlChar const** attributes;
    std::vector<std::pair<int, std::string>> expanded;
    std::vector<std::pair<int, std::string>> qualified;  // names with an unbound prefix
};

// For nodes that cannot carry attributes.
class NoAttributes : public AttributeSource {
public:
    std::string Get(char const*) const override { return std::string(); }
    int WrittenCount() const override { return 0; }
    WrittenAttribute Written(int) const override { return {}; }
    bool MayAddDeclaredDefaults() const override { return false; }
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
