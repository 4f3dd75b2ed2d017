#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_FIELDFORMAT_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_FIELDFORMAT_H

#include <optional>
#include <string>
#include <string_view>

#include "autocli/formatters/PrintfFormat.h"
#include "tindra/autocli/formatters/FormatParameters.h"
#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace AutoCli {

// How the values of one field of one structure type are printed: the request's printf and
// units parameters, looked up once so that a table can format a million cells cheaply.
class FieldFormat {
public:
    FieldFormat(std::string const& typeName, std::string const& fieldName,
                FormatParameters const& params);

    std::string Apply(MetaObj::MetaObject const* value) const;
    // The same text as Apply, without a copy where the value's own text serves: it points into
    // the value or into `scratch`, and holds until either changes.
    std::string_view Text(MetaObj::MetaObject const& value, std::string& scratch) const;
    std::string const& GetTypeName() const { return typeName; }

private:
    std::string typeName;
    std::string printfKey;
    std::optional<PrintfFormat> printf;
    std::optional<std::string> units;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
