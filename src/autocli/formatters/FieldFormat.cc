#include "autocli/formatters/FieldFormat.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <typeinfo>

#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaString.h"

namespace Tindra {
namespace AutoCli {

namespace {

// Whether the value's class is exactly Kind. The tag comes first: telling two classes apart
// by their type information costs a string comparison.
template <typename Kind>
bool IsExactly(MetaObj::MetaObject const& value, MetaObj::MetaType tag) {
    return value.GetType() == tag && typeid(value) == typeid(Kind);
}

// ToString of the value, without building a string for the two kinds that fill most cells. Only
// a value of exactly those classes takes the short way, so an override of ToString still counts.
std::string_view PrintedForm(MetaObj::MetaObject const& value, std::string& scratch) {
    if (IsExactly<MetaObj::MetaString>(value, MetaObj::MetaType::String)) {
        return static_cast<MetaObj::MetaString const&>(value).GetValue();
    }
    if (IsExactly<MetaObj::MetaInt>(value, MetaObj::MetaType::Int)) {
        char digits[20];
        long const number = static_cast<MetaObj::MetaInt const&>(value).GetValue();
        scratch.assign(digits, std::to_chars(digits, digits + sizeof(digits), number).ptr);
        return scratch;
    }
    scratch = value.ToString();
    return scratch;
}

}  // namespace

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
    std::string scratch;
    return std::string(Text(*value, scratch));
}

std::string_view FieldFormat::Text(MetaObj::MetaObject const& value, std::string& scratch) const {
    if (!printf && !units) {
        return PrintedForm(value, scratch);
    }
    scratch = value.ToString();
    if (printf) {
        std::string formatted;
        if (printf->Write(value, scratch, formatted) < 0) {
            scratch = "Error while handling formatting parameter " + printfKey +
                      ".  Unable to format field: " + std::strerror(errno);
            return scratch;
        }
        scratch = std::move(formatted);
    }
    if (units) {
        scratch += ' ';
        scratch += *units;
    }
    return scratch;
}

}  // namespace AutoCli
}  // namespace Tindra
