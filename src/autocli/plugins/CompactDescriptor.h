#ifndef TINDRA_SRC_AUTOCLI_PLUGINS_COMPACTDESCRIPTOR_H
#define TINDRA_SRC_AUTOCLI_PLUGINS_COMPACTDESCRIPTOR_H

#include <string>

#include "xml/CompactTree.h"

namespace Tindra {
namespace AutoCli {

// Reads a descriptor file into a compact copy of its element tree, which costs a fraction of
// the parser's own tree. Succeeds only where the copy is exactly that tree and the parser has
// nothing to report; otherwise (false) the caller reads the file with the tree reader, which
// prints the parser's diagnostics and handles the rare rest.
bool ReadCompactDescriptor(std::string const& fileName, CompactTree& tree);

}  // namespace AutoCli
}  // namespace Tindra

#endif
