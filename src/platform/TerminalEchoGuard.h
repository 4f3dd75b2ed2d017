#ifndef TINDRA_SRC_PLATFORM_TERMINALECHOGUARD_H
#define TINDRA_SRC_PLATFORM_TERMINALECHOGUARD_H

#include <termios.h>

namespace Tindra {
namespace Platform {

// Switches echo off on a terminal for the lifetime of the guard and puts the saved
// attributes back on every way out: normal return, exception, and a terminating signal
// (SIGINT, SIGTERM, SIGHUP, SIGQUIT) arriving while the guard is up. For the signals, handlers
// that restore the terminal are installed only while the guard lives; they then hand the
// signal to the handler that was there before. When the descriptor is not a terminal the
// guard does nothing. One guard at a time: a prompt never nests.
class TerminalEchoGuard {
public:
    explicit TerminalEchoGuard(int fd);
    ~TerminalEchoGuard();
    TerminalEchoGuard(TerminalEchoGuard const&) = delete;
    TerminalEchoGuard& operator=(TerminalEchoGuard const&) = delete;

    // True when echo was switched off and will be restored.
    bool IsActive() const { return active; }

private:
    int fd;
    bool active = false;
    termios saved{};
};

}  // namespace Platform
}  // namespace Tindra

#endif
