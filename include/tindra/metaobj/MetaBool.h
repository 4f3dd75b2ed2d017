#ifndef TINDRA_METAOBJ_METABOOL_H
#define TINDRA_METAOBJ_METABOOL_H

#include "tindra/Export.h"
#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace MetaObj {

// Immutable boolean; only the two shared instances ever exist.
class TINDRA_EXPORT MetaBool final : public MetaObject {
public:
    MetaBool(bool value, FactoryFlag);

    static std::shared_ptr<MetaBool> New();
    static std::shared_ptr<MetaBool> New(bool value);
    static bool Init();

    bool GetValue() const { return value; }
    std::string ToString() const override;

    static bool _sInitialized;

private:
    bool value;
};

}  // namespace MetaObj
}  // namespace Tindra

#endif
