#include "tindra/autocli/formatters/FieldHelpers.h"

#include "autocli/formatters/FieldFormat.h"
#include "autocli/formatters/FieldPath.h"
#include "autocli/formatters/Spaces.h"
#include "tindra/metaobj/MetaString.h"

namespace Tindra {
namespace AutoCli {

std::shared_ptr<MetaObj::MetaObject> GetSubField(std::shared_ptr<MetaObj::MetaStruct> structure,
                                                 std::string const& path) {
    if (!structure) {
        return nullptr;
    }
    return FieldPath(path).Resolve(*structure);
}

std::string GetStringField(std::shared_ptr<MetaObj::MetaStruct> structure,
                           std::string const& name) {
    if (!structure) {
        return std::string();
    }
    auto const field = structure->GetField(name);
    auto const* text = dynamic_cast<MetaObj::MetaString const*>(field.get());
    return text == nullptr ? std::string() : text->GetValue();
}

std::string GetIndent(int level) {
    return std::string(IndentWidth(level), ' ');
}

std::string AutoCli_FormatField(std::string const& typeName, std::string const& fieldName,
                                std::shared_ptr<MetaObj::MetaObject> value,
                                FormatParameters& params) {
    return FieldFormat(typeName, fieldName, params).Apply(value.get());
}

}  // namespace AutoCli
}  // namespace Tindra
