#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_FITSTRING_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_FITSTRING_H

#include <string_view>

#include "autocli/formatters/OutputBuffer.h"

namespace Tindra {
namespace AutoCli {

// AutoCli_FitString into a buffer, for formatters that wrap text on every row.
void FitString(int indent, int width, std::string_view text, bool indented, OutputBuffer& out,
               bool endLine, char breakChar, bool splitLines);

}  // namespace AutoCli
}  // namespace Tindra

#endif
