#ifndef TINDRA_SRC_XML_XMLDOCUMENT_H
#define TINDRA_SRC_XML_XMLDOCUMENT_H

// Internal: ownership of a parsed libxml2 document, freed on every way out of the reader.

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <climits>
#include <memory>
#include <string_view>

namespace Tindra {
namespace AutoCli {

struct XmlDocumentDeleter {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};

using XmlDocument = std::unique_ptr<xmlDoc, XmlDocumentDeleter>;

// Parses a document held in memory. The URL names it in the parser's diagnostics, which read
// as they would for the file of that name. Empty when the text is not well-formed.
inline XmlDocument ParseXmlDocument(std::string_view text, char const* url, int options) {
    if (text.size() > static_cast<size_t>(INT_MAX)) {
        return XmlDocument();
    }
    return XmlDocument(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), url, nullptr, options));
}

// Parses a document pulled from read(source, buffer, size), which answers like read(2). Empty
// when the text is not well-formed or cannot be read.
inline XmlDocument ParseXmlDocument(xmlInputReadCallback read, void* source, char const* url,
                                    int options) {
    return XmlDocument(xmlReadIO(read, nullptr, source, url, nullptr, options));
}

}  // namespace AutoCli
}  // namespace Tindra

#endif
