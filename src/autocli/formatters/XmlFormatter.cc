#include "tindra/autocli/formatters/XmlFormatter.h"

#include "autocli/formatters/KindMismatch.h"
#include "autocli/formatters/Spaces.h"
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
    explicit XmlWriter(std::ostream& out) : out(out) {}

    void Value(MetaObject* value, int level);

private:
    void Bool(MetaObject& value, int level);
    void Int(MetaObject& value, int level);
    void String(MetaObject& value, int level);
    void Struct(MetaObject& value, int level);
    void List(MetaObject& value, int level);

    std::ostream& out;
};

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
    out << "Error Only simple int, bool, string and struct output supported\n";
}

void XmlWriter::Bool(MetaObject& value, int level) {
    auto const* flag = dynamic_cast<MetaBool const*>(&value);
    if (flag == nullptr) {
        out << "<!-- " << KindMismatch::kBool << " -->\n";
        return;
    }
    WriteIndent(out, level);
    out << "<boolean>" << (flag->GetValue() ? "true" : "false") << "</boolean>\n";
}

void XmlWriter::Int(MetaObject& value, int level) {
    auto const* number = dynamic_cast<MetaInt const*>(&value);
    if (number == nullptr) {
        out << KindMismatch::kInt << '\n';
        return;
    }
    WriteIndent(out, level);
    out << "<integer>" << number->GetValue() << "</integer>\n";
}

void XmlWriter::String(MetaObject& value, int level) {
    auto const* text = dynamic_cast<MetaString const*>(&value);
    if (text == nullptr) {
        out << KindMismatch::kString << '\n';
        return;
    }
    WriteIndent(out, level);
    out << "<string>";
    WriteXmlEscaped(out, text->GetValue());
    out << "</string>\n";
}

void XmlWriter::Struct(MetaObject& value, int level) {
    auto const* structure = dynamic_cast<MetaStruct const*>(&value);
    if (structure == nullptr) {
        out << KindMismatch::kStruct << '\n';
        return;
    }
    WriteIndent(out, level);
    out << "<structure typeName=\"";
    WriteXmlEscaped(out, structure->GetTypeName());
    out << "\">\n";
    for (auto const& name : structure->GetFieldNames()) {
        WriteIndent(out, level);
        out << "   <field name=\"";
        WriteXmlEscaped(out, name);
        out << "\">\n";
        Value(structure->GetField(name).get(), level + 2);
        WriteIndent(out, level);
        out << "   </field>\n";
    }
    WriteIndent(out, level);
    out << "</structure>\n";
}

void XmlWriter::List(MetaObject& value, int level) {
    auto* list = dynamic_cast<MetaList*>(&value);
    if (list == nullptr) {
        out << KindMismatch::kList << '\n';
        return;
    }
    WriteIndent(out, level);
    out << "<list type=\"" << ListTypeWord(list->GetListType()) << "\">\n";
    for (auto const& item : list->GetObjects()) {
        Value(item.get(), level + 2);
    }
    WriteIndent(out, level);
    out << "</list>\n";
}

void WriteMetaData(std::ostream& out, FormatParameters const& params) {
    out << "   <meta-data>\n";
    for (auto const& [key, value] : params.GetParameters()) {
        out << "      <meta-data-field name=\"";
        WriteXmlEscaped(out, key);
        out << "\" value=\"";
        WriteXmlEscaped(out, value);
        out << "\"/>\n";
    }
    out << "   </meta-data>\n";
}

}  // namespace

XmlFormatter::XmlFormatter() : Formatter("xml") {
    description = "Print an XML document to the screen representing the output for a given command";
    params.emplace_back("stylesheet", "The file name or URL to a stylesheet for this document.  ");
}

bool XmlFormatter::Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                          DisplayContext&, std::ostream& out) {
    out << "<?xml version=\"1.0\"?>\n";
    if (params.HasParameter("stylesheet")) {
        out << "<?xml-stylesheet type=\"text/xsl\" href=\"" << params.GetParameter("stylesheet")
            << "\"?>\n";
    }
    out << "<output xmlns:ostrel=\"" << kOutputNamespace << "\">\n";
    WriteMetaData(out, params);
    out << "   <root>\n";
    XmlWriter(out).Value(output ? output->GetRootObject().get() : nullptr, 2);
    out << "   </root>\n";
    out << "</output>\n";
    return true;
}

void XmlFormatter::Format(std::shared_ptr<MetaObject> value, std::ostream& out, int level) {
    XmlWriter(out).Value(value.get(), level);
}

}  // namespace AutoCli
}  // namespace Tindra
