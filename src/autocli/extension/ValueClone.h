#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_VALUECLONE_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_VALUECLONE_H

#include <memory>

#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace AutoCli {

// A deep copy of structures and lists, as if built again from the same document: new,
// unlocked structures and new lists; immutable scalars are shared.
std::shared_ptr<MetaObj::MetaObject> CloneValue(std::shared_ptr<MetaObj::MetaObject> const& value);

}  // namespace AutoCli
}  // namespace Tindra

#endif
