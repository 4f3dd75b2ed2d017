#include "platform/TerminalEchoGuard.h"

#include <csignal>
#include <cstddef>

namespace Tindra {
namespace Platform {

namespace {

constexpr int kRestoringSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
constexpr std::size_t kSignalCount = sizeof(kRestoringSignals) / sizeof(kRestoringSignals[0]);

// What the signal handler needs; plain data because a handler may touch nothing else.
struct SignalRestoreState {
    int fd;
    termios attributes;
    struct sigaction previous[kSignalCount];
};
SignalRestoreState restoreState;

std::size_t SignalIndex(int signal) {
    std::size_t index = 0;
    while (index < kSignalCount && kRestoringSignals[index] != signal) {
        ++index;
    }
    return index;
}

// Puts the terminal back, reinstates the previous handler and raises the signal again. The
// signal is blocked while this runs, so the previous handler (or the default action, which
// ends the process) receives it as soon as this handler returns.
extern "C" void RestoreTerminalAndReraise(int signal) {
    tcsetattr(restoreState.fd, TCSANOW, &restoreState.attributes);
    std::size_t index = SignalIndex(signal);
    if (index < kSignalCount) {
        sigaction(signal, &restoreState.previous[index], nullptr);
    }
    raise(signal);
}

// An ignored signal stays ignored: it cannot end the process, so it needs no restoring.
void InstallRestoringHandlers(int fd, termios const& attributes) {
    restoreState.fd = fd;
    restoreState.attributes = attributes;
    struct sigaction action {};
    action.sa_handler = RestoreTerminalAndReraise;
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < kSignalCount; ++i) {
        sigaction(kRestoringSignals[i], nullptr, &restoreState.previous[i]);
        if (restoreState.previous[i].sa_handler != SIG_IGN) {
            sigaction(kRestoringSignals[i], &action, nullptr);
        }
    }
}

void ReinstatePreviousHandlers() {
    for (std::size_t i = 0; i < kSignalCount; ++i) {
        sigaction(kRestoringSignals[i], &restoreState.previous[i], nullptr);
    }
}

}  // namespace

TerminalEchoGuard::TerminalEchoGuard(int fd) : fd(fd) {
    if (tcgetattr(fd, &saved) != 0) {
        return;
    }
    termios silent = saved;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    // Handlers first: a signal between switching echo off and installing them would
    // otherwise leave the terminal silent.
    InstallRestoringHandlers(fd, saved);
    if (tcsetattr(fd, TCSANOW, &silent) != 0) {
        ReinstatePreviousHandlers();
        return;
    }
    active = true;
}

TerminalEchoGuard::~TerminalEchoGuard() {
    if (!active) {
        return;
    }
    tcsetattr(fd, TCSANOW, &saved);
    ReinstatePreviousHandlers();
}

}  // namespace Platform
}  // namespace Tindra
