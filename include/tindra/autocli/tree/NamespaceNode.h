#ifndef TINDRA_AUTOCLI_TREE_NAMESPACENODE_H
#define TINDRA_AUTOCLI_TREE_NAMESPACENODE_H

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tindra/Export.h"

namespace Tindra {
namespace AutoCli {

class Dispatcher;

// Node names: groups of lower-case letters or digits, each closed by at most one capital or digit.
TINDRA_EXPORT bool AutoCli_IsValidName(std::string const& name);

// A node of the namespace tree: the root, a namespace or a command.
class TINDRA_EXPORT NamespaceNode : public std::enable_shared_from_this<NamespaceNode> {
public:
    static constexpr int ROOT_NAMESPACE_NODE = 0;
    static constexpr int NAMESPACE_NODE = 1;
    static constexpr int COMMAND_NODE = 2;

    NamespaceNode() = default;
    NamespaceNode(NamespaceNode const&) = delete;
    NamespaceNode& operator=(NamespaceNode const&) = delete;
    virtual ~NamespaceNode() = default;

    virtual std::shared_ptr<NamespaceNode> GetThis() = 0;
    virtual int GetType() = 0;
    virtual std::list<std::string> GetPath();
    virtual std::string GetPathString(char separator);
    virtual bool HasNamespaceNode(std::string const& name);
    virtual std::vector<std::string> GetNamespaceNodeNames();
    virtual std::vector<std::shared_ptr<NamespaceNode>> GetNamespaceNodes();
    virtual std::shared_ptr<NamespaceNode> GetNamespaceNode(std::string const& name);
    virtual void RegisterNamespaceNode(std::shared_ptr<NamespaceNode> node, std::string name);
    virtual void RegisterNamespaceNode(std::shared_ptr<NamespaceNode> node, char const* name);
    virtual std::shared_ptr<NamespaceNode> ResolveNode(std::list<std::string>& path);
    virtual std::shared_ptr<NamespaceNode> SubNamespace(std::string const& name);
    virtual Dispatcher* GetDispatcher() = 0;
    virtual void SetParent(std::shared_ptr<NamespaceNode> parent) = 0;
    virtual std::shared_ptr<NamespaceNode> GetParent() = 0;

    std::string const& GetName() const { return name; }
    void SetName(std::string const& newName);
    std::string const& GetDescription() const { return description; }
    void SetDescription(std::string text) { description = std::move(text); }
    void SetDescription(char const* text) { description = text; }

private:
    std::string name;
    std::string description;
    std::map<std::string, std::shared_ptr<NamespaceNode>> children;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
