// One command, demo answer, returning a string; built with REFUSE_REGISTRATION it places that
// command and then fails, with THROW_STANDARD or THROW_FOREIGN it fails at once in a type
// other than the library's own.
#include <stdexcept>

#include "tindra/TindraException.h"
#include "tindra/autocli/tree/Command.h"
#include "tindra/autocli/tree/Namespace.h"
#include "tindra/metaobj/MetaString.h"

namespace {

using namespace Tindra;

class AnswerCommand : public AutoCli::Command {
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
        output->SetRootObject(MetaObj::MetaString::New("forty-two"));
    }
};

}  // namespace

extern "C" void AutoCli_RegisterNamespaces(std::shared_ptr<Tindra::AutoCli::Namespace> root) {
#if defined(THROW_STANDARD)
    throw std::runtime_error("no device table");
#elif defined(THROW_FOREIGN)
    throw 42;
#endif
    root->SubNamespace("demo")->RegisterNamespaceNode(std::make_shared<AnswerCommand>(), "answer");
#ifdef REFUSE_REGISTRATION
    throw Tindra::TindraException("the device table is missing");
#endif
}
