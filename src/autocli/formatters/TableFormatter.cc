#include "tindra/autocli/formatters/TableFormatter.h"

#include <algorithm>
#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/trim.hpp>
#include <optional>

#include "autocli/formatters/FieldFormat.h"
#include "autocli/formatters/FieldPath.h"
#include "autocli/formatters/Spaces.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/formatters/FieldHelpers.h"

namespace Tindra {
namespace AutoCli {

using MetaObj::MetaList;
using MetaObj::MetaObject;
using MetaObj::MetaStruct;
using MetaObj::MetaType;

namespace {

struct Column {
    explicit Column(std::string columnName)
        : name(std::move(columnName)), path(name), width(name.size() + 2) {}

    // The printf and units of this column for the structure type at hand, looked up again only
    // when the type name changes.
    FieldFormat const& FormatFor(std::string const& typeName, FormatParameters const& params) {
        if (!format || format->GetTypeName() != typeName) {
            format.emplace(typeName, name, params);
        }
        return *format;
    }

    std::string name;
    FieldPath path;
    size_t width;
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

void Write(std::ostream& out, std::string const& text) {
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

// One table: widths are measured over all rows first, so nothing is printed when a row is bad.
class Table {
public:
    Table(std::vector<std::string> const& names, FormatParameters const& params,
          DisplayContext const& display)
        : params(params), screenWidth(display.width) {
        for (auto const& name : names) {
            columns.emplace_back(name);
        }
        wrapLast = params.GetParameter("wrap-last") == "true" && screenWidth != 0;
    }

    bool Measure(MetaList& list, std::ostream& out);
    void WriteHeader(std::ostream& out) const;
    void WriteUnderline(std::ostream& out) const;
    void DecideWrapping();
    bool WriteRows(MetaList& list, std::ostream& out);
    bool HasColumns() const { return !columns.empty(); }

private:
    bool WriteRow(MetaStruct const& row, std::ostream& out);
    void WriteCell(Column& column, bool last, MetaStruct const& row, MetaObject const& value,
                   std::ostream& out);
    size_t WidthBeforeLast() const;

    FormatParameters const& params;
    int screenWidth;
    std::vector<Column> columns;
    bool wrapLast = false;
    size_t others = 0;
};

bool Table::Measure(MetaList& list, std::ostream& out) {
    for (auto const& item : list.GetObjects()) {
        auto const* row = dynamic_cast<MetaStruct const*>(item.get());
        if (row == nullptr) {
            out << "Error: Unexpected type, unable to get struct from list\n";
            return false;
        }
        for (auto& column : columns) {
            auto const value = column.path.Resolve(*row);
            if (!value) {
                out << "Error: Unknown field in field list: " << column.name << '\n';
                return false;
            }
            size_t const length =
                column.FormatFor(row->GetTypeName(), params).Apply(value.get()).size();
            column.width = std::max(column.width, length + 2);
        }
    }
    return true;
}

size_t Table::WidthBeforeLast() const {
    size_t sum = 0;
    for (size_t i = 0; i + 1 < columns.size(); ++i) {
        sum += columns[i].width;
    }
    return sum;
}

void Table::WriteHeader(std::ostream& out) const {
    for (size_t i = 0; i + 1 < columns.size(); ++i) {
        Write(out, columns[i].name);
        WriteSpaces(out, columns[i].width - columns[i].name.size());
    }
    Write(out, columns.back().name);
    out << '\n';
}

// Dashes under every header, two blanks before each column edge but the last.
void Table::WriteUnderline(std::ostream& out) const {
    std::string line(WidthBeforeLast() + columns.back().name.size(), '-');
    size_t edge = 0;
    for (size_t i = 0; i + 1 < columns.size(); ++i) {
        edge += columns[i].width;
        line[edge - 2] = ' ';
        line[edge - 1] = ' ';
    }
    Write(out, line);
    out << '\n';
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

bool Table::WriteRows(MetaList& list, std::ostream& out) {
    for (auto const& item : list.GetObjects()) {
        auto const* row = dynamic_cast<MetaStruct const*>(item.get());
        if (row != nullptr && !WriteRow(*row, out)) {
            return false;
        }
    }
    return true;
}

bool Table::WriteRow(MetaStruct const& row, std::ostream& out) {
    for (size_t i = 0; i < columns.size(); ++i) {
        auto const value = columns[i].path.Resolve(row);
        if (!value) {
            out << "Unknown column " << columns[i].name;
            return false;
        }
        WriteCell(columns[i], i + 1 == columns.size(), row, *value, out);
    }
    out << '\n';
    return true;
}

void Table::WriteCell(Column& column, bool last, MetaStruct const& row, MetaObject const& value,
                      std::ostream& out) {
    if (wrapLast && last && others != 0) {
        AutoCli_FitString(static_cast<int>(others), screenWidth, value.ToString(), true, out, false,
                          0, true);
        return;
    }
    std::string const text = column.FormatFor(row.GetTypeName(), params).Apply(&value);
    size_t const padding = column.width > text.size() ? column.width - text.size() : 0;
    if (value.GetType() == MetaType::Int) {
        WriteSpaces(out, padding > 2 ? padding - 2 : 0);
        Write(out, text);
        out << "  ";
        return;
    }
    Write(out, text);
    if (!last) {
        WriteSpaces(out, padding);
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
    Table table(ColumnNames(*definition, params), params, display);
    if (!table.Measure(*list, out)) {
        return false;
    }
    out.setf(std::ios_base::left, std::ios_base::adjustfield);
    if (ShowHeader(params) && table.HasColumns()) {
        table.WriteHeader(out);
        if (params.GetParameter("header-line") != "false") {
            table.WriteUnderline(out);
        }
    }
    if (table.HasColumns()) {
        table.DecideWrapping();
    }
    return table.WriteRows(*list, out);
}

}  // namespace AutoCli
}  // namespace Tindra
