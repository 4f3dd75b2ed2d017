#include "autocli/extension/ShellEscaping.h"

#include "tindra/autocli/extension/ExtensionCommand.h"

namespace Tindra {
namespace AutoCli {

namespace {

template <typename NeedsEscape>
std::string EscapeWithBackslash(std::string const& text, NeedsEscape needsEscape) {
    std::string escaped;
    escaped.reserve(text.size() + text.size() / 8);
    for (char c : text) {
        if (needsEscape(c)) {
            escaped.push_back('\\');
        }
        escaped.push_back(c);
    }
    return escaped;
}

}  // namespace

bool isBadChar(char c) {
    switch (c) {
        case '\n':
        case '!':
        case '"':
        case '$':
        case '&':
        case '\'':
        case '(':
        case ')':
        case '*':
        case ';':
        case '<':
        case '>':
        case '\\':
        case '^':
        case '`':
        case '|':
            return true;
        default:
            return false;
    }
}

std::string SanitizeInput(std::string const& text) {
    return EscapeWithBackslash(text, isBadChar);
}

std::string SanitizeChar(std::string const& text, char removed) {
    std::string kept;
    kept.reserve(text.size());
    for (char c : text) {
        if (c != removed) {
            kept.push_back(c);
        }
    }
    return kept;
}

std::string EscapeInsideDoubleQuotes(std::string const& text) {
    return EscapeWithBackslash(
        text, [](char c) { return c == '$' || c == '`' || c == '\\' || c == '"'; });
}

}  // namespace AutoCli
}  // namespace Tindra
