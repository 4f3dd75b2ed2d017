#include "platform/TerminalEchoGuard.h"

#include <errno.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>

namespace Tindra {
namespace Platform {

namespace {

constexpr int kRestoringSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
constexpr int kJobControlSignals[] = {SIGTSTP, SIGCONT};
constexpr std::size_t kSignalCount = sizeof(kRestoringSignals) / sizeof(kRestoringSignals[0]);
constexpr std::size_t kJobControlCount = sizeof(kJobControlSignals) / sizeof(kJobControlSignals[0]);

// What the signal handlers need; plain data because a handler may touch nothing else.
struct SignalRestoreState {
    int fd;
    termios attributes;
    char const* prompt;
    std::size_t promptLength;
    int promptFd;
    struct sigaction previous[kSignalCount];
    struct sigaction previousJobControl[kJobControlCount];
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

void SetHandler(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

// Echo comes back while the process is stopped; the stop itself is the default action, taken
// here and now. The process resumes inside this handler once it is continued.
extern "C" void RestoreTerminalAndStop(int) {
    int const savedErrno = errno;
    tcsetattr(restoreState.fd, TCSANOW, &restoreState.attributes);
    SetHandler(SIGTSTP, SIG_DFL);
    sigset_t stopSignal;
    sigemptyset(&stopSignal);
    sigaddset(&stopSignal, SIGTSTP);
    raise(SIGTSTP);
    sigprocmask(SIG_UNBLOCK, &stopSignal, nullptr);
    SetHandler(SIGTSTP, RestoreTerminalAndStop);
    errno = savedErrno;
}

// Whatever happened to the terminal while the process was stopped, echo goes off again and the
// user sees again what is being asked.
extern "C" void SilenceAgainAndPrompt(int) {
    int const savedErrno = errno;
    termios current;
    if (tcgetattr(restoreState.fd, &current) == 0) {
        current.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(restoreState.fd, TCSANOW, &current);
    }
    if (restoreState.promptLength > 0) {
        ssize_t ignored =
            write(restoreState.promptFd, restoreState.prompt, restoreState.promptLength);
        (void)ignored;
    }
    errno = savedErrno;
}

// An ignored signal stays ignored: it cannot end or stop the process, so it needs no restoring.
void InstallRestoringHandlers() {
    struct sigaction action {};
    action.sa_handler = RestoreTerminalAndReraise;
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < kSignalCount; ++i) {
        sigaction(kRestoringSignals[i], nullptr, &restoreState.previous[i]);
        if (restoreState.previous[i].sa_handler != SIG_IGN) {
            sigaction(kRestoringSignals[i], &action, nullptr);
        }
    }
    for (std::size_t i = 0; i < kJobControlCount; ++i) {
        sigaction(kJobControlSignals[i], nullptr, &restoreState.previousJobControl[i]);
    }
    if (restoreState.previousJobControl[0].sa_handler != SIG_IGN) {
        SetHandler(SIGTSTP, RestoreTerminalAndStop);
    }
    SetHandler(SIGCONT, SilenceAgainAndPrompt);
}

void ReinstatePreviousHandlers() {
    for (std::size_t i = 0; i < kSignalCount; ++i) {
        sigaction(kRestoringSignals[i], &restoreState.previous[i], nullptr);
    }
    for (std::size_t i = 0; i < kJobControlCount; ++i) {
        sigaction(kJobControlSignals[i], &restoreState.previousJobControl[i], nullptr);
    }
}

}  // namespace

TerminalEchoGuard::TerminalEchoGuard(int fd, std::string prompt, int promptFd)
    : fd(fd), prompt(std::move(prompt)) {
    if (tcgetattr(fd, &saved) != 0) {
        return;
    }
    termios silent = saved;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    restoreState.fd = fd;
    restoreState.attributes = saved;
    restoreState.prompt = this->prompt.data();
    restoreState.promptLength = this->prompt.size();
    restoreState.promptFd = promptFd;
    // Handlers first: a signal between switching echo off and installing them would
    // otherwise leave the terminal silent.
    InstallRestoringHandlers();
    if (tcsetattr(fd, TCSANOW, &silent) != 0) {
        ReinstatePreviousHandlers();
        return;
    }
    active = true;
}

// The signals wait while the terminal is restored and the handlers go: a continue signal in
// between would otherwise switch echo off again for good.
TerminalEchoGuard::~TerminalEchoGuard() {
    if (!active) {
        return;
    }
    sigset_t all;
    sigset_t previousMask;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &previousMask);
    tcsetattr(fd, TCSANOW, &saved);
    ReinstatePreviousHandlers();
    sigprocmask(SIG_SETMASK, &previousMask, nullptr);
}

}  // namespace Platform
}  // namespace Tindra
