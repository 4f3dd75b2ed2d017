// A plug-in whose registration fails half way: one command is already in the tree when it
// throws, and must stay usable, so the library must stay loaded.
#include <memory>

#include <tindra/tindra.h>

namespace Refusing {

using namespace Tindra;

class PartialCommand : public AutoCli::Command {
protected:
    std::shared_ptr<CallSpec::InputSpec> GetInputSpecInternal() override {
        return CallSpec::InputSpec::New();
    }
    std::shared_ptr<CallSpec::OutputSpec> GetOutputSpecInternal() override {
        auto spec = CallSpec::OutputSpec::New();
        spec->SetRootObject(MetaObj::MetaString::New());
        return spec;
    }
    void ExecuteInternal(std::shared_ptr<CallSpec::Input>,
                         std::shared_ptr<CallSpec::Output> output) override {
        output->SetRootObject(MetaObj::MetaString::New("registered before the failure"));
    }
};

}  // namespace Refusing

extern "C" void AutoCli_RegisterNamespaces(std::shared_ptr<Tindra::AutoCli::Namespace> root) {
    auto partial = std::make_shared<Refusing::PartialCommand>();
    partial->SetDefaultOutputFormatter("simple");
    root->SubNamespace("refusing")->RegisterNamespaceNode(partial, "partial");
    throw Tindra::TindraException("This plug-in refuses to register.");
}
