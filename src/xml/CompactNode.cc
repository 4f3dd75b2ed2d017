#include "xml/CompactNode.h"

#include <cstring>

namespace Tindra {
namespace AutoCli {

std::string XmlUtil_ExtractAttribute(CompactNode const* node, char const* name) {
    for (CompactAttribute const* attribute = node->firstAttribute; attribute != nullptr;
         attribute = attribute->next) {
        if (std::strcmp(attribute->name, name) == 0) {
            return attribute->value;
        }
    }
    return std::string();
}

std::string XmlUtil_ExtractAttribute(CompactNode const* node, std::string const& name) {
    return XmlUtil_ExtractAttribute(node, name.c_str());
}

}  // namespace AutoCli
}  // namespace Tindra
