// Descriptor files are read from the plug-in directories. A file may be rejected only with the
// library's own exception, and a file that loads must register (or be refused) the same way
// every time it is read.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
#include <string>

#include "fuzz/FuzzSupport.h"
#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/plugins/XmlPlugin.h"
#include "tindra/autocli/tree/RootNamespace.h"
#include "tindra/callspec/Input.h"

namespace {

using namespace Tindra::AutoCli;

std::string const& DescriptorPath() {
    static std::string const path =
        "/tmp/tindra-fuzz-descriptor-" + std::to_string(getpid()) + ".xml";
    return path;
}

void WriteDescriptor(std::string const& text) {
    std::FILE* file = std::fopen(DescriptorPath().c_str(), "wb");
    Fuzz::Require(file != nullptr, "the scratch file can be written", DescriptorPath());
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
}

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
    auto output = command->GetOutputSpecInternal()->GetRootObject();
    auto input = Tindra::CallSpec::Input::New();
    return text + " output " + Fuzz::Describe(output) + " execute " +
           command->SubstituteInput(input, false) + " stdin " +
           command->SubstituteInput(input, true);
}

// The registrations the file gives and what registering them twice says, or the message the
// file is rejected with.
std::string Load(std::string const& content) {
    WriteDescriptor(content);
    auto plugin = XmlPlugin::New(DescriptorPath());
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

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    Fuzz::SilenceXmlDiagnostics();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size) {
    std::string const content(reinterpret_cast<char const*>(data), size);
    std::string const loaded = Load(content);
    Fuzz::Require(loaded == Load(content), "reading a file again gives the same", loaded);
    std::remove(DescriptorPath().c_str());
    return 0;
}
