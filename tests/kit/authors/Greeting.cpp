// A minimal compiled plug-in, as an outside author writes it: one command, "<namespace> greet",
// answering with a greeting. Built twice with different words, so two plug-ins define the same
// classes and must still not run each other's code.
#include <memory>
#include <string>

#include <tindra/tindra.h>

#ifndef GREETING_NAMESPACE
#error "GREETING_NAMESPACE must name the namespace, e.g. -DGREETING_NAMESPACE=\"hello\""
#endif
#ifndef GREETING_WORD
#error "GREETING_WORD must give the greeting, e.g. -DGREETING_WORD=\"Hello\""
#endif

namespace Greeting {

using namespace Tindra;

class GreetCommand : public AutoCli::Command {
public:
    GreetCommand() {
        SetDescription("Greet someone.");
        AddExample("--name Ada", "Greet Ada");
        SetDefaultOutputFormatter("simple");
    }

protected:
    std::shared_ptr<CallSpec::InputSpec> GetInputSpecInternal() override {
        auto name = CallSpec::ParameterSpec::New("name", CallSpec::ParamString);
        name->SetShortName("n");
        name->SetDescription("Who to greet.");
        name->SetRequired(false);
        auto spec = CallSpec::InputSpec::New();
        spec->AddParameter(name);
        return spec;
    }

    std::shared_ptr<CallSpec::OutputSpec> GetOutputSpecInternal() override {
        auto spec = CallSpec::OutputSpec::New();
        spec->SetRootObject(MetaObj::MetaString::New());
        return spec;
    }

    void ExecuteInternal(std::shared_ptr<CallSpec::Input> input,
                         std::shared_ptr<CallSpec::Output> output) override {
        std::string const name =
            input->HasParameter("name") ? input->GetParameter("name") : "world";
        output->SetRootObject(MetaObj::MetaString::New(std::string(GREETING_WORD) + ", " + name));
    }
};

}  // namespace Greeting

extern "C" void AutoCli_RegisterNamespaces(std::shared_ptr<Tindra::AutoCli::Namespace> root) {
    root->SubNamespace(GREETING_NAMESPACE)
        ->RegisterNamespaceNode(std::make_shared<Greeting::GreetCommand>(), "greet");
}
