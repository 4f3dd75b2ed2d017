#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_COLUMNVALUES_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_COLUMNVALUES_H

#include <cstddef>
#include <string>
#include <vector>

#include "autocli/formatters/FieldPath.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// The values of a table's columns in one row after the other. The rows of a list almost always
// hold the same fields in the same places, so a plain column name is first looked for where it
// was found in the previous row; dotted paths go through FieldPath. The values belong to the
// row and stay valid while it lives.
class ColumnValues {
public:
    explicit ColumnValues(std::vector<std::string> const& names);

    // Looks up every column in `row`; a column the row lacks gets no value.
    void Find(MetaObj::MetaStruct const& row);
    // The value of a column in the row last found, or nullptr.
    MetaObj::MetaObject* operator[](size_t column) const { return values[column]; }

private:
    struct Field {
        std::string const* name;
        MetaObj::MetaObject* value;
    };

    MetaObj::MetaObject* FindPlain(size_t column);

    std::vector<FieldPath> paths;
    // Per column, the place of its field in the previous row.
    std::vector<size_t> places;
    std::vector<MetaObj::MetaObject*> values;
    // The fields of the row at hand.
    std::vector<Field> fields;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
