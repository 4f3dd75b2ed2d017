#include "autocli/formatters/XmlEscape.h"

#include <string>

#include "autocli/formatters/EscapeRuns.h"

#include "tindra/autocli/formatters/XmlFormatter.h"

namespace Tindra {
namespace AutoCli {

namespace {

// One pass with this table gives the same text as replacing '&' first and the others after it,
// because no replacement introduces a character that a later one would touch.
constexpr char const* XmlEntity(unsigned char c) {
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
    static constexpr PlainBytes plain =
        MakePlainBytes([](unsigned char c) { return XmlEntity(c) == nullptr; });
    ForEachEscapeRun(text, plain, append,
                     [&append](unsigned char c) { append(std::string_view(XmlEntity(c))); });
}

}  // namespace

void WriteXmlEscaped(OutputBuffer& out, std::string_view text) {
    Escape(text, [&out](std::string_view piece) { out.Append(piece); });
}

std::string SantizeString(std::string text) {
    std::string escaped;
    escaped.reserve(text.size());
    Escape(text, [&escaped](std::string_view piece) { escaped.append(piece); });
    return escaped;
}

}  // namespace AutoCli
}  // namespace Tindra
