#ifndef TINDRA_SRC_AUTOCLI_CLI_USAGETEXT_H
#define TINDRA_SRC_AUTOCLI_CLI_USAGETEXT_H

#include <ostream>
#include <string>

namespace Tindra {
namespace AutoCli {

// The usage text of the dispatcher options, for the tool invoked as dispatcherName.
void WriteUsage(std::ostream& out, std::string const& dispatcherName);

}  // namespace AutoCli
}  // namespace Tindra

#endif
