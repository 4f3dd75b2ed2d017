#ifndef TINDRA_SRC_XML_OUTPUTVALUEBUILDER_H
#define TINDRA_SRC_XML_OUTPUTVALUEBUILDER_H

#include <libxml/tree.h>

#include <memory>
#include <string>
#include <vector>

#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaStruct.h"
#include "xml/ValueGrammar.h"

namespace Tindra {
namespace AutoCli {

// Builds the value of an output document while libxml2 builds its tree, with the node readers
// and grammar rules of the tree builder, in the order the tree builder applies them, so that
// both give the same value and the same first error. A part of the tree that the value no
// longer needs is freed as soon as it is read: only the open elements stay.
class OutputValueBuilder {
public:
    // Called after libxml2 has linked the element into its tree.
    void ElementOpened(xmlNode* element);
    void ElementClosed();
    // A node that is not an element (CDATA, processing instruction, entity reference) under
    // the innermost open element, but not a scalar's CDATA.
    void NodeAdded(xmlNode* node);

    // Whether the text, CDATA and comments of the innermost open element are read: only a
    // scalar's are, as its value, and they are handed over here instead of being made nodes.
    bool ReadsText() const { return !frames.empty() && frames.back().role == Role::Scalar; }
    enum class Content { Text, Cdata, Comment };
    void AddContent(Content kind, char const* text, size_t length);

    bool SawRootElement() const { return sawRoot; }
    bool Failed() const { return failed; }
    std::string const& Error() const { return error; }
    std::shared_ptr<MetaObj::MetaObject> const& Value() const { return value; }

private:
    enum class Role { Passive, Root, Field, List, Structure, Scalar };
    // The kind of a scalar's latest child, which decides whether text continues a node.
    enum class LastChild { None, Text, Cdata, Other };

    struct Frame {
        Frame(xmlNode* node, Role role) : node(node), role(role) {}
        xmlNode* node;
        Role role;
        bool hasValueChild = false;                  // Root, Field
        std::shared_ptr<MetaObj::MetaObject> value;  // Root, Field
        std::string fieldName;                       // Field
        ValueTag tag = ValueTag::String;             // Scalar
        std::string text;                       // Scalar: the content of its last content child
        LastChild lastChild = LastChild::None;  // Scalar
        std::shared_ptr<MetaObj::MetaStruct> structure;          // Structure
        MetaObj::MetaType itemType = MetaObj::MetaType::String;  // List
        std::shared_ptr<MetaObj::MetaList> list;                 // List
    };

    template <typename Step>
    void Guarded(Step step);
    Frame ChildFrame(Frame& parent, xmlNode* child);
    static Frame ValueFrame(Frame const& parent, xmlNode* node);
    std::shared_ptr<MetaObj::MetaObject> Finished(Frame& frame);
    void Deliver(Frame& parent, std::shared_ptr<MetaObj::MetaObject> item);
    void FreeWhatIsRead();

    std::vector<Frame> frames;
    bool sawRoot = false;
    bool failed = false;
    std::string error;
    std::shared_ptr<MetaObj::MetaObject> value;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
