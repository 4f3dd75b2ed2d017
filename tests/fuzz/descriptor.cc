// A descriptor file may be rejected only with the library's own exception, and a file that loads
// must register (or be refused) the same way every time it is read.
#include <unistd.h>

#include <fstream>
#include <map>

#include "fuzz/FuzzSupport.h"
#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/plugins/XmlPlugin.h"
#include "tindra/autocli/tree/RootNamespace.h"
#include "tindra/callspec/Input.h"

namespace {

using namespace Tindra::AutoCli;

std::string const kPath = "/tmp/tindra-fuzz-descriptor-" + std::to_string(getpid()) + ".xml";

// What a registration holds, as far as the readers filled it in.
std::string Describe(std::shared_ptr<NamespaceNode> const& node) {
    std::string text = std::to_string(node->GetType()) + " [" + node->GetDescription() + "]";
    auto command = std::dynamic_pointer_cast<ExtensionCommand>(node);
    if (!command) {
        return text;
    }
    auto const format = command->GetDefaultOutputFormatParameters();
    std::map<std::string, std::string> fields = format.GetParameters();
    fields.insert(command->GetMetaData().begin(), command->GetMetaData().end());
    text += " format " + format.GetFormatter();
    for (auto const& [name, value] : fields) {
        text += " " + name + "=" + value;
    }
    for (auto const& parameter : command->GetInputSpecInternal()->parameters) {
        auto constraint = parameter->GetConstraint();
        text += " " + parameter->GetName() + std::to_string(parameter->GetType()) +
                parameter->GetShortName() + parameter->GetDescription(false) +
                (constraint ? constraint->ToString() : "");
    }
    auto input = Tindra::CallSpec::Input::New();
    return text + " output " + Fuzz::Describe(command->GetOutputSpecInternal()->GetRootObject()) +
           " execute " + command->SubstituteInput(input, false) + " stdin " +
           command->SubstituteInput(input, true);
}

// The registrations the file gives and what registering them twice says, or the message the
// file is rejected with.
std::string Load(std::string const& content) {
    std::ofstream(kPath, std::ios::binary) << content;
    auto plugin = XmlPlugin::New(kPath);
    try {
        plugin->Initialize();
    } catch (Tindra::TindraException const& error) {
        return std::string("rejected: ") + error.what();
    }
    std::string text;
    for (auto const& [path, node] : plugin->GetPendingRegistrations()) {
        text += path + ": " + Describe(node) + "\n";
    }
    auto root = RootNamespace::New(nullptr);
    for (int round = 0; round < 2; ++round) {
        try {
            plugin->RegisterNamespaces(root);
            text += "registered\n";
        } catch (Tindra::TindraException const& error) {
            text += std::string("not registered: ") + error.what() + "\n";
        }
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size) {
    std::string const content(reinterpret_cast<char const*>(data), size);
    std::string const loaded = Load(content);
    Fuzz::Require(loaded == Load(content), "reading a file again gives the same", loaded);
    std::remove(kPath.c_str());
    return 0;
}
