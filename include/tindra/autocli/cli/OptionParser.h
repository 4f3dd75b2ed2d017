#ifndef TINDRA_AUTOCLI_CLI_OPTIONPARSER_H
#define TINDRA_AUTOCLI_CLI_OPTIONPARSER_H

#include <list>
#include <memory>
#include <stack>
#include <string>
#include <utility>
#include <vector>

#include "tindra/Export.h"
#include "tindra/callspec/InputSpec.h"

namespace Tindra {
namespace AutoCli {

// Splits one command line into the tool's name, dispatcher options, the command path and
// the command's own options. Bad input becomes parse errors; nothing here throws.
class TINDRA_EXPORT OptionParser {
public:
    using Pair = std::pair<std::string, std::string>;

    OptionParser();
    explicit OptionParser(std::string const& dispatcher);

    void ParseArgv(int argc, char const* const* argv);
    void ParseVector(std::vector<std::string> const& words);
    bool ParseString(std::string const& line);
    void ParseStack(std::stack<std::string>& words);

    bool IsParameter(std::string const& word) const;
    bool ParseParameter(std::string const& word, std::string& name, std::string& value);
    std::vector<Pair> ParseParameters(std::stack<std::string>& words);
    std::list<std::string> ParsePath(std::stack<std::string>& words);

    void SetInputSpec(std::shared_ptr<CallSpec::InputSpec> spec) { inputSpec = std::move(spec); }
    void ProcessCommandArguments();
    std::vector<Pair>& GetCommandParameters();
    std::vector<std::string> GetCommandParameter(std::string const& name);
    bool HasCommandParameter(std::string const& name);
    std::vector<Pair>& GetDispatcherParameters() { return dispatcherParameters; }
    std::vector<std::string> GetDispatcherParameter(std::string const& name) const;
    bool HasDispatcherParameter(std::string const& name) const;

    std::string& GetDispatcher() { return dispatcher; }
    std::list<std::string>& GetCommandPath() { return commandPath; }
    std::list<std::string>& GetNamespaces() { return commandPath; }
    std::vector<std::string>& GetParseErrors() { return parseErrors; }
    bool IsParsed() const { return parsed; }

    static std::string GetSilentString();
    std::string ToString();

private:
    void ReadMissingValue(std::string const& word, std::string const& name, std::string& value);

    bool parsed = false;
    std::vector<std::string> parseErrors;
    std::string dispatcher;
    std::list<std::string> commandPath;
    std::vector<Pair> dispatcherParameters;
    std::vector<Pair> commandParameters;
    std::stack<std::string> pending;
    std::shared_ptr<CallSpec::InputSpec> inputSpec;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
