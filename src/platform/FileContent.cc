#include "platform/FileContent.h"

#include <errno.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Fd.h"
#include "platform/RegularFile.h"

namespace Tindra {
namespace Platform {

namespace {

// Reads into buffer until it is full or the file ends; the count read, or -1 on an error.
ssize_t ReadFully(int fd, char* buffer, size_t size) {
    size_t done = 0;
    while (done < size) {
        ssize_t count = ::read(fd, buffer + done, size - done);
        if (count == 0) {
            break;
        }
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            return -1;
        }
        done += static_cast<size_t>(count);
    }
    return static_cast<ssize_t>(done);
}

// Appends what is left to read, for a file that grew since its size was taken; false on a
// read error or once the text exceeds the limit.
bool ReadToEnd(int fd, size_t limit, std::string& content) {
    char buffer[4096];
    for (;;) {
        ssize_t count = ReadFully(fd, buffer, sizeof buffer);
        if (count <= 0) {
            return count == 0;
        }
        content.append(buffer, static_cast<size_t>(count));
        if (content.size() > limit) {
            return false;
        }
    }
}

}  // namespace

bool ReadFileContent(std::string const& path, size_t limit, std::string& content) {
    UniqueFd fd = OpenRegularFile(path);
    if (!fd.IsOpen()) {
        return false;
    }
    struct stat status;
    if (::fstat(fd.Get(), &status) != 0 || static_cast<size_t>(status.st_size) > limit) {
        return false;
    }
    content.resize(static_cast<size_t>(status.st_size));
    ssize_t count = ReadFully(fd.Get(), &content[0], content.size());
    if (count < 0) {
        return false;
    }
    content.resize(static_cast<size_t>(count));
    return ReadToEnd(fd.Get(), limit, content);
}

}  // namespace Platform
}  // namespace Tindra
