#include "tindra/autocli/formatters/PythonFormatter.h"
#include "autocli/formatters/KindMismatch.h"

#include "tindra/TindraException.h"

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

// Inside triple quotes only a double quote and a line break need escaping for eval().
void WritePythonString(std::ostream& out, std::string const& text) {
    out << "\"\"\"";
    size_t plainStart = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"' || text[i] == '\n') {
            out.write(text.data() + plainStart, static_cast<std::streamsize>(i - plainStart));
            out << (text[i] == '"' ? "\\\"" : "\\n");
            plainStart = i + 1;
        }
    }
    out.write(text.data() + plainStart, static_cast<std::streamsize>(text.size() - plainStart));
    out << "\"\"\"";
}

// Writes values by reference, so that a list of a million items costs no reference counting.
class PythonWriter {
public:
    explicit PythonWriter(std::ostream& out) : out(out) {}

    void Value(MetaObject* value, int level);

private:
    void Scalar(MetaObject& value);
    void Struct(MetaObject& value, int level);
    void List(MetaObject& value, int level);

    std::ostream& out;
};

void PythonWriter::Value(MetaObject* value, int level) {
    if (value == nullptr) {
        throw TindraException("Invalid MetaObject passed to Format in PythonFormatter");
    }
    switch (value->GetType()) {
        case MetaType::Bool:
        case MetaType::Int:
        case MetaType::String:
            return Scalar(*value);
        case MetaType::Struct:
            return Struct(*value, level);
        case MetaType::List:
            return List(*value, level);
    }
    out << "Unknown data type\n";
}

void PythonWriter::Scalar(MetaObject& value) {
    if (auto const* flag = dynamic_cast<MetaBool const*>(&value)) {
        out << (flag->GetValue() ? "True" : "False");
    } else if (auto const* number = dynamic_cast<MetaInt const*>(&value)) {
        out << number->GetValue();
    } else if (auto const* text = dynamic_cast<MetaString const*>(&value)) {
        WritePythonString(out, text->GetValue());
    } else if (value.GetType() == MetaType::Bool) {
        out << KindMismatch::kBool << '\n';
    } else if (value.GetType() == MetaType::Int) {
        out << KindMismatch::kInt << '\n';
    } else {
        out << KindMismatch::kString << '\n';
    }
}

void PythonWriter::Struct(MetaObject& value, int level) {
    auto const* structure = dynamic_cast<MetaStruct const*>(&value);
    if (structure == nullptr) {
        out << KindMismatch::kStruct << '\n';
        return;
    }
    out.put('{');
    for (auto const& name : structure->GetFieldNames()) {
        out << '"' << name << "\": ";
        Value(structure->GetField(name).get(), level + 2);
        out << ", ";
    }
    out.put('}');
}

void PythonWriter::List(MetaObject& value, int level) {
    auto* list = dynamic_cast<MetaList*>(&value);
    if (list == nullptr) {
        out << KindMismatch::kList << '\n';
        return;
    }
    out.put('[');
    for (auto const& item : list->GetObjects()) {
        Value(item.get(), level + 2);
        out << ", ";
    }
    out.put(']');
}

}  // namespace

PythonFormatter::PythonFormatter() : Formatter("python") {
    description = "Print the output as Python syntax suitable for eval().";
}

bool PythonFormatter::Format(std::shared_ptr<CallSpec::Output> output, FormatParameters&,
                             DisplayContext&, std::ostream& out) {
    PythonWriter(out).Value(output ? output->GetRootObject().get() : nullptr, 2);
    out.put('\n');
    return true;
}

void PythonFormatter::Format(std::shared_ptr<MetaObject> value, std::ostream& out, int level) {
    PythonWriter(out).Value(value.get(), level);
}

bool PythonFormatter::IsAllAscii(std::string const& text) {
    for (char c : text) {
        if (static_cast<unsigned char>(c) >= 128) {
            return false;
        }
    }
    return true;
}

}  // namespace AutoCli
}  // namespace Tindra
