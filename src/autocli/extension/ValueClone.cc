#include "autocli/extension/ValueClone.h"

#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

namespace {

std::shared_ptr<MetaObj::MetaStruct> CloneStruct(MetaObj::MetaStruct const& original) {
    auto copy = MetaObj::MetaStruct::New(original.GetTypeName());
    for (std::string const& name : original.GetFieldNames()) {
        copy->SetField(name, CloneValue(original.GetField(name)), MetaObj::MetaStruct::_docEmpty);
    }
    return copy;
}

std::shared_ptr<MetaObj::MetaList> CloneList(MetaObj::MetaList& original) {
    std::shared_ptr<MetaObj::MetaList> copy;
    if (original.GetListType() == MetaObj::MetaType::Struct) {
        auto const& prototype = original.GetListStructure();
        copy = MetaObj::MetaList::New(MetaObj::MetaType::Struct,
                                      prototype ? CloneStruct(*prototype) : prototype);
    } else {
        copy = MetaObj::MetaList::New(original.GetListType());
    }
    copy->Reserve(original.GetCount());
    for (auto const& item : original.GetObjects()) {
        copy->Add(CloneValue(item));
    }
    return copy;
}

}  // namespace

std::shared_ptr<MetaObj::MetaObject> CloneValue(std::shared_ptr<MetaObj::MetaObject> const& value) {
    if (!value) {
        return value;
    }
    switch (value->GetType()) {
        case MetaObj::MetaType::Struct:
            return CloneStruct(static_cast<MetaObj::MetaStruct const&>(*value));
        case MetaObj::MetaType::List:
            return CloneList(static_cast<MetaObj::MetaList&>(*value));
        default:
            return value;
    }
}

}  // namespace AutoCli
}  // namespace Tindra
