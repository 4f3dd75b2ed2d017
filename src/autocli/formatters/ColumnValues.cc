#include "autocli/formatters/ColumnValues.h"

namespace Tindra {
namespace AutoCli {

ColumnValues::ColumnValues(std::vector<std::string> const& names)
    : places(names.size(), 0), values(names.size(), nullptr) {
    paths.reserve(names.size());
    for (auto const& name : names) {
        paths.emplace_back(name);
    }
}

void ColumnValues::Find(MetaObj::MetaStruct const& row) {
    fields.clear();
    row.ForEachField([this](std::string const& name, MetaObj::MetaObject& value) {
        fields.push_back(Field{&name, &value});
    });
    for (size_t column = 0; column < paths.size(); ++column) {
        values[column] =
            paths[column].IsPlainName() ? FindPlain(column) : paths[column].Resolve(row).get();
    }
}

MetaObj::MetaObject* ColumnValues::FindPlain(size_t column) {
    std::string const& name = paths[column].GetPath();
    size_t& place = places[column];
    if (place < fields.size() && *fields[place].name == name) {
        return fields[place].value;
    }
    for (place = 0; place < fields.size(); ++place) {
        if (*fields[place].name == name) {
            return fields[place].value;
        }
    }
    place = 0;
    return nullptr;
}

}  // namespace AutoCli
}  // namespace Tindra
