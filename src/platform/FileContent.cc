#include "platform/FileContent.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Fd.h"

namespace Tindra {
namespace Platform {

namespace {

// Appends what is left to read; false on a read error or once the text exceeds the limit.
bool ReadToEnd(int fd, size_t limit, std::string& content) {
    char buffer[65536];
    for (;;) {
        ssize_t count = ::read(fd, buffer, sizeof buffer);
        if (count == 0) {
            return true;
        }
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            return false;
        }
        content.append(buffer, static_cast<size_t>(count));
        if (content.size() > limit) {
            return false;
        }
    }
}

}  // namespace

bool ReadFileContent(std::string const& path, size_t limit, std::string& content) {
    UniqueFd fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!fd.IsOpen()) {
        return false;
    }
    struct stat status;
    if (::fstat(fd.Get(), &status) != 0 || static_cast<size_t>(status.st_size) > limit) {
        return false;
    }
    content.clear();
    content.reserve(static_cast<size_t>(status.st_size));
    return ReadToEnd(fd.Get(), limit, content);
}

}  // namespace Platform
}  // namespace Tindra
