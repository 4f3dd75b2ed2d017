#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_VALUECAST_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_VALUECAST_H

#include <typeinfo>

#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace AutoCli {

// Whether the value's class is exactly Kind, whose values carry the tag `tag`. The tag comes
// first: telling two different classes apart by their type information compares their names.
template <typename Kind>
bool IsExactly(MetaObj::MetaObject const& value, MetaObj::MetaType tag) {
    return value.GetType() == tag && typeid(value) == typeid(Kind);
}

// dynamic_cast to the kind of value Kind, with the same result in every case, but cheap for the
// usual value: one of exactly that class, carrying the tag `tag` of Kind's values. Formatters
// check every value they write, and most have just read its tag.
template <typename Kind, typename Value>
Kind* ValueCast(Value* value, MetaObj::MetaType tag) {
    if (value != nullptr && IsExactly<Kind>(*value, tag)) {
        return static_cast<Kind*>(value);
    }
    return dynamic_cast<Kind*>(value);
}

}  // namespace AutoCli
}  // namespace Tindra

#endif
