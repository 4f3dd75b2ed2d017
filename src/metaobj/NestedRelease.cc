#include "metaobj/NestedRelease.h"

#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace MetaObj {

namespace {

bool IsCompound(MetaObject const& value) {
    return value.GetType() == Struct || value.GetType() == List;
}

}  // namespace

void NestedRelease::ReleaseChildrenOf(MetaObject& dying) {
    Doomed doomed;
    MoveOutNested(dying, doomed);
    while (!doomed.empty()) {
        std::shared_ptr<MetaObject> next = std::move(doomed.back());
        doomed.pop_back();
        MoveOutNested(*next, doomed);
    }  // next dies here holding nothing nested
}

// Only children that this value alone owns and that hold compound values themselves need
// to wait: any other child dies without going deeper.
template <typename Value>
void NestedRelease::Take(std::shared_ptr<Value>& child, Doomed& doomed) {
    if (child && child.use_count() == 1 && IsCompound(*child) && HoldsCompound(*child)) {
        doomed.push_back(std::move(child));
    }
}

void NestedRelease::MoveOutNested(MetaObject& value, Doomed& doomed) {
    if (value.GetType() == Struct) {
        auto& structure = static_cast<MetaStruct&>(value);
        for (auto& entry : structure.fields) {
            Take(entry.second.value, doomed);
        }
        Take(structure.structureDefinition, doomed);
    } else if (value.GetType() == List) {
        auto& list = static_cast<MetaList&>(value);
        for (auto& item : list.GetObjects()) {
            Take(item, doomed);
        }
        Take(list.GetListStructure(), doomed);
    }
}

bool NestedRelease::HoldsCompound(MetaObject& value) {
    if (value.GetType() == Struct) {
        auto const& structure = static_cast<MetaStruct const&>(value);
        for (auto const& entry : structure.fields) {
            if (IsCompound(*entry.second.value)) {
                return true;
            }
        }
        return structure.structureDefinition != nullptr;
    }
    auto& list = static_cast<MetaList&>(value);
    return list.GetListStructure() != nullptr ||
           (list.GetListType() == Struct && list.GetCount() != 0);
}

}  // namespace MetaObj
}  // namespace Tindra
