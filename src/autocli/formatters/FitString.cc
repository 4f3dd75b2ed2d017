#include <iomanip>
#include <string_view>

#include "autocli/formatters/Tokens.h"
#include "tindra/autocli/formatters/FieldHelpers.h"

namespace Tindra {
namespace AutoCli {

namespace {

// The field-width trick: `indent` blanks, and still one blank when indent is 0 or 1.
void WriteIndentation(std::ostream& out, int indent) {
    out << std::setw(indent) << ' ';
}

void Write(std::ostream& out, std::string_view text) {
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

// Word wrapping of one line. `remaining` counts a blank after every word written, so a
// broken line may end one column short of the width.
void WriteWrapped(int indent, long available, std::string_view text, std::ostream& out,
                  char breakChar) {
    long remaining = available;
    bool first = true;
    ForEachToken(text, ' ', [&](std::string_view word) {
        long const cost = static_cast<long>(word.size()) + 1;
        remaining -= cost;
        if (remaining >= 0) {
            if (!first) {
                out.put(' ');
            }
        } else {
            out.put(breakChar == 0 ? ' ' : breakChar);
            out.put('\n');
            WriteIndentation(out, indent);
            remaining = available - cost;
        }
        Write(out, word);
        first = false;
    });
}

void FitLine(int indent, int width, std::string_view text, bool indented, std::ostream& out,
             bool endLine, char breakChar) {
    if (!indented) {
        WriteIndentation(out, indent);
    }
    long const available = static_cast<long>(width) - indent;
    if (width <= indent || static_cast<long>(text.size()) <= available) {
        Write(out, text);
    } else {
        WriteWrapped(indent, available, text, out, breakChar);
    }
    if (endLine) {
        out.put('\n');
    }
}

}  // namespace

void AutoCli_FitString(int const& indent, int const& width, std::string const& text, bool indented,
                       std::ostream& out, bool endLine, char breakChar, bool splitLines) {
    if (!splitLines) {
        FitLine(indent, width, text, indented, out, endLine, breakChar);
        return;
    }
    bool first = true;
    ForEachToken(text, '\n', [&](std::string_view line) {
        if (!first && !endLine) {
            out.put('\n');
        }
        FitLine(indent, width, line, first && indented, out, endLine, breakChar);
        first = false;
    });
}

}  // namespace AutoCli
}  // namespace Tindra
