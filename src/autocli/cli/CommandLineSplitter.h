#ifndef TINDRA_SRC_AUTOCLI_CLI_COMMANDLINESPLITTER_H
#define TINDRA_SRC_AUTOCLI_CLI_COMMANDLINESPLITTER_H

#include <string>
#include <vector>

namespace Tindra {
namespace AutoCli {

// Splits one line of a command-line stream into words. Blanks (space, tab) separate words
// outside double quotes; double quotes only group and are then removed, there is no escape.
// A line whose first non-blank character is "#" is a comment and yields no words.
std::vector<std::string> SplitCommandLine(std::string const& line);

}  // namespace AutoCli
}  // namespace Tindra

#endif
