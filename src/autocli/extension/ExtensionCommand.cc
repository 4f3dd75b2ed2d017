#include "tindra/autocli/extension/ExtensionCommand.h"

#include <syslog.h>

#include <cstdlib>

#include "autocli/extension/OutputDocumentReader.h"
#include "autocli/extension/TemplateSubstitution.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/extension/ShellCmd.h"

namespace Tindra {
namespace AutoCli {

namespace {

// External programs answer in English unless the caller chose a language.
char const* const kDefaultLanguage = "LANG=en_US.UTF-8 ";
char const* const kUserContext = "user";
std::string const kErrorLinePrefix = "ERROR:";

// Leading "ERROR:" lines, each the rest of its line; they stop at the first other line.
void AddErrorLines(std::string const& text, CallSpec::Output& output) {
    size_t pos = 0;
    while (text.compare(pos, kErrorLinePrefix.size(), kErrorLinePrefix) == 0) {
        size_t start = pos + kErrorLinePrefix.size();
        size_t newline = text.find('\n', start);
        if (newline == std::string::npos) {
            output.AddErrorMessage(text.substr(start));
            return;
        }
        output.AddErrorMessage(text.substr(start, newline - start));
        pos = newline + 1;
    }
}

void ReportParseFailure(CallSpec::Output& output, TindraException const& error) {
    output.AddErrorMessage(std::string("Unable to parse output of Extension Command: ") +
                           error.what());
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
    if (std::getenv("LANG") == nullptr) {
        command = kDefaultLanguage + command;
    }
    std::string const stdinText = SubstituteInput(input, true);
    std::string text;
    if (GetInputSpec()->IsContextSupported(kUserContext)) {
        AutoCli_ShellCmdWithLumUsername(command, input->GetContext(kUserContext), text, stdinText);
    } else {
        AutoCli_ShellCmd(command, text, stdinText);
    }
    if (text.empty()) {
        std::string message = "Got no data from process: " + command;
        syslog(LOG_ERR, "%s", message.c_str());
        output->AddErrorMessage(std::move(message));
        return;
    }
    AddErrorLines(text, *output);
    if (output->HasError()) {
        return;
    }
    std::shared_ptr<MetaObj::MetaObject> value;
    try {
        value = XmlUtil_ParseXmlOutput(text);
    } catch (TindraException const& error) {
        ReportParseFailure(*output, error);
        return;
    }
    if (!value) {
        return;
    }
    try {
        output->SetRootObject(value);
    } catch (TindraException const& error) {
        ReportParseFailure(*output, error);
    }
}

}  // namespace AutoCli
}  // namespace Tindra
