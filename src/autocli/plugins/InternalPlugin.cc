#include "tindra/autocli/plugins/InternalPlugin.h"

#include "tindra/autocli/formatters/CommandHelpFormatter.h"
#include "tindra/autocli/formatters/JsonFormatter.h"
#include "tindra/autocli/formatters/PythonFormatter.h"
#include "tindra/autocli/formatters/SimpleFormatter.h"
#include "tindra/autocli/formatters/TableFormatter.h"
#include "tindra/autocli/formatters/XmlFormatter.h"
#include "tindra/autocli/plugins/CommandList.h"

namespace Tindra {
namespace AutoCli {

std::shared_ptr<InternalPlugin> InternalPlugin::New() {
    return std::make_shared<InternalPlugin>();
}

void InternalPlugin::Initialize() {
    formatters.reserve(6);
    formatters.push_back(std::make_shared<TableFormatter>());
    formatters.push_back(std::make_shared<SimpleFormatter>());
    formatters.push_back(std::make_shared<XmlFormatter>());
    formatters.push_back(std::make_shared<PythonFormatter>());
    formatters.push_back(std::make_shared<JsonFormatter>());
    formatters.push_back(std::make_shared<CommandHelpFormatter>());
}

std::string const& InternalPlugin::GetName() const {
    static std::string const name = "Internal";
    return name;
}

void InternalPlugin::RegisterNamespaces(std::shared_ptr<Namespace> root) {
    auto system = Namespace::New();
    system->SetDescription(
        "Commands that operate on the ostrel system itself allowing users to get additional "
        "information.");
    auto commands = Namespace::New();
    commands->SetDescription("Operations to get information about commands.");
    commands->RegisterNamespaceNode(CommandList::New(root), "list");
    system->RegisterNamespaceNode(commands, "command");
    root->RegisterNamespaceNode(system, "ostrel");
}

bool InternalPlugin::HasFormatter(std::string const& name) {
    return GetFormatter(name) != nullptr;
}

std::shared_ptr<Formatter> InternalPlugin::GetFormatter(std::string const& name) {
    for (auto const& formatter : formatters) {
        if (formatter->GetName() == name) {
            return formatter;
        }
    }
    return nullptr;
}

}  // namespace AutoCli
}  // namespace Tindra
