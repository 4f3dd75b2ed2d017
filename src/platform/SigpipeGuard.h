#ifndef TINDRA_SRC_PLATFORM_SIGPIPEGUARD_H
#define TINDRA_SRC_PLATFORM_SIGPIPEGUARD_H

#include <signal.h>

namespace Tindra {
namespace Platform {

// While alive, a write to a pipe whose reader has gone fails with EPIPE instead of killing the
// process. SIGPIPE is blocked for the calling thread only; a SIGPIPE raised meanwhile is
// consumed before the previous mask comes back, unless one was already pending before.
class SigpipeGuard {
public:
    SigpipeGuard();
    ~SigpipeGuard();
    SigpipeGuard(SigpipeGuard const&) = delete;
    SigpipeGuard& operator=(SigpipeGuard const&) = delete;

private:
    sigset_t previousMask;
    bool wasPending = false;
    bool active = false;
};

}  // namespace Platform
}  // namespace Tindra

#endif
