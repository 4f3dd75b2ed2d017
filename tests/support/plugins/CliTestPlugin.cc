// A compiled plug-in with what the command-line tests need beyond the built-in command: a
// secret parameter, a command without default formatter and a command that fails.
#include <stdexcept>

#include "support/tree/ScriptedCommand.h"
#include "tindra/tindra.h"

namespace {

using namespace Tindra;
using Tindra::Testing::ScriptedCommand;

// Answers "label:password", so a test sees what the prompt read.
std::shared_ptr<ScriptedCommand> SecretEcho() {
    auto command = ScriptedCommand::New("Show the secret.");
    command->SetDefaultOutputFormatter("simple");
    auto password = CallSpec::ParameterSpec::New("password", CallSpec::ParamString);
    password->SetShortName("p");
    password->SetSecret(true);
    password->SetDescription("The secret.");
    command->declaredInput->AddParameter(password);
    auto label = CallSpec::ParameterSpec::New("label", CallSpec::ParamString);
    label->SetRequired(false);
    label->SetDescription("Shown before the secret.");
    command->declaredInput->AddParameter(label);
    command->action = [](CallSpec::Input& input, CallSpec::Output& output) {
        output.SetRootObject(MetaObj::MetaString::New(input.GetParameter("label") + ":" +
                                                      input.GetParameter("password")));
    };
    return command;
}

// Succeeds without naming a formatter: nothing is printed.
std::shared_ptr<ScriptedCommand> QuietRun() {
    auto command = ScriptedCommand::New("Do nothing visible.");
    command->declaredOutput = MetaObj::MetaBool::New();
    command->action = [](CallSpec::Input&, CallSpec::Output& output) {
        output.SetRootObject(MetaObj::MetaBool::New(true));
    };
    return command;
}

std::shared_ptr<ScriptedCommand> FailingRun() {
    auto command = ScriptedCommand::New("Always fails.");
    command->SetDefaultOutputFormatter("simple");
    command->declaredOutput = MetaObj::MetaBool::New();
    command->action = [](CallSpec::Input&, CallSpec::Output&) {
        throw std::runtime_error("disk on fire");
    };
    return command;
}

void Register(std::shared_ptr<AutoCli::NamespaceNode> const& parent, char const* namespaceName,
              std::shared_ptr<AutoCli::Command> command, char const* commandName) {
    auto group = parent->SubNamespace(namespaceName);
    group->SetDescription("Test commands.");
    group->RegisterNamespaceNode(std::move(command), commandName);
}

}  // namespace

extern "C" void AutoCli_RegisterNamespaces(std::shared_ptr<Tindra::AutoCli::Namespace> root) {
    auto top = root->SubNamespace("clitest");
    top->SetDescription("Commands of the command-line tests.");
    Register(top, "secret", SecretEcho(), "echo");
    Register(top, "quiet", QuietRun(), "run");
    Register(top, "fail", FailingRun(), "run");
}
