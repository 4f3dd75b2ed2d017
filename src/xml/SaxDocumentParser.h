#ifndef TINDRA_SRC_XML_SAXDOCUMENTPARSER_H
#define TINDRA_SRC_XML_SAXDOCUMENTPARSER_H

#include <libxml/parser.h>

#include <cstddef>
#include <exception>
#include <memory>
#include <string>

#include "xml/NodeEventSink.h"

namespace Tindra {
namespace AutoCli {

// Parses a document exactly as the tree reader parses the same text (same options, same
// well-formedness verdict), but hands the nodes to a sink instead of building them, so no tree
// is ever built, and takes the text piece by piece as it arrives, so the whole text need not be
// held either. Where the tree builder itself stops early (a text node over the parser's size
// limit) the nodes end there too, the text cut where the parser's pieces of it end. Diagnostics
// are not printed.
class SaxDocumentParser {
public:
    explicit SaxDocumentParser(NodeEventSink& sink) : sink(sink) {}
    SaxDocumentParser(SaxDocumentParser const&) = delete;
    SaxDocumentParser& operator=(SaxDocumentParser const&) = delete;

    // The next piece of the text. Never throws: after a fault the rest is passed over.
    void Feed(char const* data, size_t length);
    // True when the text fed was a well-formed document. An exception thrown by the sink on
    // the way is thrown here.
    bool Finish();

private:
    struct ContextDeleter {
        void operator()(xmlParserCtxt* context) const;
    };

    static SaxDocumentParser* ForMainDocument(void* context);
    static void OnStartElement(void* context, xmlChar const* localName, xmlChar const* prefix,
                               xmlChar const* uri, int namespaceCount, xmlChar const** namespaces,
                               int attributeCount, int defaultedCount, xmlChar const** attributes);
    static void OnEndElement(void* context, xmlChar const* localName, xmlChar const* prefix,
                             xmlChar const* uri);
    static void OnCharacters(void* context, xmlChar const* text, int length);
    static void OnCdataBlock(void* context, xmlChar const* text, int length);
    static void OnComment(void* context, xmlChar const* text);
    static void OnProcessingInstruction(void* context, xmlChar const* target, xmlChar const* data);
    static void OnReference(void* context, xmlChar const* name);
    static void OnError(void* context, xmlError* error);

    bool Start();
    void Abandon();
    void PushChunks(char const* data, size_t length);
    void InstallHandlers(xmlSAXHandler& handler);
    void StartElement(xmlChar const* localName, xmlChar const* prefix, xmlChar const* uri,
                      int attributeCount, xmlChar const** attributes);
    void AddCharacters(xmlChar const* text, int length);
    void StopAsTreeBuilderDoes();
    void RefuseAsTooDeep();
    template <typename Action>
    void Guarded(Action action);

    NodeEventSink& sink;
    std::unique_ptr<xmlParserCtxt, ContextDeleter> owner;
    xmlParserCtxt* context = nullptr;
    size_t fedLength = 0;
    unsigned openElements = 0;
    bool abandoned = false;     // too long to read, or no parser to read it
    size_t textNodeLength = 0;  // of the text node being reported, 0 between text nodes
    bool rootClosed = false;
    bool endedAtZeroByte = false;  // where the tree reader ends the text too
    std::exception_ptr sinkFailure;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
