#include "tindra/autocli/tree/Namespace.h"

#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

std::shared_ptr<Namespace> Namespace::New() {
    return std::make_shared<Namespace>();
}

std::shared_ptr<NamespaceNode> Namespace::GetThis() {
    return shared_from_this();
}

Dispatcher* Namespace::GetDispatcher() {
    auto parentNode = GetParent();
    if (!parentNode) {
        throw TindraException("Invalid state for namespace '" + GetName() +
                              "no parent has been set while attempting to get dispathcer "
                              "reference.");
    }
    return parentNode->GetDispatcher();
}

void Namespace::SetParent(std::shared_ptr<NamespaceNode> newParent) {
    parent = newParent;
}

std::shared_ptr<NamespaceNode> Namespace::GetParent() {
    return parent.lock();
}

}  // namespace AutoCli
}  // namespace Tindra
