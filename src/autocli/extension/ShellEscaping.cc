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

bool IsNameChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

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

namespace {

// SanitizeInput, and a '#' that would begin a word escaped too: it would make the rest of the
// line a comment, which a line feed in the value would end, even an escaped one.
std::string SanitizeUnquoted(std::string const& value, bool atWordStart) {
    std::string escaped;
    escaped.reserve(value.size() + value.size() / 8);
    for (char c : value) {
        if (isBadChar(c) || (c == '#' && atWordStart)) {
            escaped.push_back('\\');
        }
        escaped.push_back(c);
        // An escaped line feed vanishes with its backslash; other escaped bytes are literal.
        atWordStart = c == ' ' || c == '\t' || (c == '\n' && atWordStart);
    }
    return escaped;
}

// Only what can continue a variable's name: anything else would start a construct of its own
// (${...}, $(...)) or end the name and leave the rest unescaped.
std::string KeepNameCharacters(std::string const& value) {
    std::string kept;
    for (char c : value) {
        if (IsNameChar(c)) {
            kept.push_back(c);
        }
    }
    return kept;
}

}  // namespace

std::string EscapeForPlace(std::string const& value, ShellPlace place, DoubleQuoteEscape inDouble,
                           bool atWordStart) {
    switch (place) {
        case ShellPlace::Unquoted:
            return SanitizeUnquoted(value, atWordStart);
        case ShellPlace::DoubleQuoted:
            return inDouble == DoubleQuoteEscape::Minimal ? EscapeInsideDoubleQuotes(value)
                                                          : SanitizeInput(value);
        case ShellPlace::SingleQuoted:
            return SanitizeChar(value, '\'');
        case ShellPlace::AfterDollar:
            return KeepNameCharacters(value);
        case ShellPlace::Opaque:
        default:
            break;
    }
    // Where the quoting is not followed, a '#' could begin a comment that swallows the rest of
    // the line, so it goes with the special characters.
    std::string kept;
    kept.reserve(value.size());
    for (char c : value) {
        if (!isBadChar(c) && c != '#') {
            kept.push_back(c);
        }
    }
    return kept;
}

}  // namespace AutoCli
}  // namespace Tindra
