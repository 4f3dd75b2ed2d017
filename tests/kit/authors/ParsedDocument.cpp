#include "ParsedDocument.h"

#include <libxml/parser.h>

ParsedDocument Parse(std::string const& text) {
    return ParsedDocument(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), "kit.xml", nullptr, 0),
        xmlFreeDoc);
}
