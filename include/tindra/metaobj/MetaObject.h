#ifndef TINDRA_METAOBJ_METAOBJECT_H
#define TINDRA_METAOBJ_METAOBJECT_H

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/metaobj/MetaType.h"

namespace Tindra {
namespace MetaObj {

class MetaBool;
class MetaInt;
class MetaString;
class MetaStruct;
class MetaList;

// Base of every value. Values live only in shared ownership, created by the New factories
// directly as their concrete type, so the base needs no virtual destructor.
class TINDRA_EXPORT MetaObject {
public:
    // Tag that only the factories can make, so no value exists outside shared ownership.
    class FactoryFlag {
        FactoryFlag() {}  // user-provided, so the tag is not an aggregate anyone can brace-build
        friend class MetaBool;
        friend class MetaInt;
        friend class MetaString;
        friend class MetaStruct;
        friend class MetaList;
    };

    MetaType GetType() const { return type; }

    // Structural comparison: this value is the reference, other the value checked.
    virtual bool IsSameStructure(std::shared_ptr<MetaObject> const& other,
                                 std::vector<std::string>* errors);
    virtual std::string ToString() const = 0;

protected:
    explicit MetaObject(MetaType t) : type(t) {}
    MetaObject(MetaObject const&) = default;
    ~MetaObject() = default;

private:
    MetaType type;
};

TINDRA_EXPORT std::ostream& operator<<(std::ostream& out, MetaObject const& value);

}  // namespace MetaObj
}  // namespace Tindra

#endif
