#include "tindra/autocli/formatters/TableFormatter.h"

#include <algorithm>
#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/trim.hpp>
#include <optional>
#include <string_view>

#include "autocli/formatters/ColumnValues.h"
#include "autocli/formatters/FieldFormat.h"
#include "autocli/formatters/FitString.h"
#include "autocli/formatters/OutputBuffer.h"
#include "autocli/formatters/ValueCast.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

using MetaObj::MetaList;
using MetaObj::MetaObject;
using MetaObj::MetaStruct;
using MetaObj::MetaType;

namespace {

struct Column {
    explicit Column(std::string columnName) : name(std::move(columnName)), width(name.size() + 2) {}

    std::string name;
    size_t width;
    // The printf and units of this column for the structure type of the rows at hand.
    std::optional<FieldFormat> format;
};

std::vector<std::string> ColumnNames(MetaStruct const& definition, FormatParameters const& params) {
    std::vector<std::string> names;
    std::string const typedKey = "fields:" + definition.GetTypeName();
    if (params.HasParameter(typedKey)) {
        names = params.GetParameterAsList(typedKey);
    } else if (params.HasParameter("fields")) {
        names = params.GetParameterAsList("fields");
    } else if (params.HasParameter("table-columns")) {
        names = params.GetParameterAsList("table-columns");
    } else {
        names = definition.GetFieldNames();
    }
    for (auto& name : names) {
        boost::trim_if(name, boost::is_any_of(" \t\f\v\n\r"));
    }
    return names;
}

bool ShowHeader(FormatParameters const& params) {
    std::string const& shown = params.GetParameter("show-header");
    return (shown.empty() ? params.GetParameter("table-header") : shown) != "false";
}

// One table: widths are measured over all rows first, so nothing is printed when a row is bad.
// Everything goes through one buffer: the stream sees one write per block, not one per piece.
class Table {
public:
    Table(std::vector<std::string> const& names, FormatParameters const& params,
          DisplayContext const& display, std::ostream& stream)
        : params(params), screenWidth(display.width), values(names), out(stream) {
        for (auto const& name : names) {
            columns.emplace_back(name);
        }
        wrapLast = params.GetParameter("wrap-last") == "true" && screenWidth != 0;
    }

    bool Measure(MetaList& list);
    void WriteHeader();
    void WriteUnderline();
    void DecideWrapping();
    bool WriteRows(MetaList& list);
    bool HasColumns() const { return !columns.empty(); }
    void Finish() { out.Flush(); }

private:
    void UseFormatsOf(MetaStruct const& row);
    bool WriteRow(MetaStruct const& row);
    void WriteCell(Column const& column, bool last, MetaObject const& value);
    size_t WidthBeforeLast() const;

