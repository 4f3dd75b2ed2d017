#include "tindra/autocli/tree/RootNamespace.h"

#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

std::shared_ptr<RootNamespace> RootNamespace::New(Dispatcher* dispatcher) {
    return std::make_shared<RootNamespace>(dispatcher);
}

std::shared_ptr<NamespaceNode> RootNamespace::GetThis() {
    return shared_from_this();
}

void RootNamespace::SetParent(std::shared_ptr<NamespaceNode>) {
    throw TindraException("Error, Root namespace cannot be assigned a parent node");
}

}  // namespace AutoCli
}  // namespace Tindra
