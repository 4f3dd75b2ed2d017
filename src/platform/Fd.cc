#include "platform/Fd.h"

#include <errno.h>
#include <fcntl.h>
#include <unistd.h>

namespace Tindra {
namespace Platform {

UniqueFd& UniqueFd::operator=(UniqueFd&& other) noexcept {
    if (this != &other) {
        Reset(other.Release());
    }
    return *this;
}

int UniqueFd::Release() {
    int released = fd;
    fd = -1;
    return released;
}

void UniqueFd::Reset(int newFd) {
    Close();
    fd = newFd;
}

void UniqueFd::Close() {
    if (fd >= 0) {
        // Linux releases the descriptor even when close reports EINTR; never retry.
        ::close(fd);
        fd = -1;
    }
}

int UniqueFd::SetNonBlocking() {
    int flags = ::fcntl(fd, F_GETFL);
    if (flags < 0 || ::fcntl(fd, F_SETFL, flags | O_NONBLOCK) < 0) {
        return errno;
    }
    return 0;
}

}  // namespace Platform
}  // namespace Tindra
