#include "tindra/metaobj/MetaBool.h"

#include <array>

namespace Tindra {
namespace MetaObj {

bool MetaBool::_sInitialized = MetaBool::Init();

MetaBool::MetaBool(bool v, FactoryFlag) : MetaObject(Bool), value(v) {}

std::shared_ptr<MetaBool> MetaBool::New() {
    return New(false);
}

// A function-local table, so that New works from any other static initialiser.
std::shared_ptr<MetaBool> MetaBool::New(bool v) {
    static std::array<std::shared_ptr<MetaBool>, 2> const shared = {
        std::make_shared<MetaBool>(false, FactoryFlag()),
        std::make_shared<MetaBool>(true, FactoryFlag())};
    return shared[v ? 1 : 0];
}

bool MetaBool::Init() {
    New(false);
    return true;
}

std::string MetaBool::ToString() const {
    return value ? "true" : "false";
}

}  // namespace MetaObj
}  // namespace Tindra
