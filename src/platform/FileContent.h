#ifndef TINDRA_SRC_PLATFORM_FILECONTENT_H
#define TINDRA_SRC_PLATFORM_FILECONTENT_H

#include <cstddef>
#include <string>

namespace Tindra {
namespace Platform {

// Reads the whole file into content, unless it is larger than limit bytes. False when the file
// is not a regular file, cannot be opened or read, or is too large; content is then unspecified.
bool ReadFileContent(std::string const& path, size_t limit, std::string& content);

}  // namespace Platform
}  // namespace Tindra

#endif
