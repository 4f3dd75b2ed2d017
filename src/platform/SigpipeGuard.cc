#include "platform/SigpipeGuard.h"

#include <pthread.h>
#include <time.h>

namespace Tindra {
namespace Platform {

namespace {

sigset_t PipeSignalOnly() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    return set;
}

bool IsPipeSignalPending() {
    sigset_t pending;
    sigemptyset(&pending);
    return ::sigpending(&pending) == 0 && sigismember(&pending, SIGPIPE) == 1;
}

}  // namespace

SigpipeGuard::SigpipeGuard() {
    sigset_t pipeSignal = PipeSignalOnly();
    wasPending = IsPipeSignalPending();
    active = ::pthread_sigmask(SIG_BLOCK, &pipeSignal, &previousMask) == 0;
}

SigpipeGuard::~SigpipeGuard() {
    if (!active) {
        return;
    }
    if (!wasPending && IsPipeSignalPending()) {
        sigset_t pipeSignal = PipeSignalOnly();
        timespec const noWait = {0, 0};
        ::sigtimedwait(&pipeSignal, nullptr, &noWait);
    }
    ::pthread_sigmask(SIG_SETMASK, &previousMask, nullptr);
}

}  // namespace Platform
}  // namespace Tindra
