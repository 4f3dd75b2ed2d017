#ifndef TINDRA_PLATFORM_BOUNDEDFILESOURCE_H
#define TINDRA_PLATFORM_BOUNDEDFILESOURCE_H

#include <cstddef>

namespace Tindra {
namespace Platform {

// Hands an open file to a reader that pulls its bytes (a parser), never more than a limit in
// all: a file larger than that when opened is refused before reading, and one that grows past it
// while read fails then. Nothing is copied on the way.
class BoundedFileSource {
public:
    // size: the file's size when it was opened.
    BoundedFileSource(int fd, size_t size, size_t limit);

    // False when the file is not open or was larger than the limit when opened.
    bool Readable() const { return readable; }

    // A pull-reader callback on a BoundedFileSource: up to size bytes into buffer; the count,
    // 0 at the end, -1 on a read error or past the limit.
    static int Read(void* source, char* buffer, int size);

private:
    int fd;
    size_t left;
    bool readable;
};

}  // namespace Platform
}  // namespace Tindra

#endif
