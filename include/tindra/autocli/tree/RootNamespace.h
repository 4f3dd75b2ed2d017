#ifndef TINDRA_AUTOCLI_TREE_ROOTNAMESPACE_H
#define TINDRA_AUTOCLI_TREE_ROOTNAMESPACE_H

#include "tindra/Export.h"
#include "tindra/autocli/tree/Namespace.h"

namespace Tindra {
namespace AutoCli {

// The top of the tree; it knows the dispatcher that owns it and never has a parent.
class TINDRA_EXPORT RootNamespace : public Namespace {
public:
    explicit RootNamespace(Dispatcher* dispatcher) : dispatcher(dispatcher) {}
    static std::shared_ptr<RootNamespace> New(Dispatcher* dispatcher);

    std::shared_ptr<NamespaceNode> GetThis() override;
    int GetType() override { return ROOT_NAMESPACE_NODE; }
    std::list<std::string> GetPath() override { return {}; }
    std::string GetPathString(char) override { return {}; }
    Dispatcher* GetDispatcher() override { return dispatcher; }
    std::shared_ptr<NamespaceNode> GetParent() override { return nullptr; }
    void SetParent(std::shared_ptr<NamespaceNode> parent) override;

private:
    Dispatcher* dispatcher;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
