#ifndef TINDRA_AUTOCLI_EXTENSION_EXTENSIONCOMMAND_H
#define TINDRA_AUTOCLI_EXTENSION_EXTENSIONCOMMAND_H

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include "tindra/Export.h"
#include "tindra/autocli/tree/Command.h"
#include "tindra/callspec/Input.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/Output.h"
#include "tindra/callspec/OutputSpec.h"

namespace Tindra {
namespace AutoCli {

// A command carried out by an external program: its execute template becomes a shell command
// line and its stdin template the program's standard input; the program answers with error
// lines or an output document.
class TINDRA_EXPORT ExtensionCommand : public Command {
public:
    ExtensionCommand() = default;
    ~ExtensionCommand() override = default;

    static std::shared_ptr<ExtensionCommand> New();

    void SetExecuteCommand(std::string const& text) { executeTemplate = text; }
    void SetStdin(std::string const& text) { stdinTemplate = text; }
    void SetInputSpec(std::shared_ptr<CallSpec::InputSpec> spec) { inputSpec = std::move(spec); }
    void SetOutputSpec(std::shared_ptr<CallSpec::OutputSpec> spec) { outputSpec = std::move(spec); }

    // The stdin template (forStdin) or the execute template filled from the input.
    std::string SubstituteInput(std::shared_ptr<CallSpec::Input> input, bool forStdin);

    std::shared_ptr<CallSpec::InputSpec> GetInputSpecInternal() override;
    std::shared_ptr<CallSpec::OutputSpec> GetOutputSpecInternal() override;
    void ExecuteInternal(std::shared_ptr<CallSpec::Input> input,
                         std::shared_ptr<CallSpec::Output> output) override;

private:
    std::shared_ptr<CallSpec::InputSpec> inputSpec;
    std::shared_ptr<CallSpec::OutputSpec> outputSpec;
    std::string executeTemplate;
    std::string stdinTemplate;
};

// True for the bytes that SanitizeInput escapes for the shell.
TINDRA_EXPORT bool isBadChar(char c);

// Every byte for which isBadChar is true preceded by a backslash.
TINDRA_EXPORT std::string SanitizeInput(std::string const& text);

// The text without any occurrence of that byte.
TINDRA_EXPORT std::string SanitizeChar(std::string const& text, char removed);

// From start (past an opening character there), the extent (start, size) up to and including
// the closing character at this nesting level; (0, 0) when there is none before length.
TINDRA_EXPORT std::pair<size_t, size_t> FindPairedTokenSize(char const* text, size_t start,
                                                            size_t length, char opening,
                                                            char closing);

}  // namespace AutoCli
}  // namespace Tindra

#endif
