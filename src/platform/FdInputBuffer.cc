#include "platform/FdInputBuffer.h"

#include <errno.h>
#include <unistd.h>

namespace Tindra {
namespace Platform {

FdInputBuffer::int_type FdInputBuffer::underflow() {
    if (gptr() < egptr()) {
        return traits_type::to_int_type(*gptr());
    }
    ssize_t count;
    do {
        count = ::read(fd, buffer.data(), buffer.size());
    } while (count < 0 && errno == EINTR);
    if (count <= 0) {
        error = count < 0 ? errno : 0;
        return traits_type::eof();
    }
    setg(buffer.data(), buffer.data(), buffer.data() + count);
    return traits_type::to_int_type(*gptr());
}

}  // namespace Platform
}  // namespace Tindra
