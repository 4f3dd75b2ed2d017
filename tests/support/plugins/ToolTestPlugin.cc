// The tool tests' plug-in: a secret parameter, a command without default formatter
// and a command that fails.
#include <stdexcept>

#include "support/tree/ScriptedCommand.h"
#include "tindra/tindra.h"

namespace {

using namespace Tindra;
using Tindra::Testing::ScriptedCommand;

std::shared_ptr<CallSpec::ParameterSpec> String(char const* name, char const* description) {
    auto parameter = CallSpec::ParameterSpec::New(name, CallSpec::ParamString);
    parameter->SetDescription(description);
    return parameter;
}

// Answers "label:password", so a test sees what the prompt read.
std::shared_ptr<ScriptedCommand> SecretEcho() {
    auto command = ScriptedCommand::New("Show the secret.");
    command->SetDefaultOutputFormatter("simple");
    auto password = String("password", "The secret.");
    password->SetShortName("p");
    password->SetSecret(true);
    auto label = String("label", "Shown before the secret.");
    label->SetRequired(false);
    command->declaredInput->AddParameter(password);
    command->declaredInput->AddParameter(label);
    command->action = [](CallSpec::Input& input, CallSpec::Output& output) {
        output.SetRootObject(MetaObj::MetaString::New(input.GetParameter("label") + ":" +
                                                      input.GetParameter("password")));
    };
    return command;
}

// A true result; fails instead when told to, else prints nothing unless a formatter is asked.
std::shared_ptr<ScriptedCommand> BoolRun(char const* description, bool fails) {
    auto command = ScriptedCommand::New(description);
    command->declaredOutput = MetaObj::MetaBool::New();
    if (fails)
        command->SetDefaultOutputFormatter("simple");
    command->action = [fails](CallSpec::Input&, CallSpec::Output& output) {
        if (fails)
            throw std::runtime_error("disk on fire");
        output.SetRootObject(MetaObj::MetaBool::New(true));
    };
    return command;
}

}  // namespace

extern "C" void AutoCli_RegisterNamespaces(std::shared_ptr<Tindra::AutoCli::Namespace> root) {
    auto top = root->SubNamespace("clitest");
    top->SetDescription("Commands of the tool tests.");
    std::pair<char const*, std::shared_ptr<ScriptedCommand>> const commands[] = {
        {"secret", SecretEcho()},
        {"quiet", BoolRun("Do nothing visible.", false)},
        {"fail", BoolRun("Always fails.", true)}};
    for (auto const& [group, command] : commands) {
        auto child = top->SubNamespace(group);
        child->SetDescription("Test commands.");
        child->RegisterNamespaceNode(command, group == std::string("secret") ? "echo" : "run");
    }
}
