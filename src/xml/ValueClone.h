#ifndef TINDRA_SRC_XML_VALUECLONE_H
#define TINDRA_SRC_XML_VALUECLONE_H

#include <memory>

#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace AutoCli {

// The prototype of a list whose first item is given, as if that item had been built a second
// time: a structure becomes a new structure of the same type name and field names, sharing the
// field values with the item (nothing checks or changes a prototype's fields, and a deep copy
// per nesting level doubles the work at every level); any other value is returned itself.
std::shared_ptr<MetaObj::MetaObject> ListPrototypeOf(
    std::shared_ptr<MetaObj::MetaObject> const& firstItem);

}  // namespace AutoCli
}  // namespace Tindra

#endif
