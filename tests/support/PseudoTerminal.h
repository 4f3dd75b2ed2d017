#ifndef TINDRA_TESTS_SUPPORT_PSEUDOTERMINAL_H
#define TINDRA_TESTS_SUPPORT_PSEUDOTERMINAL_H

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <string>

#include "support/ChildProcess.h"

namespace TestSupport {

// The slave side plays the user's terminal, the master side the keyboard.
struct PseudoTerminal {
    OwnedFd master{posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)};
    OwnedFd slave{master.Get() >= 0 && grantpt(master.Get()) == 0 && unlockpt(master.Get()) == 0
                      ? open(ptsname(master.Get()), O_RDWR | O_NOCTTY | O_CLOEXEC)
                      : -1};

    PseudoTerminal() {
        if (slave.Get() < 0)
            throw std::runtime_error("no pseudo terminal");
    }

    void SetWindowSize(unsigned short columns, unsigned short rows) {
        winsize size{rows, columns, 0, 0};
        ioctl(slave.Get(), TIOCSWINSZ, &size);
    }

    // What was written, CR LF undone; data arrives asynchronously, so stop after a pause.
    std::string ReadWritten() {
        std::string text;
        pollfd ready = {master.Get(), POLLIN, 0};
        char buffer[4096];
        ssize_t n;
        while (poll(&ready, 1, 100) > 0 && (n = read(master.Get(), buffer, sizeof buffer)) > 0)
            text.append(buffer, static_cast<std::size_t>(n));
        text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
        return text;
    }

    tcflag_t LocalModes() const {
        termios attributes{};
        tcgetattr(slave.Get(), &attributes);
        return attributes.c_lflag;
    }
    bool Echoes() const { return (LocalModes() & ECHO) != 0; }
};

}  // namespace TestSupport

#endif
