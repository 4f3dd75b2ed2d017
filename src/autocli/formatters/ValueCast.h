#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_VALUECAST_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_VALUECAST_H

#include <typeinfo>

namespace Tindra {
namespace AutoCli {

// dynamic_cast to one kind of value, with the same result, but cheap for the usual value whose
// class is exactly that kind: formatters check the kind of every value they write.
template <typename Kind, typename Value>
Kind* ValueCast(Value* value) {
    if (value != nullptr && typeid(*value) == typeid(Kind)) {
        return static_cast<Kind*>(value);
    }
    return dynamic_cast<Kind*>(value);
}

}  // namespace AutoCli
}  // namespace Tindra

#endif
