#ifndef TINDRA_AUTOCLI_PLUGINS_INTERNALPLUGIN_H
#define TINDRA_AUTOCLI_PLUGINS_INTERNALPLUGIN_H

#include <memory>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/autocli/tree/Namespace.h"
#include "tindra/autocli/tree/Plugin.h"

namespace Tindra {
namespace AutoCli {

// What every installation has: the standard formatters and the built-in command list.
class TINDRA_EXPORT InternalPlugin : public Plugin {
public:
    static std::shared_ptr<InternalPlugin> New();

    void Initialize() override;
    std::string const& GetName() const override;
    void RegisterNamespaces(std::shared_ptr<Namespace> root) override;
    bool HasFormatter(std::string const& name) override;
    std::shared_ptr<Formatter> GetFormatter(std::string const& name) override;
    std::vector<std::shared_ptr<Formatter>>& GetFormatters() override { return formatters; }

private:
    std::vector<std::shared_ptr<Formatter>> formatters;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
