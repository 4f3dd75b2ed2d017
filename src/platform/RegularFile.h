#ifndef TINDRA_SRC_PLATFORM_REGULARFILE_H
#define TINDRA_SRC_PLATFORM_REGULARFILE_H

#include <cstddef>
#include <string>

#include "platform/Fd.h"

namespace Tindra {
namespace Platform {

// Plug-in files are opened only when they are regular files (symbolic links to one included):
// opening a FIFO blocks until a writer comes, and opening a device may act on it.

// Empty when the path is a regular file or cannot be examined (the open that follows then
// reports that); otherwise what it is, for example "a FIFO".
std::string NonRegularFileKind(std::string const& path);

// Opens a regular file for reading without ever blocking: a file swapped for a FIFO after it
// was examined is refused too. Not open, with errno set, on failure (EINVAL: not regular).
// size, when given, receives the size of the file opened.
UniqueFd OpenRegularFile(std::string const& path, size_t* size = nullptr);

}  // namespace Platform
}  // namespace Tindra

#endif
