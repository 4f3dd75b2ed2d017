#include "xml/ValueClone.h"

#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

std::shared_ptr<MetaObj::MetaObject> ListPrototypeOf(
    std::shared_ptr<MetaObj::MetaObject> const& firstItem) {
    if (!firstItem || firstItem->GetType() != MetaObj::MetaType::Struct) {
        return firstItem;
    }
    auto const& item = static_cast<MetaObj::MetaStruct const&>(*firstItem);
    auto prototype = MetaObj::MetaStruct::New(item.GetTypeName());
    prototype->ReserveFields(item.GetFieldCount());
    item.ForEachField([&prototype, &item](std::string const& name, MetaObj::MetaObject const&) {
        prototype->SetField(name, item.GetField(name), MetaObj::MetaStruct::_docEmpty);
    });
    return prototype;
}

}  // namespace AutoCli
}  // namespace Tindra
