#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_XMLESCAPE_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_XMLESCAPE_H

#include <ostream>
#include <string_view>

namespace Tindra {
namespace AutoCli {

// Writes text with the XML escapes of SantizeString, without building a copy.
void WriteXmlEscaped(std::ostream& out, std::string_view text);

}  // namespace AutoCli
}  // namespace Tindra

#endif
