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

// A pseudo terminal: the slave side plays the user's terminal, the master side the keyboard.
struct PseudoTerminal {
    OwnedFd master;
    OwnedFd slave;

    PseudoTerminal() {
        master.Reset(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
        if (master.Get() < 0 || grantpt(master.Get()) != 0 || unlockpt(master.Get()) != 0) {
            throw std::runtime_error("no pseudo terminal");
        }
        slave.Reset(open(ptsname(master.Get()), O_RDWR | O_NOCTTY | O_CLOEXEC));
        if (slave.Get() < 0) {
            throw std::runtime_error("cannot open the pseudo terminal's slave side");
        }
    }

    void SetWindowSize(unsigned short columns, unsigned short rows) {
        winsize size{};
        size.ws_col = columns;
        size.ws_row = rows;
        ioctl(slave.Get(), TIOCSWINSZ, &size);
    }

    // What was written to the terminal, with the terminal's CR LF line ends undone. The
    // terminal hands written data on asynchronously, so reading stops only after a pause.
    std::string ReadWritten() {
        std::string text;
        pollfd ready = {master.Get(), POLLIN, 0};
        char buffer[4096];
        ssize_t n;
        while (poll(&ready, 1, 100) > 0 && (n = read(master.Get(), buffer, sizeof buffer)) > 0) {
            text.append(buffer, static_cast<std::size_t>(n));
        }
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
