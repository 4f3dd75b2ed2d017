#ifndef TINDRA_AUTOCLI_PLUGINS_SHAREDLIBRARYPLUGIN_H
#define TINDRA_AUTOCLI_PLUGINS_SHAREDLIBRARYPLUGIN_H

#include <memory>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/autocli/tree/Namespace.h"
#include "tindra/autocli/tree/Plugin.h"

namespace Tindra {
namespace Platform {
class LoadedLibrary;
}

namespace AutoCli {

// The entry point a plug-in library exports, unmangled, as "AutoCli_RegisterNamespaces".
using SharedLibraryRegistration = void (*)(std::shared_ptr<Namespace>);

// Compiled commands from a shared object. The library is unloaded when the plug-in goes, so
// whoever keeps the plug-in must outlive every object the library placed in the tree.
class TINDRA_EXPORT SharedLibraryPlugin : public Plugin {
public:
    explicit SharedLibraryPlugin(std::string const& fileName);
    SharedLibraryPlugin(SharedLibraryPlugin const&) = delete;
    SharedLibraryPlugin& operator=(SharedLibraryPlugin const&) = delete;
    ~SharedLibraryPlugin() override;

    static std::shared_ptr<SharedLibraryPlugin> New(std::string const& fileName);

    void Initialize() override;
    std::string const& GetName() const override { return fileName; }
    void RegisterNamespaces(std::shared_ptr<Namespace> root) override;
    bool HasFormatter(std::string const&) override { return false; }
    std::shared_ptr<Formatter> GetFormatter(std::string const&) override { return nullptr; }
    std::vector<std::shared_ptr<Formatter>>& GetFormatters() override;

private:
    std::string fileName;
    std::unique_ptr<Platform::LoadedLibrary> library;
    SharedLibraryRegistration registrationEntry = nullptr;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
