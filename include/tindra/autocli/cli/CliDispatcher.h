#ifndef TINDRA_AUTOCLI_CLI_CLIDISPATCHER_H
#define TINDRA_AUTOCLI_CLI_CLIDISPATCHER_H

#include <istream>
#include <list>
#include <memory>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/cli/OptionParser.h"
#include "tindra/autocli/tree/Dispatcher.h"

namespace Tindra {
namespace AutoCli {

// The command-line face of the dispatcher: one run of the tool, or a stream of command lines.
class TINDRA_EXPORT CliDispatcher : public Dispatcher {
public:
    CliDispatcher() = default;
    ~CliDispatcher() override = default;

    [[noreturn]] void HandleArgvInput(int argc, char const* const* argv);
    bool HandleOptions(OptionParser& parser, bool allowInput);
    bool HandleDispatcherOptions(OptionParser& parser, FormatParameters& format,
                                 std::shared_ptr<CallSpec::Output> output);
    void ValidateDispatcherParameters(OptionParser& parser,
                                      std::shared_ptr<CallSpec::Output> output);
    bool ParseStreamInput(std::istream& stream);
    void PrintChildren(std::shared_ptr<NamespaceNode> node, std::shared_ptr<CommandOutput> output);
    void PrintError(std::shared_ptr<CallSpec::Output> output);
    void GetDisplayContext(DisplayContext& context);
    FormatParameters GetHelpFormatParams() const;

private:
    bool HandleInputOption(OptionParser& parser);
    bool RunCommand(OptionParser& parser, std::shared_ptr<NamespaceNode> node,
                    std::list<std::string> const& path, FormatParameters& format,
                    DisplayContext& display, std::shared_ptr<CommandOutput> output);
    FormatParameters ChooseFormat(std::shared_ptr<CommandInput> input,
                                  std::shared_ptr<CommandOutput> output, FormatParameters& format);
    void AddPluginDirectories(OptionParser& parser);
    void AddPluginFiles(OptionParser& parser);

    std::string dispatcherName;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
