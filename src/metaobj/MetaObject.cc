#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace MetaObj {

// Scalars compare by kind only: the values themselves never take part.
bool MetaObject::IsSameStructure(std::shared_ptr<MetaObject> const& other,
                                 std::vector<std::string>* errors) {
    bool const scalar = type == Int || type == Bool || type == String;
    if (other && other->GetType() == type && scalar) {
        return true;
    }
    if (errors != nullptr) {
        std::string const& got = other ? MetaTypeString(other->GetType()) : std::string();
        errors->push_back("Type mismatch in structure.  Expecting " + MetaTypeString(type) +
                          " got " + got);
    }
    return false;
}

}  // namespace MetaObj
}  // namespace Tindra
