#include "platform/LoadedLibrary.h"

#include <dlfcn.h>

namespace Tindra {
namespace Platform {

std::unique_ptr<LoadedLibrary> LoadedLibrary::Open(std::string const& path, int flags) {
    void* handle = dlopen(path.c_str(), flags);
    if (handle == nullptr) {
        return nullptr;
    }
    return std::unique_ptr<LoadedLibrary>(new LoadedLibrary(handle));
}

LoadedLibrary::~LoadedLibrary() {
    dlclose(handle);
}

void* LoadedLibrary::FindSymbol(char const* name) const {
    return dlsym(handle, name);
}

std::string LoaderErrorText() {
    char const* text = dlerror();
    return text == nullptr ? "(null)" : text;
}

}  // namespace Platform
}  // namespace Tindra
