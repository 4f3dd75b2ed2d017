#include "tindra/autocli/plugins/SharedLibraryPlugin.h"

#include <dlfcn.h>

#include <exception>

#include "platform/LoadedLibrary.h"
#include "platform/RegularFile.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

SharedLibraryPlugin::SharedLibraryPlugin(std::string const& fileName) : fileName(fileName) {}

SharedLibraryPlugin::~SharedLibraryPlugin() {
    registrationEntry = nullptr;
    library.reset();
}

std::shared_ptr<SharedLibraryPlugin> SharedLibraryPlugin::New(std::string const& fileName) {
    return std::make_shared<SharedLibraryPlugin>(fileName);
}

void SharedLibraryPlugin::Initialize() {
    // The loader would wait forever on a FIFO, and acts on whatever a device gives it.
    std::string const kind = Platform::NonRegularFileKind(fileName);
    if (!kind.empty()) {
        throw TindraException("Unable to load plugin from " + fileName + " : " + fileName + " is " +
                              kind + ", not a regular file");
    }
    // Global, so that libraries loaded later can link against this one's symbols.
    library = Platform::LoadedLibrary::Open(fileName, RTLD_LAZY | RTLD_GLOBAL);
    if (!library) {
        throw TindraException("Unable to load plugin from " + fileName + " : " +
                              Platform::LoaderErrorText());
    }
    registrationEntry = reinterpret_cast<SharedLibraryRegistration>(
        library->FindSymbol("AutoCli_RegisterNamespaces"));
    if (registrationEntry == nullptr) {
        // The loader's text must be read before closing, which may replace it.
        std::string message = "Unable to get plugin registration point from " + fileName + " : " +
                              Platform::LoaderErrorText();
        library.reset();
        throw TindraException(message);
    }
}

void SharedLibraryPlugin::RegisterNamespaces(std::shared_ptr<Namespace> root) {
    if (registrationEntry == nullptr) {
        return;
    }
    // The library's own failures arrive in whatever type it chose; the dispatcher reports
    // only ours, so every other one is turned into ours here.
    try {
        registrationEntry(root);
    } catch (TindraException const&) {
        throw;
    } catch (std::exception const& error) {
        throw TindraException(error.what());
    } catch (...) {
        throw TindraException("the registration entry point threw an exception of unknown type");
    }
}

std::vector<std::shared_ptr<Formatter>>& SharedLibraryPlugin::GetFormatters() {
    static std::vector<std::shared_ptr<Formatter>> none;
    return none;
}

}  // namespace AutoCli
}  // namespace Tindra
