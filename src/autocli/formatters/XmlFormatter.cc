#include "tindra/autocli/formatters/XmlFormatter.h"

#include <string_view>

#include "autocli/formatters/KindMismatch.h"
#include "autocli/formatters/OutputBuffer.h"
#include "autocli/formatters/Spaces.h"
#include "autocli/formatters/ValueCast.h"
#include "autocli/formatters/XmlEscape.h"

namespace Tindra {
namespace AutoCli {

using MetaObj::MetaBool;
using MetaObj::MetaInt;
using MetaObj::MetaList;
using MetaObj::MetaObject;
using MetaObj::MetaString;
using MetaObj::MetaStruct;
using MetaObj::MetaType;
using namespace std::string_view_literals;

namespace {

// Bound to the "ostrel" prefix of every document; fixed so that stylesheets can rely on it.
char const* const kOutputNamespace = "urn:tindra:ostrel:output:1";

char const* ListTypeWord(MetaType type) {
    switch (type) {
        case MetaType::Bool:
            return "boolean";
        case MetaType::Int:
            return "integer";
        case MetaType::String:
            return "string";
        case MetaType::Struct:
            return "structure";
        case MetaType::List:
            return "list";
    }
    return "";
}

// Writes values by reference, so that a list of a million items costs no reference counting.
class XmlWriter {
public:
    explicit XmlWriter(std::ostream& stream) : out(stream) {}

    void Document(MetaObject* root, FormatParameters const& params);
    void Value(MetaObject* value, int level);
    void Finish() { out.Flush(); }

private:
    void MetaData(FormatParameters const& params);
    void Bool(MetaObject& value, int level);
    void Int(MetaObject& value, int level);
    void String(MetaObject& value, int level);
    void Struct(MetaObject& value, int level);
    void List(MetaObject& value, int level);
    void Line(std::string_view text);

    OutputBuffer out;
};

void XmlWriter::Document(MetaObject* root, FormatParameters const& params) {
    Line("<?xml version=\"1.0\"?>");
    if (params.HasParameter("stylesheet")) {
        out.Append("<?xml-stylesheet type=\"text/xsl\" href=\"");
        out.Append(params.GetParameter("stylesheet"));
        Line("\"?>");
    }
    out.Append("<output xmlns:ostrel=\"");
    out.Append(kOutputNamespace);
    Line("\">");
    MetaData(params);
    Line("   <root>");
    Value(root, 2);
    Line("   </root>");
    Line("</output>");
}

void XmlWriter::MetaData(FormatParameters const& params) {
    Line("   <meta-data>");
    for (auto const& [key, value] : params.GetParameters()) {
        out.Append("      <meta-data-field name=\"");
        WriteXmlEscaped(out, key);
        out.Append("\" value=\"");
        WriteXmlEscaped(out, value);
        Line("\"/>");
    }
    Line("   </meta-data>");
}

void XmlWriter::Line(std::string_view text) {
    out.Append(text);
    out.Append('\n');
}

void XmlWriter::Value(MetaObject* value, int level) {
    if (value == nullptr) {
        return;
    }
    switch (value->GetType()) {
        case MetaType::Bool:
            return Bool(*value, level);
        case MetaType::Int:
            return Int(*value, level);
        case MetaType::String:
            return String(*value, level);
        case MetaType::Struct:
            return Struct(*value, level);
        case MetaType::List:
            return List(*value, level);
    }
    Line("Error Only simple int, bool, string and struct output supported");
}

void XmlWriter::Bool(MetaObject& value, int level) {
    auto const* flag = ValueCast<MetaBool const>(&value, MetaType::Bool);
    if (flag == nullptr) {
        out.Append("<!-- ");
        out.Append(KindMismatch::kBool);
        Line(" -->");
        return;
    }
    WriteIndent(out, level);
    out.Append("<boolean>");
    out.Append(flag->GetValue() ? "true"sv : "false"sv);
    Line("</boolean>");
}

void XmlWriter::Int(MetaObject& value, int level) {
    auto const* number = ValueCast<MetaInt const>(&value, MetaType::Int);
    if (number == nullptr) {
        Line(KindMismatch::kInt);
        return;
    }
    WriteIndent(out, level);
    out.Append("<integer>");
    out.AppendInteger(number->GetValue());
    Line("</integer>");
}

void XmlWriter::String(MetaObject& value, int level) {
    auto const* text = ValueCast<MetaString const>(&value, MetaType::String);
    if (text == nullptr) {
        Line(KindMismatch::kString);
        return;
    }
    WriteIndent(out, level);
    out.Append("<string>");
    WriteXmlEscaped(out, text->GetValue());
    Line("</string>");
}

void XmlWriter::Struct(MetaObject& value, int level) {
    auto const* structure = ValueCast<MetaStruct const>(&value, MetaType::Struct);
    if (structure == nullptr) {
        Line(KindMismatch::kStruct);
        return;
    }
    WriteIndent(out, level);
    out.Append("<structure typeName=\"");
    WriteXmlEscaped(out, structure->GetTypeName());
    Line("\">");
    structure->ForEachField([&](std::string const& name, MetaObject& field) {
        WriteIndent(out, level);
        out.Append("   <field name=\"");
        WriteXmlEscaped(out, name);
        Line("\">");
        Value(&field, level + 2);
        WriteIndent(out, level);
        Line("   </field>");
    });
    WriteIndent(out, level);
    Line("</structure>");
}

void XmlWriter::List(MetaObject& value, int level) {
    auto* list = ValueCast<MetaList>(&value, MetaType::List);
    if (list == nullptr) {
        Line(KindMismatch::kList);
        return;
    }
    WriteIndent(out, level);
    out.Append("<list type=\"");
    out.Append(ListTypeWord(list->GetListType()));
    Line("\">");
    for (auto const& item : list->GetObjects()) {
        Value(item.get(), level + 2);
    }
    WriteIndent(out, level);
    Line("</list>");
}

}  // namespace

XmlFormatter::XmlFormatter() : Formatter("xml") {
    description = "Print an XML document to the screen representing the output for a given command";
    params.emplace_back("stylesheet", "The file name or URL to a stylesheet for this document.  ");
}

bool XmlFormatter::Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                          DisplayContext&, std::ostream& out) {
    XmlWriter writer(out);
    writer.Document(output ? output->GetRootObject().get() : nullptr, params);
    writer.Finish();
    return true;
}

void XmlFormatter::Format(std::shared_ptr<MetaObject> value, std::ostream& out, int level) {
    XmlWriter writer(out);
    writer.Value(value.get(), level);
    writer.Finish();
}

}  // namespace AutoCli
}  // namespace Tindra
