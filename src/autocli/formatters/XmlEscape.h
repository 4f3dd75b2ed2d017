#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_XMLESCAPE_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_XMLESCAPE_H

#include <string_view>

#include "autocli/formatters/OutputBuffer.h"

namespace Tindra {
namespace AutoCli {

// Writes text with the XML escapes of SantizeString, without building a copy.
void WriteXmlEscaped(OutputBuffer& out, std::string_view text);

}  // namespace AutoCli
}  // namespace Tindra

#endif
