// The plug-in's entry point: ostrel calls it once, after loading this library, with the root
// of its command tree.
#include <memory>

#include "ResourceGetCommand.h"
#include "tindra/autocli/tree/Namespace.h"

namespace {

// Other plug-ins may share these namespaces; the first one to create them describes them.
// Descriptor plug-ins accept a top-level namespace declared again only with the same
// description, so "system" is described exactly as the bundled descriptors describe it.
std::shared_ptr<Tindra::AutoCli::NamespaceNode> SharedNamespace(
    std::shared_ptr<Tindra::AutoCli::NamespaceNode> const& parent, char const* name,
    char const* description) {
    auto node = parent->SubNamespace(name);
    if (node->GetDescription().empty()) {
        node->SetDescription(description);
    }
    return node;
}

}  // namespace

extern "C" void AutoCli_RegisterNamespaces(std::shared_ptr<Tindra::AutoCli::Namespace> root) {
    auto system = SharedNamespace(root, "system", "Inspect the operating system of this host.");
    auto resource = SharedNamespace(system, "resource", "Memory, load and process limits.");
    resource->RegisterNamespaceNode(ResourceExample::ResourceGetCommand::New(), "get");
}
