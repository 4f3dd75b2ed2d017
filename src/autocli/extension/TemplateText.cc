#include "autocli/extension/TemplateText.h"

#include "autocli/extension/TemplateQuoteScanner.h"

namespace Tindra {
namespace AutoCli {

namespace {

// XML cannot carry these bytes, so descriptor templates never hold them; should a template
// given otherwise hold one, it is kept as a value of its own.
char const kTokenStart = '\x01';
char const kTokenEnd = '\x02';

bool IsTokenByte(char c) {
    return c == kTokenStart || c == kTokenEnd;
}

// The rendered command line, with the quoting state the shell will be in at its end.
class ShellLine {
public:
    void Append(char c) {
        line.push_back(c);
        scanner.Feed(c);
    }
    void Append(std::string const& piece) {
        for (char c : piece) {
            Append(c);
        }
    }
    void AppendEscaped(std::string const& value, DoubleQuoteEscape inDouble) {
        std::string escaped =
            EscapeForPlace(value, scanner.Place(), inDouble, scanner.AtWordStart());
        // The template's own backslash already escapes the first byte: a second one would
        // escape only the first, leaving the byte after them bare.
        if (scanner.EscapePending() && !escaped.empty() && escaped[0] == '\\') {
            escaped.erase(0, 1);
        }
        // With nothing to escape, the template's backslash would take its next byte (a quote, a
        // ';'): it escapes the empty value, which is no byte at all, so it goes.
        if (scanner.EscapePending() && escaped.empty()) {
            line.pop_back();
            scanner.DropPendingEscape();
            return;
        }
        Append(escaped);
    }
    std::string& Text() { return line; }

private:
    std::string line;
    TemplateQuoteScanner scanner;
};

}  // namespace

TemplateText::TemplateText(std::string const& templateText) {
    text.reserve(templateText.size());
    for (char c : templateText) {
        if (IsTokenByte(c)) {
            text += Insert(std::string(1, c));
        } else {
            text.push_back(c);
        }
    }
}

std::string TemplateText::Add(Value value) {
    values.push_back(std::move(value));
    return kTokenStart + std::to_string(values.size() - 1) + kTokenEnd;
}

std::string TemplateText::Insert(std::string value) {
    return Add({std::move(value), false, DoubleQuoteEscape::Sanitize});
}

std::string TemplateText::InsertForShell(std::string value, DoubleQuoteEscape inDouble) {
    return Add({std::move(value), true, inDouble});
}

std::string TemplateText::Render() const {
    ShellLine rendered;
    rendered.Text().reserve(text.size());
    size_t pos = 0;
    while (pos < text.size()) {
        size_t const start = text.find(kTokenStart, pos);
        if (start == std::string::npos) {
            rendered.Append(text.substr(pos));
            break;
        }
        rendered.Append(text.substr(pos, start - pos));
        size_t const end = text.find(kTokenEnd, start);
        Value const& value = values[std::stoul(text.substr(start + 1, end - start - 1))];
        if (value.forShell) {
            rendered.AppendEscaped(value.text, value.inDouble);
        } else {
            rendered.Append(value.text);
        }
        pos = end + 1;
    }
    return std::move(rendered.Text());
}

}  // namespace AutoCli
}  // namespace Tindra
