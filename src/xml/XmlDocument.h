#ifndef TINDRA_SRC_XML_XMLDOCUMENT_H
#define TINDRA_SRC_XML_XMLDOCUMENT_H

// Internal: ownership of a parsed libxml2 document, freed on every way out of the reader.

#include <libxml/tree.h>

#include <memory>

namespace Tindra {
namespace AutoCli {

struct XmlDocumentDeleter {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};

using XmlDocument = std::unique_ptr<xmlDoc, XmlDocumentDeleter>;

}  // namespace AutoCli
}  // namespace Tindra

#endif
