#include "tindra/metaobj/MetaType.h"

#include <array>
#include <boost/regex.hpp>
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

bool IsValidStructName(std::string const& name) {
    static boost::regex const pattern("[a-zA-Z0-9]+");
    return boost::regex_match(name, pattern);
}

std::ostream& operator<<(std::ostream& out, MetaObject const& value) {
    return out << value.ToString();
}

}  // namespace MetaObj
}  // namespace Tindra
