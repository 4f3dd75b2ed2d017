#include "autocli/formatters/XmlEscape.h"

#include <string>

#include "tindra/autocli/formatters/XmlFormatter.h"

namespace Tindra {
namespace AutoCli {

namespace {

// One pass with this table gives the same text as replacing '&' first and the others after it,
// because no replacement introduces a character that a later one would touch.
char const* XmlEntity(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '%':
            return "&#37;";
        case '"':
            return "&quot;";
        case '\'':
            return "&apos;";
        default:
            return nullptr;
    }
}

template <typename Sink>
void Escape(std::string_view text, Sink&& append) {
    size_t plainStart = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (char const* entity = XmlEntity(text[i])) {
            append(text.substr(plainStart, i - plainStart));
            append(std::string_view(entity));
            plainStart = i + 1;
        }
    }
    append(text.substr(plainStart));
}

}  // namespace

void WriteXmlEscaped(std::ostream& out, std::string_view text) {
    Escape(text, [&out](std::string_view piece) {
        out.write(piece.data(), static_cast<std::streamsize>(piece.size()));
    });
}

std::string SantizeString(std::string text) {
    std::string escaped;
    escaped.reserve(text.size());
    Escape(text, [&escaped](std::string_view piece) { escaped.append(piece); });
    return escaped;
}

}  // namespace AutoCli
}  // namespace Tindra
