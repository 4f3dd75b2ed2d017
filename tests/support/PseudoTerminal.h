#ifndef TINDRA_TESTS_SUPPORT_PSEUDOTERMINAL_H
#define TINDRA_TESTS_SUPPORT_PSEUDOTERMINAL_H

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <algorithm>
#include <string>

#include "support/ChildProcess.h"

namespace TestSupport {

// The slave side plays the user's terminal, the master side the keyboard.
struct PseudoTerminal {
    OwnedFd master{posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)};
    OwnedFd slave{grantpt(master.Get()) == 0 && unlockpt(master.Get()) == 0
                      ? open(ptsname(master.Get()), O_RDWR | O_NOCTTY | O_CLOEXEC)
                      : -1};

    PseudoTerminal() {
        if (slave.Get() < 0)
            throw std::runtime_error("no pseudo terminal");
    }

    // What was written, CR LF undone; data arrives asynchronously, so stop after a pause.
    std::string ReadWritten() {
        std::string text;
        pollfd ready = {master.Get(), POLLIN, 0};
        char buffer[4096];
        for (ssize_t n; poll(&ready, 1, 100) > 0 && (n = read(master.Get(), buffer, 4096)) > 0;)
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
