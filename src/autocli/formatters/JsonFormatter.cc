#include "tindra/autocli/formatters/JsonFormatter.h"

#include <string_view>

#include "autocli/formatters/KindMismatch.h"
#include "autocli/formatters/Spaces.h"

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

// The escape of one byte, or nullptr for a byte written as it is. Bytes outside printable
// ASCII become one \u escape each, so multi-byte characters give one escape per byte.
char const* JsonEscape(unsigned char byte, char (&scratch)[7]) {
    switch (byte) {
        case '\b':
            return "\\b";
        case '\t':
            return "\\t";
        case '\n':
            return "\\n";
        case '\f':
            return "\\f";
        case '\r':
            return "\\r";
        case '/':
            return "\\/";
        case '\\':
            return "\\\\";
        case '"':
            return "\\\"";
        default:
            break;
    }
    if (byte >= 32 && byte < 127) {
        return nullptr;
    }
    static char const hex[] = "0123456789abcdef";
    scratch[0] = '\\';
    scratch[1] = 'u';
    scratch[2] = '0';
    scratch[3] = '0';
    scratch[4] = hex[byte >> 4];
    scratch[5] = hex[byte & 0xF];
    scratch[6] = '\0';
    return scratch;
}

void WriteJsonString(std::ostream& out, std::string_view text) {
    char scratch[7];
    size_t plainStart = 0;
    out.put('"');
    for (size_t i = 0; i < text.size(); ++i) {
        if (char const* escape = JsonEscape(static_cast<unsigned char>(text[i]), scratch)) {
            out.write(text.data() + plainStart, static_cast<std::streamsize>(i - plainStart));
            out << escape;
            plainStart = i + 1;
        }
    }
    out.write(text.data() + plainStart, static_cast<std::streamsize>(text.size() - plainStart));
    out.put('"');
}

// Writes values by reference, so that a list of a million items costs no reference counting.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& out) : out(out) {}

    void Value(MetaObject* value, int level);

private:
    void Struct(MetaObject& value, int level);
    void List(MetaObject& value, int level);

    std::ostream& out;
};

void JsonWriter::Value(MetaObject* value, int level) {
    if (value == nullptr) {
        out << "null";
        return;
    }
    switch (value->GetType()) {
        case MetaType::Bool: {
            auto const* flag = dynamic_cast<MetaBool const*>(value);
            if (flag) {
                out << (flag->GetValue() ? "true" : "false");
            } else {
                out << KindMismatch::kBool << '\n';
            }
            return;
        }
        case MetaType::Int: {
            auto const* number = dynamic_cast<MetaInt const*>(value);
            if (number) {
                out << number->GetValue();
            } else {
                out << KindMismatch::kInt << '\n';
            }
            return;
        }
        case MetaType::String: {
            auto const* text = dynamic_cast<MetaString const*>(value);
            if (text) {
                WriteJsonString(out, text->GetValue());
            } else {
                out << KindMismatch::kString << '\n';
            }
            return;
        }
        case MetaType::Struct:
            return Struct(*value, level);
        case MetaType::List:
            return List(*value, level);
    }
    out << "Unknown data type\n";
}

void JsonWriter::Struct(MetaObject& value, int level) {
    auto const* structure = dynamic_cast<MetaStruct const*>(&value);
    if (structure == nullptr) {
        out << KindMismatch::kStruct << '\n';
        return;
    }
    out.put('\n');
    WriteIndent(out, level);
    out << "{\n";
    std::vector<std::string> const names = structure->GetFieldNames();
    for (size_t i = 0; i < names.size(); ++i) {
        WriteIndent(out, level);
        out << "   \"" << names[i] << "\": ";
        Value(structure->GetField(names[i]).get(), level + 2);
        out << (i + 1 < names.size() ? ",\n" : "\n");
    }
    WriteIndent(out, level);
    out.put('}');
}

void JsonWriter::List(MetaObject& value, int level) {
    auto* list = dynamic_cast<MetaList*>(&value);
    if (list == nullptr) {
        out << KindMismatch::kList << '\n';
        return;
    }
    out.put('\n');
    WriteIndent(out, level);
    out << "[\n";
    auto const& items = list->GetObjects();
    for (size_t i = 0; i < items.size(); ++i) {
        WriteIndent(out, level);
        Value(items[i].get(), level + 3);
        out << (i + 1 < items.size() ? ", \n" : "\n");
    }
    WriteIndent(out, level);
    out.put(']');
}

}  // namespace

JsonFormatter::JsonFormatter() : Formatter("json") {
    description = "Print the output as JSON.";
}

bool JsonFormatter::Format(std::shared_ptr<CallSpec::Output> output, FormatParameters&,
                           DisplayContext&, std::ostream& out) {
    JsonWriter(out).Value(output ? output->GetRootObject().get() : nullptr, -1);
    out.put('\n');
    return true;
}

void JsonFormatter::Format(std::shared_ptr<MetaObject> value, std::ostream& out, int level) {
    JsonWriter(out).Value(value.get(), level);
}

}  // namespace AutoCli
}  // namespace Tindra
