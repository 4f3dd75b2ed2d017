#include "tindra/autocli/extension/ShellCmd.h"

#include <unistd.h>

#include <boost/algorithm/string/replace.hpp>
#include <vector>

#include "autocli/shell/ChildExchange.h"
#include "autocli/shell/StreamingShellCmd.h"
#include "platform/ChildProcess.h"
#include "platform/ErrnoText.h"
#include "platform/Fd.h"
#include "platform/Pipe.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

namespace {

char const* const kShell = "/bin/sh";

std::vector<std::string> ShellArguments(std::string const& command) {
    std::vector<std::string> arguments{kShell};
    std::string option = MakeChildRpZorbOption(-1);
    if (!option.empty()) {
        arguments.push_back(std::move(option));
    }
    arguments.push_back("-c");
    arguments.push_back(command);
    return arguments;
}

// Shell text for the name inside single quotes: each quote closes, escapes and reopens.
std::string QuoteForSingleQuotes(std::string name) {
    boost::algorithm::replace_all(name, "'", "'\\''");
    return name;
}

ChildOutputSink AppendTo(std::string& output) {
    return [&output](char const* data, size_t length) { output.append(data, length); };
}

}  // namespace

int StreamingShellCmd(std::string const& command, ChildOutputSink const& output,
                      std::string const& input) {
    Platform::UniqueFd inputRead, inputWrite, outputRead, outputWrite;
    if (int error = Platform::CreatePipe(inputRead, inputWrite)) {
        throw TindraException("Can't create input pipe: " + Platform::ErrnoText(error));
    }
    if (int error = Platform::CreatePipe(outputRead, outputWrite)) {
        throw TindraException("Can't create output pipe: " + Platform::ErrnoText(error));
    }
    int const childFds[3] = {inputRead.Get(), outputWrite.Get(), STDERR_FILENO};
    pid_t pid = -1;
    int spawnError = Platform::SpawnWithMappedFds(kShell, ShellArguments(command), childFds, pid);
    // The child holds its own copies; ours would keep the pipes from reporting end of file.
    inputRead.Close();
    outputWrite.Close();
    if (spawnError != 0) {
        throw TindraException("Failed to call process '" + command +
                              "': " + Platform::ErrnoText(spawnError));
    }
    ExchangeWithChild(inputWrite, outputRead, input, output);
    int status = 0;
    if (int error = Platform::WaitForChild(pid, status)) {
        throw TindraException("Error waiting for process '" + command +
                              "': " + Platform::ErrnoText(error));
    }
    return status;
}

int StreamingShellCmdWithLumUsername(std::string const& command, std::string const& userName,
                                     ChildOutputSink const& output, std::string const& input) {
    if (userName.empty()) {
        return StreamingShellCmd(command, output, input);
    }
    std::string withUser = "LUM_USERNAME='" + QuoteForSingleQuotes(userName) + "' " + command;
    return StreamingShellCmd(withUser, output, input);
}

int AutoCli_ShellCmd(std::string const& command, std::string& output, std::string const& input) {
    return StreamingShellCmd(command, AppendTo(output), input);
}

int AutoCli_ShellCmdWithLumUsername(std::string const& command, std::string const& userName,
                                    std::string& output, std::string const& input) {
    return StreamingShellCmdWithLumUsername(command, userName, AppendTo(output), input);
}

}  // namespace AutoCli
}  // namespace Tindra
