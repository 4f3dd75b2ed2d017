#ifndef TINDRA_TESTS_FUZZ_SHELLSTRUCTURE_H
#define TINDRA_TESTS_FUZZ_SHELLSTRUCTURE_H

// What the POSIX shell makes of a command line beyond its plain words: the operators,
// substitutions, parameter expansions and comments outside quotes (and the substitutions and
// expansions inside double quotes), in order, and whether a quote is left open. Blanks only
// split words; globbing and tilde expansion are left to the shell on purpose.

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string>

namespace Fuzz {

class ShellLexer {
public:
    // The shell gets the line as a C string: it ends at the first zero byte.
    explicit ShellLexer(std::string const& line) : text(line.substr(0, line.find('\0'))) {}

    std::string Run() {
        bool wordStart = true;
        while (at < text.size() && complete) {
            char const c = text[at];
            if (c == ' ' || c == '\t' || c == '\n' || std::strchr(";&|<>()", c)) {
                events += c == ' ' || c == '\t' ? "" : std::string(1, c);
                wordStart = true;
                ++at;
            } else if (c == '#' && wordStart) {
                events += '#';
                at = std::min(text.find('\n', at), text.size());
            } else if (c == '\'') {
                wordStart = false;
                at = text.find('\'', at + 1) + 1;
                complete = at != 0;
            } else {
                wordStart = false;
                c == '"' ? DoubleQuoted() : Step(true);
            }
        }
        return complete ? events : events + " unterminated quote";
    }

private:
    // Substitutions start at a backquote or a dollar; a backslash that escapes takes the next
    // byte with it ("\<newline>" joins lines).
    void Step(bool escapes) {
        char const c = text[at];
        if (c == '`') {
            events += '`';
            ++at;
        } else if (c == '$') {
            Dollar();
        } else {
            at += c == '\\' && escapes && at + 1 < text.size() ? 2 : 1;
        }
    }

    void DoubleQuoted() {
        for (++at; at < text.size();) {
            if (text[at] == '"') {
                ++at;
                return;
            }
            Step(at + 1 < text.size() && std::strchr("$`\"\\\n", text[at + 1]));
        }
        complete = false;
    }

    void Dollar() {
        char const next = at + 1 < text.size() ? text[at + 1] : '\0';
        auto const nameChar = [](char n) {
            return n == '_' || std::isalnum(static_cast<unsigned char>(n));
        };
        if (next == '(' || next == '{') {
            events += std::string("$") + next;
            at += 2;
        } else if (next != '\0' && std::strchr("@*#?-$!0123456789", next)) {
            events += '$';
            at += 2;
        } else if (nameChar(next)) {
            events += '$';
            for (++at; at < text.size() && nameChar(text[at]); ++at) {
            }
        } else {
            ++at;  // a lone dollar is literal
        }
    }

    std::string const text;
    size_t at = 0;
    std::string events;
    bool complete = true;
};

inline std::string ShellStructureOf(std::string const& line) {
    return ShellLexer(line).Run();
}

}  // namespace Fuzz

#endif
