#ifndef TINDRA_PLATFORM_DIRECTORYLISTING_H
#define TINDRA_PLATFORM_DIRECTORYLISTING_H

#include <string>
#include <vector>

namespace Tindra {
namespace Platform {

// Appends the full path (directory + "/" + name) of every entry except "." and "..", in the
// order the system returns them. False, with nothing appended, when the directory cannot be opened.
bool ListDirectory(std::string const& directory, std::vector<std::string>& paths);

}  // namespace Platform
}  // namespace Tindra

#endif
