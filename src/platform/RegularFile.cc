#include "platform/RegularFile.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace Tindra {
namespace Platform {

namespace {

char const* KindOf(mode_t mode) {
    if (S_ISREG(mode)) {
        return "";
    }
    if (S_ISDIR(mode)) {
        return "a directory";
    }
    if (S_ISFIFO(mode)) {
        return "a FIFO";
    }
    if (S_ISCHR(mode)) {
        return "a character device";
    }
    if (S_ISBLK(mode)) {
        return "a block device";
    }
    if (S_ISSOCK(mode)) {
        return "a socket";
    }
    return "a special file";
}

}  // namespace

std::string NonRegularFileKind(std::string const& path) {
    struct stat status;
    if (::stat(path.c_str(), &status) != 0) {
        return "";
    }
    return KindOf(status.st_mode);
}

UniqueFd OpenRegularFile(std::string const& path, size_t* size) {
    // Looked at first so that a device is never opened; the descriptor is checked again
    // because the name may point elsewhere by the time it is opened.
    if (!NonRegularFileKind(path).empty()) {
        errno = EINVAL;
        return UniqueFd();
    }
    UniqueFd fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status;
    if (!fd.IsOpen() || ::fstat(fd.Get(), &status) != 0) {
        return UniqueFd();
    }
    if (!S_ISREG(status.st_mode)) {
        errno = EINVAL;
        return UniqueFd();
    }
    int flags = ::fcntl(fd.Get(), F_GETFL);
    if (flags < 0 || ::fcntl(fd.Get(), F_SETFL, flags & ~O_NONBLOCK) != 0) {
        return UniqueFd();
    }
    if (size != nullptr) {
        *size = static_cast<size_t>(status.st_size);
    }
    return fd;
}

}  // namespace Platform
}  // namespace Tindra
