#ifndef TINDRA_SRC_PLATFORM_TERMINALECHOGUARD_H
#define TINDRA_SRC_PLATFORM_TERMINALECHOGUARD_H

#include <termios.h>

#include <string>

namespace Tindra {
namespace Platform {

// Switches echo off on a terminal for the lifetime of the guard and puts the saved
// attributes back on every way out: normal return, exception, and a terminating signal
// (SIGINT, SIGTERM, SIGHUP, SIGQUIT) arriving while the guard is up. A stop request (SIGTSTP)
// gives the terminal back with echo before the process stops; when it continues (SIGCONT),
// echo goes off again and the prompt, if one was given, is written again to promptFd. The
// handlers are installed only while the guard lives; a terminating signal is then handed to
// the handler that was there before. When the descriptor is not a terminal the guard does
// nothing. One guard at a time: a prompt never nests.
class TerminalEchoGuard {
public:
    explicit TerminalEchoGuard(int fd, std::string prompt = "", int promptFd = 1);
    ~TerminalEchoGuard();
    TerminalEchoGuard(TerminalEchoGuard const&) = delete;
    TerminalEchoGuard& operator=(TerminalEchoGuard const&) = delete;

    // True when echo was switched off and will be restored.
    bool IsActive() const { return active; }

private:
    int fd;
    std::string prompt;
    bool active = false;
    termios saved{};
};

}  // namespace Platform
}  // namespace Tindra

#endif
