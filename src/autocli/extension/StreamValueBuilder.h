#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_STREAMVALUEBUILDER_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_STREAMVALUEBUILDER_H

#include <memory>
#include <string>

#include "autocli/extension/XmlStreamReader.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// Builds values from a streaming reader, following the same grammar rules as the tree builder
// and in the same order, so both report the same values and the same first error.
// Every Build operation starts with the reader on the value's first node and leaves it on the
// value's last node (its end tag, or the node itself when it has no content).
class StreamValueBuilder {
  public:
    explicit StreamValueBuilder(XmlStreamReader& reader) : reader(reader) {}

    std::shared_ptr<MetaObj::MetaObject> BuildValue();

    // The value of the current element's first child that is not text or a comment; empty
    // when there is none. The other children are skipped.
    std::shared_ptr<MetaObj::MetaObject> BuildFirstValueChild();

  private:
    std::shared_ptr<MetaObj::MetaStruct> BuildStruct();
    std::shared_ptr<MetaObj::MetaList> BuildList();
    void AddField(MetaObj::MetaStruct& structure);
    std::string ReadContent();

    // Calls visit with the reader on each child of the current element in turn; visit must
    // leave the reader on that child's last node.
    template <typename Visit>
    void ForEachChild(Visit visit);

    XmlStreamReader& reader;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
