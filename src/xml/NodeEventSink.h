#ifndef TINDRA_SRC_XML_NODEEVENTSINK_H
#define TINDRA_SRC_XML_NODEEVENTSINK_H

#include <cstddef>
#include <string>
#include <string_view>

namespace Tindra {
namespace AutoCli {

// One attribute as a start tag carries it, named and valued as the element tree has it.
struct WrittenAttribute {
    std::string_view name;
    std::string_view value;
    bool namespaced;  // bound to a namespace URI; the tree then knows it by its local name
};

// The attributes of the node being started, read as an element tree would give them.
class AttributeSource {
public:
    virtual ~AttributeSource() = default;
    // The attribute's value; "" when it is missing.
    virtual std::string Get(char const* name) const = 0;
    // The attributes the tag carries, in document order (index 0 to WrittenCount() - 1). The
    // views last as long as this source.
    virtual int WrittenCount() const = 0;
    virtual WrittenAttribute Written(int index) const = 0;
    // Whether Get may also answer with a default from a document type declaration, which is
    // not among the written attributes.
    virtual bool MayAddDeclaredDefaults() const = 0;
};

// Nodes of the document in document order, shaped as the element tree has them: consecutive
// Characters calls belong to one text node, consecutive CdataBlock calls to one CDATA node.
// Names are the tree's node names (an unbound prefix stays part of the name).
class NodeEventSink {
public:
    virtual ~NodeEventSink() = default;
    virtual void ElementStart(char const* name, AttributeSource const& attributes) = 0;
    virtual void ElementEnd() = 0;
    virtual void Characters(char const* text, size_t length) = 0;
    virtual void CdataBlock(char const* text, size_t length) = 0;
    virtual void Comment(char const* text) = 0;
    // A node without content or children: a processing instruction or an entity reference.
    virtual void OtherNode(char const* name) = 0;
    // The end of a well-formed document; elements still open (when the parse stopped early)
    // end here, as the tree has them, with the children read so far.
    virtual void DocumentEnd() = 0;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
