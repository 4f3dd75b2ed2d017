#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_XMLSTREAMREADER_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_XMLSTREAMREADER_H

#include <libxml/xmlreader.h>

#include <memory>
#include <string>

namespace Tindra {
namespace AutoCli {

// Thrown by XmlStreamReader::Read once the parser has found the document not well-formed.
struct MalformedDocument {};

// Forward-only reader over a document in memory. Only the nodes around the current one exist,
// so memory stays small whatever the size of the document. Parser diagnostics are kept quiet:
// a malformed document is reported to the caller, not to the terminal.
class XmlStreamReader {
public:
    // The text must outlive the reader; it is not copied.
    explicit XmlStreamReader(std::string const& text);

    // Moves to the next node in document order; false at the end of the document.
    bool Read();

    // The current node; valid only until the next call of Read.
    xmlNode* Node() const { return xmlTextReaderCurrentNode(reader.get()); }
    int Depth() const { return xmlTextReaderDepth(reader.get()); }
    bool IsElementStart() const;
    // On the start tag of an element that has an end tag (and so possibly children).
    bool IsElementWithContent() const;
    bool IsEndElementAt(int depth) const;

    // On the start of an element with content: moves to its end. Otherwise stays.
    void SkipSubtree();

private:
    struct ReaderDeleter {
        void operator()(xmlTextReader* r) const { xmlFreeTextReader(r); }
    };

    static void OnParserError(void* context, xmlError* error);

    std::unique_ptr<xmlTextReader, ReaderDeleter> reader;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
