#include "autocli/formatters/Spaces.h"

#include <algorithm>

namespace Tindra {
namespace AutoCli {

void WriteIndent(std::ostream& out, int level) {
    WriteSpaces(out, IndentWidth(level));
}

void WriteSpaces(std::ostream& out, size_t count) {
    static char const blanks[] = "                                                                ";
    constexpr size_t chunk = sizeof(blanks) - 1;
    while (count > 0) {
        size_t const n = std::min(count, chunk);
        out.write(blanks, static_cast<std::streamsize>(n));
        count -= n;
    }
}

}  // namespace AutoCli
}  // namespace Tindra
