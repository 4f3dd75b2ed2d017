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
    // Called after libxml2 has linked the node into its tree.
    void ElementOpened(xmlNode* element);
    void ElementClosed();
    // A complete node that is not an element (CDATA, processing instruction, entity
    // reference) under the innermost open element; text and comments are never values.
    void NodeAdded(xmlNode* node);

    bool SawRootElement() const { return sawRoot; }
    bool Failed() const { return failed; }
    std::string const& Error() const { return error; }
    std::shared_ptr<MetaObj::MetaObject> const& Value() const { return value; }

private:
    enum class Role { Passive, Root, Field, List, Structure, Scalar };

    struct Frame {
        Frame(xmlNode* node, Role role) : node(node), role(role) {}
        xmlNode* node;
        Role role;
        bool hasValueChild = false;                              // Root, Field
        std::shared_ptr<MetaObj::MetaObject> value;              // Root, Field
        std::string fieldName;                                   // Field
        ValueTag tag = ValueTag::String;                         // Scalar
        std::shared_ptr<MetaObj::MetaStruct> structure;          // Structure
        MetaObj::MetaType itemType = MetaObj::MetaType::String;  // List
        std::shared_ptr<MetaObj::MetaList> list;                 // List
    };

    template <typename Step>
    void Guarded(Step step);
    Frame ChildFrame(Frame& parent, xmlNode* child);
    Frame ValueFrame(xmlNode* node) const;
    std::shared_ptr<MetaObj::MetaObject> Finished(Frame& frame);
    void Deliver(Frame& parent, std::shared_ptr<MetaObj::MetaObject> item);
    void FreeWhatIsRead(xmlNode* closed);

    std::vector<Frame> frames;
    bool sawRoot = false;
    bool failed = false;
    std::string error;
    std::shared_ptr<MetaObj::MetaObject> value;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
