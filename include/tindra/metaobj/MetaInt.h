#ifndef TINDRA_METAOBJ_METAINT_H
#define TINDRA_METAOBJ_METAINT_H

#include "tindra/Export.h"
#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace MetaObj {

// Immutable signed 64-bit integer; -1 through 20 are shared instances.
class TINDRA_EXPORT MetaInt final : public MetaObject {
public:
    MetaInt(long value, FactoryFlag);

    static std::shared_ptr<MetaInt> New();
    static std::shared_ptr<MetaInt> New(long value);
    static bool Init();

    long GetValue() const { return value; }
    std::string ToString() const override;

    static bool _sInitialized;

private:
    long value;
};

}  // namespace MetaObj
}  // namespace Tindra

#endif
