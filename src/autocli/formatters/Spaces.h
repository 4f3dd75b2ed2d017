#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_SPACES_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_SPACES_H

#include <cstddef>
#include <ostream>

#include "autocli/formatters/OutputBuffer.h"

namespace Tindra {
namespace AutoCli {

// Number of blanks that indent nesting level `level`: three per level, none below 1.
inline size_t IndentWidth(int level) {
    return level < 1 ? 0 : 3 * static_cast<size_t>(level);
}
// Writes the indentation of `level` without building a string.
void WriteIndent(std::ostream& out, int level);
inline void WriteIndent(OutputBuffer& out, int level) {
    out.AppendSpaces(IndentWidth(level));
}
// Writes `count` blanks.
void WriteSpaces(std::ostream& out, size_t count);

}  // namespace AutoCli
}  // namespace Tindra

#endif