    FormatParameters const& params;
    int screenWidth;
    std::vector<Column> columns;
    ColumnValues values;
    // The structure type whose formats the columns hold; rows of a list rarely change it.
    std::optional<std::string> formatsType;
    std::string scratch;
    bool wrapLast = false;
    size_t others = 0;
    OutputBuffer out;
};

bool Table::Measure(MetaList& list) {
    for (auto const& item : list.GetObjects()) {
        auto const* row = ValueCast<MetaStruct const>(item.get(), MetaType::Struct);
        if (row == nullptr) {
            out.Append("Error: Unexpected type, unable to get struct from list\n");
            return false;
        }
        values.Find(*row);
        UseFormatsOf(*row);
        for (size_t i = 0; i < columns.size(); ++i) {
            Column& column = columns[i];
            if (values[i] == nullptr) {
                out.Append("Error: Unknown field in field list: ");
                out.Append(column.name);
                out.Append('\n');
                return false;
            }
            size_t const length = column.format->Text(*values[i], scratch).size();
            column.width = std::max(column.width, length + 2);
        }
    }
    return true;
}

void Table::UseFormatsOf(MetaStruct const& row) {
    std::string const& typeName = row.GetTypeName();
    if (formatsType && *formatsType == typeName) {
        return;
    }
    for (auto& column : columns) {
        column.format.emplace(typeName, column.name, params);
    }
    formatsType = typeName;
}

size_t Table::WidthBeforeLast() const {
    size_t sum = 0;
    for (size_t i = 0; i + 1 < columns.size(); ++i) {
        sum += columns[i].width;
    }
    return sum;
}

void Table::WriteHeader() {
    for (size_t i = 0; i + 1 < columns.size(); ++i) {
        out.Append(columns[i].name);
        out.AppendSpaces(columns[i].width - columns[i].name.size());
    }
    out.Append(columns.back().name);
    out.Append('\n');
}

// Dashes under every header, two blanks before each column edge but the last.
void Table::WriteUnderline() {
    std::string line(WidthBeforeLast() + columns.back().name.size(), '-');
    size_t edge = 0;
    for (size_t i = 0; i + 1 < columns.size(); ++i) {
        edge += columns[i].width;
        line[edge - 2] = ' ';
        line[edge - 1] = ' ';
    }
    out.Append(line);
    out.Append('\n');
}

void Table::DecideWrapping() {
    if (!wrapLast) {
        return;
    }
    std::string const& lastName = columns.back().name;
    for (auto const& column : columns) {
        if (column.name != lastName) {
            others += column.width;
        }
    }
    if (static_cast<size_t>(screenWidth) < others + lastName.size()) {
        wrapLast = false;
        others = 0;
    }
}

bool Table::WriteRows(MetaList& list) {
    for (auto const& item : list.GetObjects()) {
        auto const* row = ValueCast<MetaStruct const>(item.get(), MetaType::Struct);
        if (row != nullptr && !WriteRow(*row)) {
            return false;
        }
    }
    return true;
}

bool Table::WriteRow(MetaStruct const& row) {
    values.Find(row);
    UseFormatsOf(row);
    for (size_t i = 0; i < columns.size(); ++i) {
        if (values[i] == nullptr) {
            out.Append("Unknown column ");
            out.Append(columns[i].name);
            return false;
        }
        WriteCell(columns[i], i + 1 == columns.size(), *values[i]);
    }
    out.Append('\n');
    return true;
}

void Table::WriteCell(Column const& column, bool last, MetaObject const& value) {
    if (wrapLast && last && others != 0) {
        FitString(static_cast<int>(others), screenWidth, PrintedForm(value, scratch), true, out,
                  false, 0, true);
        return;
    }
    std::string_view const text = column.format->Text(value, scratch);
    size_t const padding = column.width > text.size() ? column.width - text.size() : 0;
    if (value.GetType() == MetaType::Int) {
        out.AppendSpaces(padding > 2 ? padding - 2 : 0);
        out.Append(text);
        out.Append("  ");
        return;
    }
    out.Append(text);
    if (!last) {
        out.AppendSpaces(padding);
    }
}

std::shared_ptr<MetaList> RootList(std::shared_ptr<CallSpec::Output> const& output) {
    auto const root = output ? output->GetRootObject() : nullptr;
    auto list = std::dynamic_pointer_cast<MetaList>(root);
    if (!list || list->GetListType() != MetaType::Struct) {
        throw TindraException(
            "Error: Unexpected type for output, formatter, table, expected a List of structs");
    }
    return list;
}

}  // namespace

TableFormatter::TableFormatter() : Formatter("table") {
    description =
        "Print a list of structs as a table, with each row being one entry in the list and each "
        "column being a field of the structure.";
    params.emplace_back(
        "fields:<TypeName>",
        "The list of fields and the order in which to print them for the type named in "
        "<TypeName>",
        true);
    params.emplace_back("show-header",
                        "Optionally disable showing column headers by passing the 'false' value");
    params.emplace_back("wrap-last",
                        "If 'true' wrap the last column to the width of the terminal.");
    params.emplace_back(
        "units:<TypeName>.<FieldName>",
        "Use the given 'units' value as a suffix for a given field.  For example specifying "
        "\"units:ScsiDeviceList.Size\" = \"Mb\" would append the string 'Mb' to the end of a "
        "field");
    params.emplace_back(
        "printf:<TypeName>.<FieldName>",
        "Use the given 'printf' formatting string for printing a value.  This uses standard "
        "printf syntax to format and print a Value.  For example specifying "
        "\"units:ScsiDeviceList.Size\" = \"Mb\" would append the string 'Mb' to the end of a "
        "field");
    params.emplace_back(
        "header-line",
        "Optionally remove the line of '-' characters after the header.  By default this "
        "paramter is assumed to be true.  Setting it to 'false' will remove the line.  This "
        "parameter only has meaning if 'show-header' is also true");
}

bool TableFormatter::Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                            DisplayContext& display, std::ostream& out) {
    auto const list = RootList(output);
    auto const& definition = list->GetListStructure();
    if (!definition) {
        if (list->GetCount() == 0) {
            return true;
        }
        throw TindraException("Error: Unable to get structure type from list output.");
    }
    Table table(ColumnNames(*definition, params), params, display, out);
    if (!table.Measure(*list)) {
        table.Finish();
        return false;
    }
    out.setf(std::ios_base::left, std::ios_base::adjustfield);
    if (ShowHeader(params) && table.HasColumns()) {
        table.WriteHeader();
        if (params.GetParameter("header-line") != "false") {
            table.WriteUnderline();
        }
    }
    if (table.HasColumns()) {
        table.DecideWrapping();
    }
    bool const written = table.WriteRows(*list);
    table.Finish();
    return written;
}

}  // namespace AutoCli
}  // namespace Tindra
