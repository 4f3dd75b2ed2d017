// Name tests on descriptor nodes, shared by the descriptor readers.
#include <cstring>

#include "autocli/extension/ValueGrammar.h"
#include "autocli/plugins/DescriptorReaders.h"

namespace Tindra {
namespace AutoCli {

bool HasTag(xmlNode const* node, char const* tag) {
    return std::strcmp(GrammarNodeName(node), tag) == 0;
}

std::string NodeContent(xmlNode const* node) {
    return node->content != nullptr ? reinterpret_cast<char const*>(node->content) : "";
}

}  // namespace AutoCli
}  // namespace Tindra
