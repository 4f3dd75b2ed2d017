#include "tindra/metaobj/MetaType.h"

#include <algorithm>
#include <array>
#include <ostream>

#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace MetaObj {

std::string const& MetaTypeString(MetaType const& type) {
    static std::array<std::string, 5> const names = {"Int", "Bool", "String", "Struct", "List"};
    static std::string const unknown;
    if (type >= names.size()) {
        return unknown;
    }
    return names[type];
}

bool IsValidFieldName(std::string const&) {
    return true;
}

// The language of "[a-zA-Z0-9]+", matched by hand because every structure of every descriptor
// is checked.
bool IsValidStructName(std::string const& name) {
    auto const isAlphanumeric = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    };
    return !name.empty() && std::all_of(name.begin(), name.end(), isAlphanumeric);
}

std::ostream& operator<<(std::ostream& out, MetaObject const& value) {
    return out << value.ToString();
}

}  // namespace MetaObj
}  // namespace Tindra
