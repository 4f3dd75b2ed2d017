#include "autocli/formatters/FieldPath.h"

#include "autocli/formatters/Tokens.h"

namespace Tindra {
namespace AutoCli {

FieldPath::FieldPath(std::string const& path) : path(path) {
    if (path.find('.') != std::string::npos) {
        components = SplitTokens(path, '.');
    }
}

// A component that is not found leaves the walk where it is, so "a.b" finds "b" in the start
// structure when "a" is absent; a scalar met before the last component ends the walk empty.
std::shared_ptr<MetaObj::MetaObject> FieldPath::Resolve(
    MetaObj::MetaStruct const& structure) const {
    if (components.empty()) {
        return structure.GetField(path);
    }
    MetaObj::MetaStruct const* current = &structure;
    std::shared_ptr<MetaObj::MetaObject> found;
    for (size_t i = 0; i < components.size(); ++i) {
        found = current->GetField(components[i]);
        if (!found) {
            continue;
        }
        auto const* nested = dynamic_cast<MetaObj::MetaStruct const*>(found.get());
        if (nested == nullptr) {
            return i + 1 == components.size() ? found : nullptr;
        }
        current = nested;
    }
    return found;
}

}  // namespace AutoCli
}  // namespace Tindra
