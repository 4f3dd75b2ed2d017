// A compiled plug-in with what the command-line tests need beyond the built-in command: a
// secret parameter, a command without default formatter and a command that fails.
#include <memory>
#include <stdexcept>

#include "tindra/tindra.h"

namespace {

using Tindra::AutoCli::Command;
using Tindra::AutoCli::Namespace;
using Tindra::AutoCli::NamespaceNode;
using Tindra::CallSpec::Input;
using Tindra::CallSpec::InputSpec;
using Tindra::CallSpec::Output;
using Tindra::CallSpec::OutputSpec;
using Tindra::CallSpec::ParameterSpec;
using Tindra::MetaObj::MetaBool;
using Tindra::MetaObj::MetaString;

std::shared_ptr<OutputSpec> OutputOf(std::shared_ptr<Tindra::MetaObj::MetaObject> const& value) {
    auto spec = OutputSpec::New();
    spec->SetRootObject(value);
    return spec;
}

// Answers "label:password", so a test sees what the prompt read.
class SecretEcho : public Command {
public:
    SecretEcho() {
        SetDescription("Show the secret.");
        SetDefaultOutputFormatter("simple");
    }

protected:
    std::shared_ptr<InputSpec> GetInputSpecInternal() override {
        auto spec = InputSpec::New();
        auto password = ParameterSpec::New("password", Tindra::CallSpec::ParamString);
        password->SetShortName("p");
        password->SetSecret(true);
        password->SetDescription("The secret.");
        spec->AddParameter(password);
        auto label = ParameterSpec::New("label", Tindra::CallSpec::ParamString);
        label->SetRequired(false);
        label->SetDescription("Shown before the secret.");
        spec->AddParameter(label);
        return spec;
    }
    std::shared_ptr<OutputSpec> GetOutputSpecInternal() override {
        return OutputOf(MetaString::New());
    }
    void ExecuteInternal(std::shared_ptr<Input> input, std::shared_ptr<Output> output) override {
        output->SetRootObject(
            MetaString::New(input->GetParameter("label") + ":" + input->GetParameter("password")));
    }
};

// Succeeds without naming a formatter: nothing is printed.
class QuietRun : public Command {
public:
    QuietRun() { SetDescription("Do nothing visible."); }

protected:
    std::shared_ptr<InputSpec> GetInputSpecInternal() override { return InputSpec::New(); }
    std::shared_ptr<OutputSpec> GetOutputSpecInternal() override {
        return OutputOf(MetaBool::New());
    }
    void ExecuteInternal(std::shared_ptr<Input>, std::shared_ptr<Output> output) override {
        output->SetRootObject(MetaBool::New(true));
    }
};

class FailingRun : public Command {
public:
    FailingRun() {
        SetDescription("Always fails.");
        SetDefaultOutputFormatter("simple");
    }

protected:
    std::shared_ptr<InputSpec> GetInputSpecInternal() override { return InputSpec::New(); }
    std::shared_ptr<OutputSpec> GetOutputSpecInternal() override {
        return OutputOf(MetaBool::New());
    }
    void ExecuteInternal(std::shared_ptr<Input>, std::shared_ptr<Output>) override {
        throw std::runtime_error("disk on fire");
    }
};

void RegisterCommand(std::shared_ptr<NamespaceNode> const& parent, char const* namespaceName,
                     std::shared_ptr<Command> command, char const* commandName) {
    auto group = parent->SubNamespace(namespaceName);
    group->SetDescription("Test commands.");
    group->RegisterNamespaceNode(std::move(command), commandName);
}

}  // namespace

extern "C" void AutoCli_RegisterNamespaces(std::shared_ptr<Namespace> root) {
    auto top = root->SubNamespace("clitest");
    top->SetDescription("Commands of the command-line tests.");
    RegisterCommand(top, "secret", std::make_shared<SecretEcho>(), "echo");
    RegisterCommand(top, "quiet", std::make_shared<QuietRun>(), "run");
    RegisterCommand(top, "fail", std::make_shared<FailingRun>(), "run");
}
