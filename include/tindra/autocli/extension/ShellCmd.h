#ifndef TINDRA_AUTOCLI_EXTENSION_SHELLCMD_H
#define TINDRA_AUTOCLI_EXTENSION_SHELLCMD_H

#include <string>

#include "tindra/Export.h"

namespace Tindra {
namespace AutoCli {

// Makes the extra option the host wants on the child shell's command line ("" for none).
using ChildOptionMaker = std::string (*)(int);

// Runs the command text with /bin/sh -c, feeds it the input text on standard input and appends
// its standard output to output. The child's standard error is the caller's. Returns the raw
// wait status; throws TindraException when the process cannot be run or talked to.
TINDRA_EXPORT int AutoCli_ShellCmd(std::string const& command, std::string& output,
                                   std::string const& input);

// As AutoCli_ShellCmd, with LUM_USERNAME set to the user name in the child's environment.
TINDRA_EXPORT int AutoCli_ShellCmdWithLumUsername(std::string const& command,
                                                  std::string const& userName, std::string& output,
                                                  std::string const& input);

// Set once by the host before commands run; nullptr switches the option off.
TINDRA_EXPORT void SetChildRpZorbOptionMaker(ChildOptionMaker maker);
TINDRA_EXPORT std::string MakeChildRpZorbOption(int value);

}  // namespace AutoCli
}  // namespace Tindra

// Last resort for the host: prints "panic: " and the formatted text on standard error, aborts.
extern "C" [[noreturn]] TINDRA_EXPORT void Panic(char const* format, ...)
    __attribute__((format(printf, 1, 2)));

#endif
