#include "SilencedOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>

namespace Ostrel {

SilencedOutput::SilencedOutput() : savedOut(dup(STDOUT_FILENO)), savedErr(dup(STDERR_FILENO)) {
    int const nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere >= 0) {
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        close(nowhere);
    }
}

SilencedOutput::~SilencedOutput() {
    std::cout.flush();
    std::cerr.flush();
    std::fflush(nullptr);
    for (auto [saved, target] : {std::pair{savedOut, STDOUT_FILENO}, {savedErr, STDERR_FILENO}}) {
        if (saved >= 0) {
            dup2(saved, target);
            close(saved);
        }
    }
}

}  // namespace Ostrel
