#ifndef TINDRA_METAOBJ_METASTRING_H
#define TINDRA_METAOBJ_METASTRING_H

#include "tindra/Export.h"
#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace MetaObj {

// Immutable byte string; the empty string is one shared instance.
class TINDRA_EXPORT MetaString final : public MetaObject {
public:
    MetaString(std::string const& value, FactoryFlag);
    MetaString(std::string&& value, FactoryFlag);

    static std::shared_ptr<MetaString> New();
    static std::shared_ptr<MetaString> New(std::string const& value);
    static std::shared_ptr<MetaString> New(std::string&& value);
    static std::shared_ptr<MetaString> New(char const* value);
    // Invalid UTF-8 is replaced by a printable, valid escape of the bad bytes.
    static std::shared_ptr<MetaString> NewUtf8WithEscapes(std::string&& value);
    static bool Init();

    std::string const& GetValue() const { return value; }
    std::string ToString() const override;

    static bool _sInitialized;

private:
    std::string value;
};

}  // namespace MetaObj
}  // namespace Tindra

#endif
