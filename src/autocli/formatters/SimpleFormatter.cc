#include "tindra/autocli/formatters/SimpleFormatter.h"

#include <algorithm>
#include <boost/algorithm/string/replace.hpp>
#include <boost/regex.hpp>

#include "autocli/formatters/KindMismatch.h"
#include "autocli/formatters/Spaces.h"
#include "tindra/autocli/formatters/FieldHelpers.h"

namespace Tindra {
namespace AutoCli {

using MetaObj::MetaBool;
using MetaObj::MetaInt;
using MetaObj::MetaList;
using MetaObj::MetaObject;
using MetaObj::MetaString;
using MetaObj::MetaStruct;
using MetaObj::MetaType;

namespace {

std::vector<std::string> ChosenFields(MetaStruct const& value, FormatParameters const& params) {
    std::string const typedKey = "fields:" + value.GetTypeName();
    if (params.HasParameter(typedKey)) {
        return params.GetParameterAsList(typedKey);
    }
    if (params.HasParameter("fields")) {
        return params.GetParameterAsList("fields");
    }
    return value.GetFieldNames();
}

size_t NameWidth(std::vector<std::string> const& names, FormatParameters const& params) {
    if (params.GetParameter("align-fields") != "true") {
        return 0;
    }
    size_t width = 0;
    for (auto const& name : names) {
        width = std::max(width, name.size());
    }
    return width;
}

// A header parameter may name one field between '%' signs whose value replaces the tag.
std::string HeaderText(MetaStruct const& value, FormatParameters const& params) {
    std::string const key = "header:" + value.GetTypeName();
    if (!params.HasParameter(key)) {
        return value.GetTypeName();
    }
    std::string header = params.GetParameter(key);
    if (header.find('%') == std::string::npos) {
        return header;
    }
    static boost::regex const tag(".*%(.+)%.*");
    boost::smatch match;
    if (!boost::regex_match(header, match, tag)) {
        return header;
    }
    std::string const fieldName = match[1];
    auto const field = value.GetField(fieldName);
    if (field) {
        boost::replace_all(header, "%" + fieldName + "%", field->ToString());
    }
    return header;
}

void WriteLine(std::ostream& out, std::string const& text) {
    out << text << '\n';
}

}  // namespace

SimpleFormatter::SimpleFormatter() : Formatter("simple") {
    description =
        "Print a representation of any item to the screen. This can be any type, but this "
        "formatter excels at printing structs and lists of structs.";
    params.emplace_back(
        "header:<TypeName>",
        "When printing a struct type, prefix the output of the struct with the given text string "
        "and then indent all the struct fields below this text.  The TypeName value can be "
        "determined from the raw or xml output for a command.  For this field a special variable "
        "substitution is available in the value of this format paramter.  If the value contains "
        "a string %<Field>% then this formatter will do token substitution and replace the value "
        "of %<Field>% with the given value of the field in <TypeName>.  Note this can only be a "
        "scalar type (int, bool, string) and must exactly match one of the fields in the struct "
        "<TypeName>.  Example: 'header:ScsiDeviceList' = 'SCSI Device %Device Name%' will result "
        "in a header of 'SCSI Device naa.XXXX'.  Note only one %<Field>% tag is supported.  To "
        "disable the display of the header the special value <NONE> can be used");
    params.emplace_back(
        "fields:<TypeName>",
        "When printing a struct use the set of fields given in this parameter.  This allows the "
        "ordering and filtering of the fields printed for a given struct. If no ':<TypeName>' is "
        "given then then all structs encounted in the output will attempt to use these fields.  "
        "This provides a reasonable default and compatible output with other formatters");
    params.emplace_back(
        "units:<TypeName>.<FieldName>",
        "When printing a struct use the given 'units' value as a suffix for a given field.  For "
        "example specifying \"units:ScsiDeviceList:Size\" = \"Mb\" would append the string 'Mb' "
        "to the end of a field");
    params.emplace_back(
        "printf:<TypeName>.<FieldName>",
        "When printing a struct use the given 'printf' formatting string for printing the value.  "
        "This uses standard printf syntax to print a given field.  For example specifying "
        "\"units:ScsiDeviceList.Size\" = \"Mb\" would append the string 'Mb' to the end of a "
        "field");
    params.emplace_back("align-fields",
                        "When printing a struct left align all of the fields values so they all "
                        "start at the same column");
}

bool SimpleFormatter::Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                             DisplayContext&, std::ostream& out) {
    auto const root = output ? output->GetRootObject() : nullptr;
    if (root) {
        Format(root, params, out, root->GetType() == MetaType::List ? -1 : 0);
    }
    return true;
}

void SimpleFormatter::Format(std::shared_ptr<MetaObject> value, FormatParameters& params,
                             std::ostream& out, int level) {
    if (!value) {
        return;
    }
    switch (value->GetType()) {
        case MetaType::Bool: {
            auto const* flag = dynamic_cast<MetaBool const*>(value.get());
            WriteLine(out, flag ? (flag->GetValue() ? "true" : "false") : KindMismatch::kBool);
            break;
        }
        case MetaType::Int: {
            auto const* number = dynamic_cast<MetaInt const*>(value.get());
            WriteLine(out, number ? number->ToString() : KindMismatch::kInt);
            break;
        }
        case MetaType::String: {
            auto const* text = dynamic_cast<MetaString const*>(value.get());
            WriteLine(out, text ? text->GetValue() : KindMismatch::kString);
            break;
        }
        case MetaType::Struct:
            FormatStruct(std::dynamic_pointer_cast<MetaStruct>(value), params, out, level);
            break;
        case MetaType::List:
            FormatList(std::dynamic_pointer_cast<MetaList>(value), params, out, level);
            break;
    }
}

void SimpleFormatter::FormatStruct(std::shared_ptr<MetaStruct> value, FormatParameters& params,
                                   std::ostream& out, int level) {
    if (!value) {
        WriteLine(out, KindMismatch::kStruct);
        return;
    }
    std::vector<std::string> const names = ChosenFields(*value, params);
    size_t const nameWidth = NameWidth(names, params);
    std::string const header = HeaderText(*value, params);
    if (header != "<NONE>") {
        WriteIndent(out, level);
        out << header << ":\n";
    }
    for (auto const& name : names) {
        auto const field = value->GetField(name);
        if (!field) {
            WriteLine(out, "Error getting field " + name);
            return;
        }
        WriteIndent(out, level);
        out << "   " << name;
        WriteSpaces(out, nameWidth > name.size() ? nameWidth - name.size() : 0);
        out << ": ";
        if (field->GetType() == MetaType::Struct) {
            out << '\n';
            Format(field, params, out, level + 2);
        } else if (field->GetType() == MetaType::List) {
            Format(field, params, out, level + 2);
        } else {
            WriteLine(out, AutoCli_FormatField(value->GetTypeName(), name, field, params));
        }
    }
}

void SimpleFormatter::FormatList(std::shared_ptr<MetaList> value, FormatParameters& params,
                                 std::ostream& out, int level) {
    if (!value) {
        WriteLine(out, KindMismatch::kList);
        return;
    }
    MetaType const itemType = value->GetListType();
    if (itemType != MetaType::Struct && itemType != MetaType::List) {
        WriteLine(out, value->ToString());
        return;
    }
    for (auto const& item : value->GetObjects()) {
        out << '\n';
        Format(item, params, out, level + 1);
    }
    out << '\n';
}

}  // namespace AutoCli
}  // namespace Tindra
