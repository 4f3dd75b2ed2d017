#include "tindra/autocli/tree/NamespaceNode.h"

#include "tindra/TindraException.h"
#include "tindra/autocli/tree/Namespace.h"

namespace Tindra {
namespace AutoCli {

void NamespaceNode::SetName(std::string const& newName) {
    if (!AutoCli_IsValidName(newName)) {
        throw TindraException("Invalid name for namespace '" + newName +
                              "', must be a name consisting of letters and numbers and must "
                              "conform to 'camel' casing.");
    }
    name = newName;
}

std::list<std::string> NamespaceNode::GetPath() {
    auto parent = GetParent();
    if (!parent) {
        throw TindraException("GetPath: Invalid state for Namespace Node with the name '" + name +
                              "' No parent node has been set");
    }
    auto path = parent->GetPath();
    path.push_back(name);
    return path;
}

std::string NamespaceNode::GetPathString(char separator) {
    auto parent = GetParent();
    if (!parent) {
        throw TindraException("GetPathString: Invalid state for Namespace Node with the name '" +
                              name + "' No parent node has been set");
    }
    auto path = parent->GetPathString(separator);
    if (!path.empty()) {
        path += separator;
    }
    return path + name;
}

bool NamespaceNode::HasNamespaceNode(std::string const& childName) {
    return children.count(childName) != 0;
}

std::vector<std::string> NamespaceNode::GetNamespaceNodeNames() {
    std::vector<std::string> names;
    names.reserve(children.size());
    for (auto const& child : children) {
        names.push_back(child.first);
    }
    return names;
}

std::vector<std::shared_ptr<NamespaceNode>> NamespaceNode::GetNamespaceNodes() {
    std::vector<std::shared_ptr<NamespaceNode>> nodes;
    nodes.reserve(children.size());
    for (auto const& child : children) {
        nodes.push_back(child.second);
    }
    return nodes;
}

std::shared_ptr<NamespaceNode> NamespaceNode::GetNamespaceNode(std::string const& childName) {
    auto found = children.find(childName);
    return found == children.end() ? nullptr : found->second;
}

void NamespaceNode::RegisterNamespaceNode(std::shared_ptr<NamespaceNode> node,
                                          std::string childName) {
    if (HasNamespaceNode(childName)) {
        throw TindraException("Duplicate registration in namespace " + GetPathString(' ') +
                              " attempt to register two objects with name " + childName);
    }
    if (!node) {
        throw TindraException("Null namespace node named '" + childName + "' passed to namespace " +
                              GetPathString(' '));
    }
    node->SetName(childName);
    node->SetParent(GetThis());
    children.emplace(std::move(childName), std::move(node));
}

void NamespaceNode::RegisterNamespaceNode(std::shared_ptr<NamespaceNode> node,
                                          char const* childName) {
    RegisterNamespaceNode(std::move(node), std::string(childName));
}

std::shared_ptr<NamespaceNode> NamespaceNode::ResolveNode(std::list<std::string>& path) {
    if (path.empty()) {
        return nullptr;
    }
    std::string word = std::move(path.front());
    path.pop_front();
    auto child = GetNamespaceNode(word);
    if (!child) {
        throw TindraException("Unable to find a command or namespace with the name '" + word +
                              "' in namespace " + GetPathString(' '));
    }
    auto result = path.empty() ? child : child->ResolveNode(path);
    path.push_front(std::move(word));
    return result;
}

std::shared_ptr<NamespaceNode> NamespaceNode::SubNamespace(std::string const& childName) {
    // Asked through HasNamespaceNode: a command answers false there, so it refuses the new
    // child at registration instead of at lookup.
    if (HasNamespaceNode(childName)) {
        return GetNamespaceNode(childName);
    }
    std::shared_ptr<NamespaceNode> created = Namespace::New();
    RegisterNamespaceNode(created, childName);
    return created;
}

}  // namespace AutoCli
}  // namespace Tindra
