#include "platform/BoundedFileSource.h"

#include <errno.h>
#include <unistd.h>

namespace Tindra {
namespace Platform {

BoundedFileSource::BoundedFileSource(int fd, size_t size, size_t limit)
    : fd(fd), left(limit), readable(fd >= 0 && size <= limit) {}

int BoundedFileSource::Read(void* source, char* buffer, int size) {
    auto& self = *static_cast<BoundedFileSource*>(source);
    if (size < 0) {
        return -1;
    }
    ssize_t count;
    do {
        count = ::read(self.fd, buffer, static_cast<size_t>(size));
    } while (count < 0 && errno == EINTR);
    if (count < 0 || static_cast<size_t>(count) > self.left) {
        return -1;
    }
    self.left -= static_cast<size_t>(count);
    return static_cast<int>(count);
}

}  // namespace Platform
}  // namespace Tindra
