// One command, demo answer, returning a string; built with REFUSE_REGISTRATION it places that
// command and then fails, with THROW_STANDARD or THROW_FOREIGN it fails at once in a type
// other than the library's own.
#include <stdexcept>

#include "../tree/ScriptedCommand.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/tree/Namespace.h"

extern "C" void AutoCli_RegisterNamespaces(std::shared_ptr<Tindra::AutoCli::Namespace> root) {
#if defined(THROW_STANDARD)
    throw std::runtime_error("no device table");
#elif defined(THROW_FOREIGN)
    throw 42;
#endif
    auto answer = Tindra::Testing::ScriptedCommand::New();
    answer->action = [](auto&, Tindra::CallSpec::Output& output) {
        output.SetRootObject(Tindra::MetaObj::MetaString::New("forty-two"));
    };
    root->SubNamespace("demo")->RegisterNamespaceNode(answer, "answer");
#ifdef REFUSE_REGISTRATION
    throw Tindra::TindraException("the device table is missing");
#endif
}
