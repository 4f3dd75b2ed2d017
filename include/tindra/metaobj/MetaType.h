#ifndef TINDRA_METAOBJ_METATYPE_H
#define TINDRA_METAOBJ_METATYPE_H

#include <cstdint>
#include <string>

#include "tindra/Export.h"

namespace Tindra {
namespace MetaObj {

enum MetaType : uint32_t { Int = 0, Bool = 1, String = 2, Struct = 3, List = 4 };

// Printable name of a kind; an unknown value yields a static empty string.
TINDRA_EXPORT std::string const& MetaTypeString(MetaType const& type);

// Field names are unrestricted; structure type names are ASCII letters and digits.
TINDRA_EXPORT bool IsValidFieldName(std::string const& name);
TINDRA_EXPORT bool IsValidStructName(std::string const& name);

}  // namespace MetaObj
}  // namespace Tindra

#endif
