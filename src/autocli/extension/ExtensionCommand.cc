#include "tindra/autocli/extension/ExtensionCommand.h"

#include <syslog.h>

#include <cstdlib>

#include "autocli/extension/CommandOutputCollector.h"
#include "autocli/extension/TemplateSubstitution.h"
#include "autocli/shell/StreamingShellCmd.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

namespace {

// External programs answer in English unless the caller chose a language.
char const* const kDefaultLanguage = "LANG=en_US.UTF-8 ";
char const* const kUserContext = "user";

// The shell receives its command line as a C string, so a zero byte would silently cut it:
// `rm -rf $val{dir}/cache` with the value "/" followed by a zero byte would remove "/". Such a
// line is never run; the message names the parameters whose values hold the byte.
std::string ZeroByteRefusal(CallSpec::Input& input) {
    std::string names;
    for (auto const& [name, values] : input.GetParameters()) {
        for (std::string const& value : values) {
            if (value.find('\0') != std::string::npos) {
                names += (names.empty() ? "" : ", ") + name;
                break;
            }
        }
    }
    if (names.empty()) {
        return "Unable to run the command: its command template holds a zero byte.";
    }
    return "Unable to run the command: the value of " + names +
           " holds a zero byte, which cannot be passed on a command line.";
}

}  // namespace

std::shared_ptr<ExtensionCommand> ExtensionCommand::New() {
    return std::make_shared<ExtensionCommand>();
}

std::shared_ptr<CallSpec::InputSpec> ExtensionCommand::GetInputSpecInternal() {
    if (!inputSpec) {
        throw TindraException(
            "Request for NULL InputSpec.  Extension command is incomplete and will not work");
    }
    return inputSpec;
}

std::shared_ptr<CallSpec::OutputSpec> ExtensionCommand::GetOutputSpecInternal() {
    if (!outputSpec) {
        throw TindraException(
            "Request for NULL OutputSpec.  Extension command is incomplete and will not work");
    }
    return outputSpec;
}

std::string ExtensionCommand::SubstituteInput(std::shared_ptr<CallSpec::Input> input,
                                              bool forStdin) {
    std::string const& templateText = forStdin ? stdinTemplate : executeTemplate;
    if (templateText.find('$') == std::string::npos) {
        return templateText;
    }
    return SubstituteTemplate(templateText, *input, *GetInputSpec(), forStdin);
}

void ExtensionCommand::ExecuteInternal(std::shared_ptr<CallSpec::Input> input,
                                       std::shared_ptr<CallSpec::Output> output) {
    std::string command = SubstituteInput(input, false);
    if (command.find('\0') != std::string::npos) {
        output->AddErrorMessage(ZeroByteRefusal(*input));
        return;
    }
    if (std::getenv("LANG") == nullptr) {
        command = kDefaultLanguage + command;
    }
    std::string const stdinText = SubstituteInput(input, true);
    CommandOutputCollector collected;
    auto collect = [&collected](char const* data, size_t length) { collected.Add(data, length); };
    if (GetInputSpec()->IsContextSupported(kUserContext)) {
        StreamingShellCmdWithLumUsername(command, input->GetContext(kUserContext), collect,
                                         stdinText);
    } else {
        StreamingShellCmd(command, collect, stdinText);
    }
    if (collected.Empty()) {
        std::string message = "Got no data from process: " + command;
        syslog(LOG_ERR, "%s", message.c_str());
        output->AddErrorMessage(std::move(message));
        return;
    }
    collected.DeliverTo(*output);
}

}  // namespace AutoCli
}  // namespace Tindra
