#ifndef TINDRA_AUTOCLI_TREE_NAMESPACE_H
#define TINDRA_AUTOCLI_TREE_NAMESPACE_H

#include "tindra/Export.h"
#include "tindra/autocli/tree/NamespaceNode.h"

namespace Tindra {
namespace AutoCli {

// An inner node of the tree, holding namespaces and commands.
class TINDRA_EXPORT Namespace : public NamespaceNode {
public:
    static std::shared_ptr<Namespace> New();

    std::shared_ptr<NamespaceNode> GetThis() override;
    int GetType() override { return NAMESPACE_NODE; }
    Dispatcher* GetDispatcher() override;
    void SetParent(std::shared_ptr<NamespaceNode> parent) override;
    std::shared_ptr<NamespaceNode> GetParent() override;

private:
    std::weak_ptr<NamespaceNode> parent;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
