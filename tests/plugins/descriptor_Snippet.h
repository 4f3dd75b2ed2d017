#ifndef TINDRA_TESTS_PLUGINS_DESCRIPTOR_SNIPPET_H
#define TINDRA_TESTS_PLUGINS_DESCRIPTOR_SNIPPET_H

#include <libxml/parser.h>

#include <stdexcept>
#include <string>

#include "autocli/plugins/XmlDocument.h"

namespace DescriptorTest {

// A piece of descriptor parsed as the plug-in parses files; Root() is its top element.
class Snippet {
public:
    explicit Snippet(std::string const& xml)
        : document(xmlReadMemory(xml.data(), static_cast<int>(xml.size()), "snippet", nullptr, 0)) {
        if (!document) {
            throw std::invalid_argument("test snippet is not well-formed: " + xml);
        }
    }
    xmlNode* Root() const { return xmlDocGetRootElement(document.get()); }

private:
    Tindra::AutoCli::XmlDocument document;
};

}  // namespace DescriptorTest

#endif
