#ifndef TINDRA_SRC_METAOBJ_NESTEDRELEASE_H
#define TINDRA_SRC_METAOBJ_NESTEDRELEASE_H

#include <memory>
#include <vector>

#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace MetaObj {

// Releases the structures and lists a dying value alone holds one at a time instead of one
// destructor inside the other, so that no nesting depth can exhaust the stack.
class NestedRelease {
public:
    static void ReleaseChildrenOf(MetaObject& dying);

private:
    using Doomed = std::vector<std::shared_ptr<MetaObject>>;

    static void MoveOutNested(MetaObject& value, Doomed& doomed);
    template <typename Value>
    static void Take(std::shared_ptr<Value>& child, Doomed& doomed);
    static bool HoldsCompound(MetaObject& value);
};

}  // namespace MetaObj
}  // namespace Tindra

#endif
