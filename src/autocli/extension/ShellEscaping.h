#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_SHELLESCAPING_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_SHELLESCAPING_H

#include <string>

namespace Tindra {
namespace AutoCli {

// For text that the template puts inside double quotes, where the shell still expands
// $ and backquotes and reads backslashes: each of those, and the double quote, is escaped.
std::string EscapeInsideDoubleQuotes(std::string const& text);

}  // namespace AutoCli
}  // namespace Tindra

#endif
