#include "autocli/formatters/FitString.h"

#include <algorithm>

#include "autocli/formatters/Tokens.h"
#include "tindra/autocli/formatters/FieldHelpers.h"

namespace Tindra {
namespace AutoCli {

namespace {

// The field-width trick of the stream: `indent` blanks, and still one blank when indent is 0 or 1.
void WriteIndentation(OutputBuffer& out, int indent) {
    out.AppendSpaces(static_cast<size_t>(std::max(indent, 1)));
}

// Word wrapping of one line. `remaining` counts a blank after every word written, so a
// broken line may end one column short of the width.
void WriteWrapped(int indent, long available, std::string_view text, OutputBuffer& out,
                  char breakChar) {
    long remaining = available;
    bool first = true;
    ForEachToken(text, ' ', [&](std::string_view word) {
        long const cost = static_cast<long>(word.size()) + 1;
        remaining -= cost;
        if (remaining >= 0) {
            if (!first) {
                out.Append(' ');
            }
        } else {
            out.Append(breakChar == 0 ? ' ' : breakChar);
            out.Append('\n');
            WriteIndentation(out, indent);
            remaining = available - cost;
        }
        out.Append(word);
        first = false;
    });
}

void FitLine(int indent, int width, std::string_view text, bool indented, OutputBuffer& out,
             bool endLine, char breakChar) {
    if (!indented) {
        WriteIndentation(out, indent);
    }
    long const available = static_cast<long>(width) - indent;
    if (width <= indent || static_cast<long>(text.size()) <= available) {
        out.Append(text);
    } else {
        WriteWrapped(indent, available, text, out, breakChar);
    }
    if (endLine) {
        out.Append('\n');
    }
}

}  // namespace

void FitString(int indent, int width, std::string_view text, bool indented, OutputBuffer& out,
               bool endLine, char breakChar, bool splitLines) {
    if (!splitLines) {
        FitLine(indent, width, text, indented, out, endLine, breakChar);
        return;
    }
    bool first = true;
    ForEachToken(text, '\n', [&](std::string_view line) {
        if (!first && !endLine) {
            out.Append('\n');
        }
        FitLine(indent, width, line, first && indented, out, endLine, breakChar);
        first = false;
    });
}

void AutoCli_FitString(int const& indent, int const& width, std::string const& text, bool indented,
                       std::ostream& out, bool endLine, char breakChar, bool splitLines) {
    OutputBuffer buffer(out);
    FitString(indent, width, text, indented, buffer, endLine, breakChar, splitLines);
    buffer.Flush();
}

}  // namespace AutoCli
}  // namespace Tindra
