#include "tindra/metaobj/MetaInt.h"

#include <array>

namespace Tindra {
namespace MetaObj {

namespace {
constexpr long kFirstShared = -1;
constexpr long kLastShared = 20;
constexpr size_t kSharedCount = kLastShared - kFirstShared + 1;
}  // namespace

bool MetaInt::_sInitialized = MetaInt::Init();

MetaInt::MetaInt(long v, FactoryFlag) : MetaObject(Int), value(v) {}

std::shared_ptr<MetaInt> MetaInt::New() {
    return New(0L);
}

// Small counters are everywhere in command output; they share one instance per value.
std::shared_ptr<MetaInt> MetaInt::New(long v) {
    static std::array<std::shared_ptr<MetaInt>, kSharedCount> const shared = [] {
        std::array<std::shared_ptr<MetaInt>, kSharedCount> table;
        for (size_t i = 0; i < kSharedCount; ++i) {
            table[i] =
                std::make_shared<MetaInt>(kFirstShared + static_cast<long>(i), FactoryFlag());
        }
        return table;
    }();
    if (v >= kFirstShared && v <= kLastShared) {
        return shared[static_cast<size_t>(v - kFirstShared)];
    }
    return std::make_shared<MetaInt>(v, FactoryFlag());
}

bool MetaInt::Init() {
    New(0L);
    return true;
}

std::string MetaInt::ToString() const {
    return std::to_string(value);
}

}  // namespace MetaObj
}  // namespace Tindra
