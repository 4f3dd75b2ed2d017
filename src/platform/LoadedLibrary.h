#ifndef TINDRA_PLATFORM_LOADEDLIBRARY_H
#define TINDRA_PLATFORM_LOADEDLIBRARY_H

#include <memory>
#include <string>

namespace Tindra {
namespace Platform {

// A shared object opened through the dynamic loader; closed when this object goes.
class LoadedLibrary {
public:
    // Null when the loader refuses the file; LoaderErrorText() then says why.
    static std::unique_ptr<LoadedLibrary> Open(std::string const& path, int flags);

    LoadedLibrary(LoadedLibrary const&) = delete;
    LoadedLibrary& operator=(LoadedLibrary const&) = delete;
    ~LoadedLibrary();

    // Null when the symbol is missing; LoaderErrorText() then says why.
    void* FindSymbol(char const* name) const;

private:
    explicit LoadedLibrary(void* handle) : handle(handle) {}

    void* handle;
};

// The loader's description of its last failure, or "(null)" when it has none.
std::string LoaderErrorText();

}  // namespace Platform
}  // namespace Tindra

#endif
