#include "autocli/shell/ChildExchange.h"

#include <errno.h>
#include <poll.h>
#include <unistd.h>

#include "platform/ErrnoText.h"
#include "platform/SigpipeGuard.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

namespace {

size_t const kReadChunk = 64 * 1024;

[[noreturn]] void ThrowWriteError(int error) {
    throw TindraException("Unable to write to sub-process: " + Platform::ErrnoText(error));
}

[[noreturn]] void ThrowReadError(int error) {
    throw TindraException("Unable to read from sub-process: " + Platform::ErrnoText(error));
}

class Exchange {
public:
    Exchange(Platform::UniqueFd& toChild, Platform::UniqueFd& fromChild, std::string const& input,
             ChildOutputSink const& output)
        : toChild(toChild), fromChild(fromChild), input(input), output(output) {}

    void Run() {
        PrepareInput();
        while (toChild.IsOpen() || fromChild.IsOpen()) {
            WaitAndTransfer();
        }
    }

private:
    void PrepareInput() {
        if (input.empty()) {
            toChild.Close();
            return;
        }
        if (int error = toChild.SetNonBlocking()) {
            ThrowWriteError(error);
        }
    }

    void WaitAndTransfer() {
        pollfd fds[2];
        nfds_t count = 0;
        int readSlot = -1;
        int writeSlot = -1;
        if (fromChild.IsOpen()) {
            readSlot = static_cast<int>(count);
            fds[count++] = pollfd{fromChild.Get(), POLLIN, 0};
        }
        if (toChild.IsOpen()) {
            writeSlot = static_cast<int>(count);
            fds[count++] = pollfd{toChild.Get(), POLLOUT, 0};
        }
        if (::poll(fds, count, -1) < 0) {
            if (errno == EINTR) {
                return;
            }
            ThrowReadError(errno);
        }
        if (writeSlot >= 0 && fds[writeSlot].revents != 0) {
            WriteSome();
        }
        if (readSlot >= 0 && fds[readSlot].revents != 0) {
            ReadSome();
        }
    }

    void WriteSome() {
        ssize_t count = ::write(toChild.Get(), input.data() + written, input.size() - written);
        if (count < 0) {
            if (errno == EINTR || errno == EAGAIN) {
                return;
            }
            if (errno == EPIPE) {
                toChild.Close();  // the child stopped reading: drop the rest, keep its output
                return;
            }
            ThrowWriteError(errno);
        }
        written += static_cast<size_t>(count);
        if (written == input.size()) {
            toChild.Close();  // end of file on the child's standard input
        }
    }

    void ReadSome() {
        char buffer[kReadChunk];
        ssize_t count = ::read(fromChild.Get(), buffer, sizeof buffer);
        if (count < 0) {
            if (errno == EINTR || errno == EAGAIN) {
                return;
            }
            ThrowReadError(errno);
        }
        if (count == 0) {
            fromChild.Close();
            return;
        }
        output(buffer, static_cast<size_t>(count));
    }

    Platform::UniqueFd& toChild;
    Platform::UniqueFd& fromChild;
    std::string const& input;
    ChildOutputSink const& output;
    size_t written = 0;
};

}  // namespace

void ExchangeWithChild(Platform::UniqueFd& toChild, Platform::UniqueFd& fromChild,
                       std::string const& input, ChildOutputSink const& output) {
    Platform::SigpipeGuard noSigpipe;
    Exchange(toChild, fromChild, input, output).Run();
}

}  // namespace AutoCli
}  // namespace Tindra
