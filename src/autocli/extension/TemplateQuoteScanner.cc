#include "autocli/extension/TemplateQuoteScanner.h"

namespace Tindra {
namespace AutoCli {

namespace {

// Bytes that end a word outside quotes: blanks and the operator characters.
bool EndsWord(char c) {
    switch (c) {
        case ' ':
        case '\t':
        case '\n':
        case ';':
        case '&':
        case '|':
        case '(':
        case ')':
        case '<':
        case '>':
            return true;
        default:
            return false;
    }
}

// Inside double quotes a backslash escapes only these.
bool EscapableInDoubleQuotes(char c) {
    return c == '$' || c == '`' || c == '"' || c == '\\' || c == '\n';
}

}  // namespace

void TemplateQuoteScanner::Feed(char c) {
    if (lost) {
        // Still known without the quoting: a value after a '$' gets name characters only, and
        // a backslash before an empty value is taken out.
        dollar = c == '$';
        escaped = !escaped && c == '\\';
        return;
    }
    switch (mode) {
        case Mode::Plain:
            FeedPlain(c);
            break;
        case Mode::Double:
            FeedDouble(c);
            break;
        case Mode::Single:
            if (c == '\'') {
                mode = Mode::Plain;
            }
            break;
        case Mode::Comment:
            if (c == '\n') {
                mode = Mode::Plain;
                wordStart = true;
            }
            break;
        case Mode::BraceName:
            FeedBraceName(c);
            break;
    }
}

ShellPlace TemplateQuoteScanner::Place() const {
    // Name characters alone are safe wherever the '$' stands, quoting followed or not.
    if (dollar) {
        return ShellPlace::AfterDollar;
    }
    if (lost) {
        return ShellPlace::Opaque;
    }
    switch (mode) {
        case Mode::Plain:
            return ShellPlace::Unquoted;
        case Mode::Single:
            return ShellPlace::SingleQuoted;
        case Mode::Double:
            return ShellPlace::DoubleQuoted;
        default:
            return ShellPlace::Opaque;
    }
}

bool TemplateQuoteScanner::FollowsDollar(char c, Mode from) {
    bool const wasDollar = dollar;
    dollar = false;
    if (!wasDollar) {
        return false;
    }
    if (c == '(' || c == '`' || (c == '\'' && from == Mode::Plain)) {
        lost = true;
        return true;
    }
    if (c == '{') {
        afterBrace = from;
        mode = Mode::BraceName;
        return true;
    }
    return false;
}

void TemplateQuoteScanner::FeedPlain(char c) {
    if (escaped) {
        escaped = false;
        dollar = false;
        lessThan = false;
        // A backslash and a line feed vanish together.
        wordStart = wordStart && c == '\n';
        return;
    }
    bool const wasLessThan = lessThan;
    lessThan = false;
    if (FollowsDollar(c, Mode::Plain)) {
        return;
    }
    if (wasLessThan && c == '<') {
        lost = true;  // here-document
        return;
    }
    if (c == '#' && wordStart) {
        mode = Mode::Comment;
        return;
    }
    switch (c) {
        case '\\':
            escaped = true;
            return;
        case '\'':
            mode = Mode::Single;
            break;
        case '"':
            mode = Mode::Double;
            break;
        case '`':
            lost = true;
            return;
        case '$':
            dollar = true;
            break;
        case '<':
            lessThan = true;
            break;
        default:
            break;
    }
    wordStart = EndsWord(c);
}

void TemplateQuoteScanner::FeedDouble(char c) {
    if (escaped) {
        escaped = false;
        dollar = false;
        if (EscapableInDoubleQuotes(c)) {
            return;
        }
        // Otherwise the backslash stood for itself; c is read as usual.
    }
    if (FollowsDollar(c, Mode::Double)) {
        return;
    }
    switch (c) {
        case '\\':
            escaped = true;
            break;
        case '"':
            mode = Mode::Plain;
            wordStart = false;
            break;
        case '`':
            lost = true;
            break;
        case '$':
            dollar = true;
            break;
        default:
            break;
    }
}

void TemplateQuoteScanner::FeedBraceName(char c) {
    if (c == '}') {
        mode = afterBrace;
        wordStart = false;
    } else if (!IsNameChar(c)) {
        lost = true;
    }
}

}  // namespace AutoCli
}  // namespace Tindra
