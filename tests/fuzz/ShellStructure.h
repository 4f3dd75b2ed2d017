#ifndef TINDRA_TESTS_FUZZ_SHELLSTRUCTURE_H
#define TINDRA_TESTS_FUZZ_SHELLSTRUCTURE_H

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string>

namespace Fuzz {

// What the POSIX shell makes of a command line beyond its words, in order: operators, comments,
// substitutions and expansions (these also within double quotes), and a quote left open.
// Globbing and tilde expansion are left to the shell on purpose.
inline std::string ShellStructureOf(std::string const& line) {
    std::string const text = line.substr(0, line.find('\0'));  // the shell gets a C string
    auto const nameChar = [](char c) { return c == '_' || std::isalnum(c & 0xff); };
    std::string events;
    bool doubleQuoted = false, wordStart = true;
    for (size_t at = 0; at < text.size();) {
        char const c = text[at], next = at + 1 < text.size() ? text[at + 1] : '\0';
        bool const outside = !doubleQuoted;
        bool const separates =
            outside && (c == ' ' || c == '\t' || c == '\n' || std::strchr(";&|<>()", c));
        if (c == '"') {
            doubleQuoted = outside;
            ++at;
        } else if (separates) {
            events += c == ' ' || c == '\t' ? "" : std::string(1, c);
            ++at;
        } else if (outside && c == '#' && wordStart) {
            events += '#';
            at = std::min(text.find('\n', at), text.size());
        } else if (outside && c == '\'') {
            at = text.find('\'', at + 1) + 1;
            if (at == 0) {
                return events + " unterminated quote";
            }
        } else if (c == '`') {
            events += '`';
            ++at;
        } else if (c == '$' && (next == '(' || next == '{')) {
            events += std::string("$") + next;
            at += 2;
        } else if (c == '$' && next != '\0' && std::strchr("@*#?-$!0123456789", next)) {
            events += '$';
            at += 2;
        } else if (c == '$' && nameChar(next)) {
            events += '$';
            for (++at; at < text.size() && nameChar(text[at]); ++at) {
            }
        } else {
            // A backslash takes the next byte with it ("\<newline>" joins lines); within double
            // quotes only where it escapes. A lone dollar is literal.
            bool const escapes = outside || (next != '\0' && std::strchr("$`\"\\\n", next));
            at += c == '\\' && next != '\0' && escapes ? 2 : 1;
        }
        wordStart = separates;
    }
    return doubleQuoted ? events + " unterminated quote" : events;
}

}  // namespace Fuzz

#endif
