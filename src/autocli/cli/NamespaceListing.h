#ifndef TINDRA_SRC_AUTOCLI_CLI_NAMESPACELISTING_H
#define TINDRA_SRC_AUTOCLI_CLI_NAMESPACELISTING_H

#include <memory>
#include <string>

#include "tindra/autocli/tree/NamespaceNode.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// The "OstrelCommandPrint" structure that lists the children of a node for the help
// formatter of namespaces.
std::shared_ptr<MetaObj::MetaStruct> BuildNamespaceListing(std::string const& dispatcherName,
                                                           std::shared_ptr<NamespaceNode> node);

}  // namespace AutoCli
}  // namespace Tindra

#endif
