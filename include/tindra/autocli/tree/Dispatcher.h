#ifndef TINDRA_AUTOCLI_TREE_DISPATCHER_H
#define TINDRA_AUTOCLI_TREE_DISPATCHER_H

#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/DisplayContext.h"
#include "tindra/autocli/formatters/FormatParameters.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/autocli/tree/Command.h"
#include "tindra/autocli/tree/CommandInput.h"
#include "tindra/autocli/tree/CommandOutput.h"
#include "tindra/autocli/tree/Plugin.h"
#include "tindra/autocli/tree/RootNamespace.h"

namespace Tindra {
namespace AutoCli {

// The registry at the centre: the tree, the plug-ins and the formatter table.
// The root points back here by plain pointer, so a dispatcher is never copied or moved.
class TINDRA_EXPORT Dispatcher {
public:
    Dispatcher();
    Dispatcher(Dispatcher const&) = delete;
    Dispatcher& operator=(Dispatcher const&) = delete;
    virtual ~Dispatcher();

    std::shared_ptr<RootNamespace> GetRootNamespace() const { return root; }
    void ResetRegistrations();
    void AddDefaultDirectories();
    void AddExternalDirectory(std::string const& directory);
    void AddExternalDirectoryInt(std::string const& directory, bool reportOpenFailure);
    void AddPlugin(std::string const& path);
    void RegisterPlugin(std::shared_ptr<Plugin> plugin);

    std::shared_ptr<Command> GetCommand(std::shared_ptr<CommandInput> input,
                                        std::shared_ptr<CommandOutput> output);
    bool ExecuteCommand(std::shared_ptr<CommandInput> input, std::shared_ptr<CommandOutput> output);

    bool HasFormatter(std::string const& name) const;
    std::shared_ptr<Formatter> GetFormatter(std::string const& name) const;
    std::vector<std::shared_ptr<Formatter>> GetFormatters() const;
    bool FormatOutput(std::shared_ptr<CallSpec::Output> output, FormatParameters& parameters,
                      DisplayContext& context, std::ostream& stream);
    FormatParameters GetDefaultOutputFormatParameters(std::shared_ptr<CommandInput> input,
                                                      std::shared_ptr<CommandOutput> output);
    std::vector<std::string> GetPluginNames() const;

private:
    // Compiled plug-ins whose code the tree may still run. Declared first so that it is
    // released last, after the tree and the tables.
    std::vector<std::shared_ptr<Plugin>> loadedLibraries;
    std::map<std::string, std::shared_ptr<Plugin>> formatterTable;
    std::vector<std::shared_ptr<Plugin>> plugins;
    std::shared_ptr<RootNamespace> root;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
