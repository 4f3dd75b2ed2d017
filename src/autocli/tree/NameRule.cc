#include <boost/regex.hpp>

#include "tindra/autocli/tree/NamespaceNode.h"

namespace Tindra {
namespace AutoCli {

bool AutoCli_IsValidName(std::string const& name) {
    static boost::regex const pattern("([a-z0-9]+[A-Z0-9]{0,1})+");
    return boost::regex_match(name, pattern);
}

}  // namespace AutoCli
}  // namespace Tindra
