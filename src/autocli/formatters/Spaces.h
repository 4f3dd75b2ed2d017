#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_SPACES_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_SPACES_H

#include <cstddef>
#include <ostream>

namespace Tindra {
namespace AutoCli {

// Number of blanks that indent nesting level `level`: three per level, none below 1.
size_t IndentWidth(int level);
// Writes the indentation of `level` without building a string.
void WriteIndent(std::ostream& out, int level);
// Writes `count` blanks.
void WriteSpaces(std::ostream& out, size_t count);

}  // namespace AutoCli
}  // namespace Tindra

#endif
