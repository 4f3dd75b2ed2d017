// A minimal compiled plug-in as an outside author writes it: "<namespace> greet" greets.
// Built with other words it defines the same classes again; with GREETING_REFUSES it places
// its command and then fails to register.
#include <memory>
#include <string>

#include <tindra/tindra.h>

namespace Greeting {

using namespace Tindra;

class GreetCommand : public AutoCli::Command {
public:
    GreetCommand() {
        SetDescription("Greet someone.");
        SetDefaultOutputFormatter("simple");
    }

protected:
    std::shared_ptr<CallSpec::InputSpec> GetInputSpecInternal() override {
        auto name = CallSpec::ParameterSpec::New("name", CallSpec::ParamString);
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
#ifdef GREETING_REFUSES
    throw Tindra::TindraException("This plug-in refuses to register.");
#endif
}
