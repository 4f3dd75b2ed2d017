#include "platform/DirectoryListing.h"

#include <dirent.h>

#include <cstring>
#include <memory>

namespace Tindra {
namespace Platform {

namespace {

struct DirectoryCloser {
    void operator()(DIR* directory) const { closedir(directory); }
};

using DirectoryHandle = std::unique_ptr<DIR, DirectoryCloser>;

bool IsSelfOrParent(char const* name) {
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

}  // namespace

bool ListDirectory(std::string const& directory, std::vector<std::string>& paths) {
    DirectoryHandle handle(opendir(directory.c_str()));
    if (!handle) {
        return false;
    }
    while (struct dirent64* entry = readdir64(handle.get())) {
        if (!IsSelfOrParent(entry->d_name)) {
            paths.push_back(directory + "/" + entry->d_name);
        }
    }
    return true;
}

}  // namespace Platform
}  // namespace Tindra
