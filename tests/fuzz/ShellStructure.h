#ifndef TINDRA_TESTS_FUZZ_SHELLSTRUCTURE_H
#define TINDRA_TESTS_FUZZ_SHELLSTRUCTURE_H

// What the POSIX shell makes of a command line beyond its plain words: the operators,
// substitutions, parameter expansions and comments it finds outside quotes (and the
// substitutions and expansions inside double quotes), in order, and whether every quote is
// closed. Blanks only split words and are not recorded. Globbing and tilde expansion are not
// recorded either: the escaping leaves them to the shell on purpose.

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

namespace Fuzz {

struct ShellStructure {
    std::string events;
    bool complete = true;

    bool operator==(ShellStructure const& other) const {
        return events == other.events && complete == other.complete;
    }
    std::string ToString() const {
        return "[" + events + "]" + (complete ? "" : " unterminated quote");
    }
};

class ShellLexer {
public:
    // The shell gets the line as a C string: it ends at the first zero byte.
    explicit ShellLexer(std::string const& line) : text(line.substr(0, line.find('\0'))) {}

    ShellStructure Run() {
        bool wordStart = true;
        while (at < text.size() && result.complete) {
            char const c = text[at];
            if (c == ' ' || c == '\t') {
                wordStart = true;
                ++at;
            } else if (c == '\n' || std::strchr(";&|<>()", c) != nullptr) {
                result.events += c;
                wordStart = true;
                ++at;
            } else if (c == '#' && wordStart) {
                result.events += '#';
                at = std::min(text.find('\n', at), text.size());
            } else {
                wordStart = false;
                WordCharacter(c);
            }
        }
        return result;
    }

private:
    void WordCharacter(char c) {
        if (c == '\\') {
            at += at + 1 < text.size() ? 2 : 1;  // the next byte is literal; "\<newline>" joins
        } else if (c == '\'') {
            size_t const end = text.find('\'', at + 1);
            result.complete = end != std::string::npos;
            at = end + 1;
        } else if (c == '"') {
            DoubleQuoted();
        } else if (c == '`') {
            result.events += '`';
            ++at;
        } else if (c == '$') {
            Dollar();
        } else {
            ++at;
        }
    }

    void DoubleQuoted() {
        for (++at; at < text.size();) {
            char const c = text[at];
            if (c == '"') {
                ++at;
                return;
            }
            if (c == '\\') {
                bool const escapes = at + 1 < text.size() && std::strchr("$`\"\\\n", text[at + 1]);
                at += escapes ? 2 : 1;
            } else if (c == '`') {
                result.events += '`';
                ++at;
            } else if (c == '$') {
                Dollar();
            } else {
                ++at;
            }
        }
        result.complete = false;
    }

    void Dollar() {
        char const next = at + 1 < text.size() ? text[at + 1] : '\0';
        auto const nameChar = [](char n) {
            return n == '_' || (n >= 'a' && n <= 'z') || (n >= 'A' && n <= 'Z') ||
                   (n >= '0' && n <= '9');
        };
        if (next == '(' || next == '{') {
            result.events += std::string("$") + next;
            at += 2;
        } else if (next != '\0' && std::strchr("@*#?-$!0123456789", next)) {
            result.events += '$';
            at += 2;
        } else if (nameChar(next)) {
            result.events += '$';
            for (++at; at < text.size() && nameChar(text[at]); ++at) {
            }
        } else {
            ++at;  // a lone dollar is literal
        }
    }

    std::string const text;
    size_t at = 0;
    ShellStructure result;
};

inline ShellStructure ShellStructureOf(std::string const& line) {
    return ShellLexer(line).Run();
}

}  // namespace Fuzz

#endif
