#ifndef TINDRA_AUTOCLI_TREE_PLUGIN_H
#define TINDRA_AUTOCLI_TREE_PLUGIN_H

#include <memory>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/autocli/tree/Namespace.h"

namespace Tindra {
namespace AutoCli {

// A source of namespaces, commands and formatters.
class TINDRA_EXPORT Plugin {
public:
    virtual ~Plugin() = default;

    virtual void Initialize() = 0;
    virtual std::string const& GetName() const = 0;
    virtual void RegisterNamespaces(std::shared_ptr<Namespace> root) = 0;
    virtual bool HasFormatter(std::string const& name) = 0;
    virtual std::shared_ptr<Formatter> GetFormatter(std::string const& name) = 0;
    virtual std::vector<std::shared_ptr<Formatter>>& GetFormatters() = 0;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
