#ifndef TINDRA_SRC_XML_OUTPUTDOCUMENTPARSER_H
#define TINDRA_SRC_XML_OUTPUTDOCUMENTPARSER_H

#include <libxml/parser.h>

#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "xml/OutputValueBuilder.h"

namespace Tindra {
namespace AutoCli {

// Parses a command output document piece by piece as it arrives, with libxml2's push parser and
// its own tree builder for elements, attributes, entity references and processing instructions
// (the same nodes as the tree reader's), and shows each to the value builder as soon as libxml2
// has built it. Text, CDATA and comments go to the builder as they are when it reads them (a
// scalar's) and are passed over elsewhere. The builder frees what it has read, so the tree never
// holds more than the open elements and their latest children.
//
// The verdict is the tree reader's over the whole text (xmlReadMemory, no options), with one
// difference of the push parser made good and one rule of this reader:
// - the tree reader takes a zero character after the root element for the end of the text;
// - a text or CDATA node longer than libxml2's limit for one text node refuses the document as
//   not well-formed, however libxml2 happened to split it (the tree reader keeps some such
//   nodes whole, cuts others short without failing, and refuses long CDATA sections).
// libxml2 is used through its public interface only: the SAX2 handlers, the push parser, and
// the context's fields that its own examples read (_private, myDoc, wellFormed).
class OutputDocumentParser {
public:
    explicit OutputDocumentParser(OutputValueBuilder& builder) : builder(builder) {}
    OutputDocumentParser(OutputDocumentParser const&) = delete;
    OutputDocumentParser& operator=(OutputDocumentParser const&) = delete;

    // The next piece of the text. Never throws.
    void Feed(char const* data, size_t length);
    // True when the text was a well-formed document. An exception other than the value
    // builder's own errors, thrown on the way, is thrown here.
    bool Finish();

private:
    struct ContextDeleter {
        void operator()(xmlParserCtxt* context) const;
    };

    static OutputDocumentParser* ForMainDocument(void* context);
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

    void TakeUnits(char const* data, size_t length);
    void TakeWholeUnits(char const* data, size_t length);
    void Push(char const* data, size_t length);
    bool Start();
    void BeforeOtherNode();
    void FlushCdata();
    void ShowAddedNode(xmlNode* lastBefore);
    void Refuse();
    template <typename Action>
    void Guarded(Action action);

    OutputValueBuilder& builder;
    std::unique_ptr<xmlParserCtxt, ContextDeleter> context;
    std::string head;      // the first bytes, until the width of a character unit is known
    size_t unitWidth = 0;  // bytes of the encoding's zero character; 0 until known
    std::string partUnit;  // bytes of a unit not yet complete
    size_t fedLength = 0;
    bool tooLong = false;
    bool endedAtZero = false;
    bool refused = false;
    bool rootClosed = false;
    std::vector<xmlNode*> openElements;
    size_t textLength = 0;   // of the text node being built
    size_t cdataLength = 0;  // of the CDATA node being built
    bool cdataPending = false;
    std::string cdata;  // outside a scalar: the CDATA node, made when another node follows
    std::exception_ptr failure;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
