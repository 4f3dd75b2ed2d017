#include "tindra/autocli/formatters/JsonFormatter.h"

#include <string_view>

#include "autocli/formatters/EscapeRuns.h"
#include "autocli/formatters/KindMismatch.h"
#include "autocli/formatters/OutputBuffer.h"
#include "autocli/formatters/Spaces.h"
#include "autocli/formatters/ValueCast.h"

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

// The escape of one byte, or nullptr for a byte written as it is. Bytes outside printable
// ASCII become one \u escape each, so multi-byte characters give one escape per byte.
constexpr char const* JsonEscape(unsigned char byte, char (&scratch)[7]) {
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
    scratch[0] = '\\';
    scratch[1] = 'u';
    scratch[2] = '0';
    scratch[3] = '0';
    scratch[4] = "0123456789abcdef"[byte >> 4];
    scratch[5] = "0123456789abcdef"[byte & 0xF];
    scratch[6] = '\0';
    return scratch;
}

void WriteJsonString(OutputBuffer& out, std::string_view text) {
    static constexpr PlainBytes plain = MakePlainBytes([](unsigned char byte) {
        char scratch[7] = {};
        return JsonEscape(byte, scratch) == nullptr;
    });
    char scratch[7];
    out.Append('"');
    ForEachEscapeRun(
        text, plain, [&out](std::string_view run) { out.Append(run); },
        [&out, &scratch](unsigned char byte) {
            out.Append(std::string_view(JsonEscape(byte, scratch)));
        });
    out.Append('"');
}

// Writes values by reference, so that a list of a million items costs no reference counting.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& stream) : out(stream) {}

    void Value(MetaObject* value, int level);
    void EndLine() { out.Append('\n'); }
    void Finish() { out.Flush(); }

private:
    void Struct(MetaObject& value, int level);
    void List(MetaObject& value, int level);
    void Mismatch(char const* words);

    OutputBuffer out;
};

void JsonWriter::Value(MetaObject* value, int level) {
    if (value == nullptr) {
        out.Append("null");
        return;
    }
    switch (value->GetType()) {
        case MetaType::Bool: {
            auto const* flag = ValueCast<MetaBool const>(value, MetaType::Bool);
            if (flag) {
                out.Append(flag->GetValue() ? "true"sv : "false"sv);
            } else {
                Mismatch(KindMismatch::kBool);
            }
            return;
        }
        case MetaType::Int: {
            auto const* number = ValueCast<MetaInt const>(value, MetaType::Int);
            if (number) {
                out.AppendInteger(number->GetValue());
            } else {
                Mismatch(KindMismatch::kInt);
            }
            return;
        }
        case MetaType::String: {
            auto const* text = ValueCast<MetaString const>(value, MetaType::String);
            if (text) {
                WriteJsonString(out, text->GetValue());
            } else {
                Mismatch(KindMismatch::kString);
            }
            return;
        }
        case MetaType::Struct:
            return Struct(*value, level);
        case MetaType::List:
            return List(*value, level);
    }
    out.Append("Unknown data type\n");
}

void JsonWriter::Mismatch(char const* words) {
    out.Append(words);
    out.Append('\n');
}

void JsonWriter::Struct(MetaObject& value, int level) {
    auto const* structure = ValueCast<MetaStruct const>(&value, MetaType::Struct);
    if (structure == nullptr) {
        Mismatch(KindMismatch::kStruct);
        return;
    }
    out.Append('\n');
    WriteIndent(out, level);
    out.Append("{\n");
    size_t remaining = structure->GetFieldCount();
    structure->ForEachField([&](std::string const& name, MetaObject& field) {
        WriteIndent(out, level);
        out.Append("   \"");
        out.Append(name);
        out.Append("\": ");
        Value(&field, level + 2);
        out.Append(--remaining > 0 ? ",\n"sv : "\n"sv);
    });
    WriteIndent(out, level);
    out.Append('}');
}

void JsonWriter::List(MetaObject& value, int level) {
    auto* list = ValueCast<MetaList>(&value, MetaType::List);
    if (list == nullptr) {
        Mismatch(KindMismatch::kList);
        return;
    }
    out.Append('\n');
    WriteIndent(out, level);
    out.Append("[\n");
    auto const& items = list->GetObjects();
    for (size_t i = 0; i < items.size(); ++i) {
        WriteIndent(out, level);
        Value(items[i].get(), level + 3);
        out.Append(i + 1 < items.size() ? ", \n"sv : "\n"sv);
    }
    WriteIndent(out, level);
    out.Append(']');
}

}  // namespace

JsonFormatter::JsonFormatter() : Formatter("json") {
    description = "Print the output as JSON.";
}

bool JsonFormatter::Format(std::shared_ptr<CallSpec::Output> output, FormatParameters&,
                           DisplayContext&, std::ostream& out) {
    JsonWriter writer(out);
    writer.Value(output ? output->GetRootObject().get() : nullptr, -1);
    writer.EndLine();
    writer.Finish();
    return true;
}

void JsonFormatter::Format(std::shared_ptr<MetaObject> value, std::ostream& out, int level) {
    JsonWriter writer(out);
    writer.Value(value.get(), level);
    writer.Finish();
}

}  // namespace AutoCli
}  // namespace Tindra
