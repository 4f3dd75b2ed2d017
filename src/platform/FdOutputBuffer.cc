#include "platform/FdOutputBuffer.h"

#include <errno.h>
#include <unistd.h>

#include <cstring>

namespace Tindra {
namespace Platform {

FdOutputBuffer::FdOutputBuffer(int fd) : fd(fd) {
    setp(buffer.data(), buffer.data() + buffer.size());
}

bool FdOutputBuffer::WriteAll(char const* text, std::size_t count) {
    while (count > 0 && error == 0) {
        ssize_t written = ::write(fd, text, count);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            error = written < 0 ? errno : EIO;
            break;
        }
        text += written;
        count -= static_cast<std::size_t>(written);
    }
    return error == 0;
}

bool FdOutputBuffer::Drain() {
    bool written = WriteAll(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    setp(buffer.data(), buffer.data() + buffer.size());
    return written;
}

FdOutputBuffer::int_type FdOutputBuffer::overflow(int_type character) {
    if (!Drain()) {
        return traits_type::eof();
    }
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        *pptr() = traits_type::to_char_type(character);
        pbump(1);
    }
    return traits_type::not_eof(character);
}

// Large pieces go straight to the descriptor rather than through the buffer.
std::streamsize FdOutputBuffer::xsputn(char const* text, std::streamsize count) {
    auto const size = static_cast<std::size_t>(count);
    if (size <= static_cast<std::size_t>(epptr() - pptr())) {
        std::memcpy(pptr(), text, size);
        pbump(static_cast<int>(size));
        return count;
    }
    if (!Drain()) {
        return 0;
    }
    if (size < buffer.size()) {
        std::memcpy(pptr(), text, size);
        pbump(static_cast<int>(size));
        return count;
    }
    return WriteAll(text, size) ? count : 0;
}

int FdOutputBuffer::sync() {
    return Drain() ? 0 : -1;
}

}  // namespace Platform
}  // namespace Tindra
