#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_FIELDPATH_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_FIELDPATH_H

#include <memory>
#include <string>
#include <vector>

#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// A field name or a dotted path into nested structures, split once and resolved many times.
class FieldPath {
public:
    explicit FieldPath(std::string const& path);

    std::shared_ptr<MetaObj::MetaObject> Resolve(MetaObj::MetaStruct const& structure) const;
    // A plain name resolves to the field of exactly that name.
    bool IsPlainName() const { return components.empty(); }
    std::string const& GetPath() const { return path; }

private:
    std::string path;
    // Empty when the path holds no '.', so a plain name is one lookup.
    std::vector<std::string> components;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
