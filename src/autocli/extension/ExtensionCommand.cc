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
