#include "autocli/formatters/FieldFormat.h"

#include <cerrno>
#include <cstring>

namespace Tindra {
namespace AutoCli {

FieldFormat::FieldFormat(std::string const& typeName, std::string const& fieldName,
                         FormatParameters const& params)
    : typeName(typeName), printfKey("printf:" + typeName + "." + fieldName) {
    if (params.HasParameter(printfKey)) {
        printf.emplace(params.GetParameter(printfKey));
    }
    std::string const unitsKey = "units:" + typeName + "." + fieldName;
    if (params.HasParameter(unitsKey)) {
        units = params.GetParameter(unitsKey);
    }
}

std::string FieldFormat::Apply(MetaObj::MetaObject const* value) const {
    if (value == nullptr) {
        return "NULL Object";
    }
    std::string text = value->ToString();
    if (printf) {
        std::string formatted;
        if (printf->Write(*value, text, formatted) < 0) {
            return "Error while handling formatting parameter " + printfKey +
                   ".  Unable to format field: " + std::strerror(errno);
        }
        text = std::move(formatted);
    }
    if (units) {
        text += ' ';
        text += *units;
    }
    return text;
}

}  // namespace AutoCli
}  // namespace Tindra
