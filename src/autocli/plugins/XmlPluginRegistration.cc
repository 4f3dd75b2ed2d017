// The two passes that hang a descriptor's namespaces and commands into the tree.
#include "tindra/TindraException.h"
#include "tindra/autocli/plugins/XmlPlugin.h"

namespace Tindra {
namespace AutoCli {

// Validates every registration against the tree before registering any, so that a conflict
// with another plug-in leaves the tree untouched. Each path is taken apart once, for both.
void XmlPlugin::RegisterNamespaces(std::shared_ptr<Namespace> root) {
    std::vector<PathNames> names;
    names.reserve(pending.size());
    for (Registration const& registration : pending) {
        names.push_back(SplitRegistrationPath(registration.first));
        CheckRegistration(*root, registration, names.back());
    }
    for (size_t i = 0; i < pending.size(); ++i) {
        Register(*root, pending[i], names[i]);
    }
}

XmlPlugin::PathNames XmlPlugin::SplitRegistrationPath(std::string const& path) {
    PathNames names;
    names.parent = SplitPath(path);
    names.name = TakeLastName(names.parent);
    return names;
}

namespace {

// The node at path below root, or nothing where resolving it would fail: the same answer as
// ResolveNode with its failures ignored, without raising one exception per missing parent.
std::shared_ptr<NamespaceNode> FindInTree(Namespace& root, std::list<std::string> const& path) {
    std::shared_ptr<NamespaceNode> node = root.GetThis();
    for (std::string const& name : path) {
        if (node->GetType() == NamespaceNode::COMMAND_NODE) {
            return nullptr;
        }
        node = node->GetNamespaceNode(name);
        if (!node) {
            return nullptr;
        }
    }
    return node;
}

// A top-level namespace may be declared by several plug-ins if they describe it alike.
bool IsSharedTopLevelNamespace(NamespaceNode& parent, NamespaceNode& existing,
                               NamespaceNode& node) {
    return parent.GetType() == NamespaceNode::ROOT_NAMESPACE_NODE &&
           existing.GetType() == NamespaceNode::NAMESPACE_NODE &&
           node.GetType() == NamespaceNode::NAMESPACE_NODE;
}

}  // namespace

void XmlPlugin::CheckRegistration(Namespace& root, Registration const& registration,
                                  PathNames const& names) {
    auto const& [path, node] = registration;
    if (path.empty()) {
        throw TindraException("Invalid NULL registration found in XML plugin: " + fileName +
                              " all namespaces and commands must have a valid 'path' field");
    }
    if (!node) {
        throw TindraException("Invalid null node: " + path);
    }
    std::shared_ptr<NamespaceNode> const parent = FindInTree(root, names.parent);
    if (!parent) {
        return;  // typically declared earlier in this file, so in the tree only in pass two
    }
    std::shared_ptr<NamespaceNode> const existing = parent->GetNamespaceNode(names.name);
    if (!existing) {
        return;
    }
    if (!IsSharedTopLevelNamespace(*parent, *existing, *node)) {
        throw TindraException("Ostrel path is already registered: " + path);
    }
    if (existing->GetDescription() != node->GetDescription()) {
        throw TindraException("Duplicate top-level namespaces must have the same description: " +
                              path);
    }
}

// The resolver walks the parent's names and puts them back.
void XmlPlugin::Register(Namespace& root, Registration const& registration, PathNames& names) {
    auto const& node = registration.second;
    std::string const& name = names.name;
    std::shared_ptr<NamespaceNode> parent = root.ResolveNode(names.parent);
    if (!parent) {
        parent = root.GetThis();
    }
    if (parent->GetType() == NamespaceNode::ROOT_NAMESPACE_NODE) {
        std::shared_ptr<NamespaceNode> const existing = parent->GetNamespaceNode(name);
        if (existing && IsSharedTopLevelNamespace(*parent, *existing, *node) &&
            existing->GetDescription() == node->GetDescription()) {
            return;
        }
    }
    parent->RegisterNamespaceNode(node, name);
}

std::string XmlPlugin::TakeLastName(std::list<std::string>& names) {
    if (names.empty()) {
        return std::string();
    }
    std::string last = std::move(names.back());
    names.pop_back();
    return last;
}

}  // namespace AutoCli
}  // namespace Tindra
