#ifndef TINDRA_SRC_XML_OUTPUTVALUEBUILDER_H
#define TINDRA_SRC_XML_OUTPUTVALUEBUILDER_H

#include <memory>
#include <string>
#include <vector>

#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaStruct.h"
#include "xml/NodeEventSink.h"
#include "xml/ValueGrammar.h"

namespace Tindra {
namespace AutoCli {

// Builds the value of an output document from its nodes as they stream past, applying the
// grammar rules in the same order as the tree builder, so that both give the same value and
// the same first error. After the first error the rest of the document is only passed over.
class OutputValueBuilder : public NodeEventSink {
public:
    void ElementStart(char const* name, AttributeSource const& attributes) override;
    void ElementEnd() override;
    void Characters(char const* text, size_t length) override;
    void CdataBlock(char const* text, size_t length) override;
    void Comment(char const* text) override;
    void OtherNode(char const* name) override;
    void DocumentEnd() override;

    bool SawRootElement() const { return sawRoot; }
    bool Failed() const { return failed; }
    std::string const& Error() const { return error; }
    std::shared_ptr<MetaObj::MetaObject> const& Value() const { return value; }

private:
    enum class Role { Root, Skipped, List, Structure, Field, Scalar };
    // The kind of an element's latest child, which decides whether text continues a node.
    enum class LastChild { None, Text, Cdata, Other };

    struct Frame {
        explicit Frame(Role role) : role(role) {}
        Role role;
        LastChild lastChild = LastChild::None;
        bool hasValueChild = false;                  // Root, Field
        std::shared_ptr<MetaObj::MetaObject> value;  // Root, Field
        std::string text;                            // Scalar: content of the last content child
        ValueTag tag = ValueTag::String;             // Scalar
        std::string fieldName;                       // Field
        std::shared_ptr<MetaObj::MetaStruct> structure;          // Structure
        MetaObj::MetaType itemType = MetaObj::MetaType::String;  // List
        std::shared_ptr<MetaObj::MetaList> list;                 // List
    };

    template <typename Step>
    void Guarded(Step step);
    void OpenChild(char const* name, AttributeSource const& attributes, bool isElement);
    void StartValue(char const* name, AttributeSource const& attributes, bool isElement);
    void StartField(AttributeSource const& attributes, bool isElement);
    void ReserveLikeSiblings(MetaObj::MetaStruct& structure) const;
    void CloseTop();
    void Deliver(std::shared_ptr<MetaObj::MetaObject> item);
    void AddContent(LastChild kind, char const* text, size_t length);

    std::vector<Frame> frames;
    bool sawRoot = false;
    bool failed = false;
    std::string error;
    std::shared_ptr<MetaObj::MetaObject> value;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
