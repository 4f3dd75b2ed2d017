#include "autocli/formatters/FieldFormat.h"

#include <cerrno>
#include <cstring>

namespace Tindra {
namespace AutoCli {

FieldFormat::FieldFormat(std::string const& typeName, std::string const& fieldName,
                         FormatParameters const& params)
    : printfKey("printf:" + typeName + "." + fieldName) {
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
    std::string scratch;
    return std::string(Text(*value, scratch));
}

std::string_view FieldFormat::Text(MetaObj::MetaObject const& value, std::string& scratch) const {
    std::string_view const own = PrintedForm(value, scratch);
    if (!printf && !units) {
        return own;
    }
    std::string text;
    if (!printf) {
        text = own;
    } else if (printf->Write(value, own, text) < 0) {
        scratch = "Error while handling formatting parameter " + printfKey +
                  ".  Unable to format field: " + std::strerror(errno);
        return scratch;
    }
    if (units) {
        text += ' ';
        text += *units;
    }
    scratch = std::move(text);
    return scratch;
}

}  // namespace AutoCli
}  // namespace Tindra
