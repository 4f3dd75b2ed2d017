#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_FIELDFORMAT_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_FIELDFORMAT_H

#include <charconv>
#include <optional>
#include <string>
#include <string_view>

#include "autocli/formatters/PrintfFormat.h"
#include "autocli/formatters/ValueCast.h"
#include "tindra/autocli/formatters/FormatParameters.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaString.h"

namespace Tindra {
namespace AutoCli {

// The value's ToString, without a copy where the value's own text serves: it points into the
// value or into `scratch`, and holds until either changes. Only a value of exactly the two
// classes that fill most cells takes the short way, so an override of ToString still counts.
inline std::string_view PrintedForm(MetaObj::MetaObject const& value, std::string& scratch) {
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

// How the values of one field of one structure type are printed: the request's printf and
// units parameters, looked up once so that a table can format a million cells cheaply.
class FieldFormat {
public:
    FieldFormat(std::string const& typeName, std::string const& fieldName,
                FormatParameters const& params);

    std::string Apply(MetaObj::MetaObject const* value) const;
    // The same text as Apply, held as PrintedForm holds it.
    std::string_view Text(MetaObj::MetaObject const& value, std::string& scratch) const;

private:
    std::string printfKey;
    std::optional<PrintfFormat> printf;
    std::optional<std::string> units;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
