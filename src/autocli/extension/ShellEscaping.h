#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_SHELLESCAPING_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_SHELLESCAPING_H

#include <string>

namespace Tindra {
namespace AutoCli {

// Where a value lands in a command line, as the shell reads it there. Opaque is any place
// whose quoting is not followed (inside a command substitution, a comment, a here-document...).
// AfterDollar: right after a bare '$', where the value can only go on to name a variable.
enum class ShellPlace { Unquoted, SingleQuoted, DoubleQuoted, AfterDollar, Opaque };

// How a value is escaped inside double quotes: with SanitizeInput, or with only the four
// characters that the shell still reads there escaped.
enum class DoubleQuoteEscape { Sanitize, Minimal };

// The value as it must stand at that place to reach the program as one literal piece of text:
// escaped with backslashes outside quotes and inside double quotes, without its single quotes
// inside single quotes, and without any of the shell characters at an opaque place, where no
// escape is known to hold. atWordStart: an unquoted '#' there would begin a comment.
std::string EscapeForPlace(std::string const& value, ShellPlace place, DoubleQuoteEscape inDouble,
                           bool atWordStart);

// A byte that may stand in a shell variable's name.
bool IsNameChar(char c);

// For text that the template puts inside double quotes, where the shell still expands
// $ and backquotes and reads backslashes: each of those, and the double quote, is escaped.
std::string EscapeInsideDoubleQuotes(std::string const& text);

}  // namespace AutoCli
}  // namespace Tindra

#endif
