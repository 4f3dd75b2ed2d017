#ifndef TINDRA_SRC_AUTOCLI_SHELL_STREAMINGSHELLCMD_H
#define TINDRA_SRC_AUTOCLI_SHELL_STREAMINGSHELLCMD_H

#include <string>

#include "autocli/shell/ChildExchange.h"

namespace Tindra {
namespace AutoCli {

// As AutoCli_ShellCmd and AutoCli_ShellCmdWithLumUsername, handing the output to a sink piece
// by piece as it is read, so that a large output need not be held whole.
int StreamingShellCmd(std::string const& command, ChildOutputSink const& output,
                      std::string const& input);
int StreamingShellCmdWithLumUsername(std::string const& command, std::string const& userName,
                                     ChildOutputSink const& output, std::string const& input);

}  // namespace AutoCli
}  // namespace Tindra

#endif
