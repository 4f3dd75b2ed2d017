#include "tindra/autocli/tree/NamespaceNode.h"

namespace Tindra {
namespace AutoCli {

namespace {

bool IsLowerOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}

}  // namespace

// The language of "([a-z0-9]+[A-Z0-9]{0,1})+", matched by hand because every node of every
// descriptor is checked: letters and digits, starting lower-case or with a digit, and no two
// capitals in a row (each capital closes a run of lower-case letters or digits).
bool AutoCli_IsValidName(std::string const& name) {
    if (name.empty() || !IsLowerOrDigit(name[0])) {
        return false;
    }
    for (size_t i = 1; i < name.size(); ++i) {
        bool const valid = IsLowerOrDigit(name[i]) || (IsUpper(name[i]) && !IsUpper(name[i - 1]));
        if (!valid) {
            return false;
        }
    }
    return true;
}

}  // namespace AutoCli
}  // namespace Tindra
