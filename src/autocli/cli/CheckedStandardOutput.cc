#include "autocli/cli/CheckedStandardOutput.h"

#include <errno.h>

#include <cstdlib>
#include <iostream>

#include "platform/ErrnoText.h"

namespace Tindra {
namespace AutoCli {

namespace {

CheckedStandardOutput* activeOutput = nullptr;

}  // namespace

CheckedStandardOutput::CheckedStandardOutput(std::string programName)
    : programName(std::move(programName)), buffer(1), previous(std::cout.rdbuf(&buffer)) {
    activeOutput = this;
}

CheckedStandardOutput::~CheckedStandardOutput() {
    Finish();
}

bool CheckedStandardOutput::Finish() {
    if (finished) {
        return buffer.Error() == 0;
    }
    finished = true;
    std::cout.flush();
    std::cout.rdbuf(previous);
    std::cout.clear();
    if (activeOutput == this) {
        activeOutput = nullptr;
    }
    int const error = buffer.Error();
    if (error != 0 && error != EPIPE) {
        std::cerr << programName << ": write error: " << Platform::ErrnoText(error) << std::endl;
    }
    return error == 0;
}

void CheckedStandardOutput::Exit(bool succeeded) {
    if (activeOutput != nullptr && !activeOutput->Finish()) {
        succeeded = false;
    }
    std::cout.flush();
    std::exit(succeeded ? 0 : 1);
}

}  // namespace AutoCli
}  // namespace Tindra
