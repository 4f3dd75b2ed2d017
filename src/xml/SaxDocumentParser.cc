#include "xml/SaxDocumentParser.h"

#include <libxml/SAX2.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <climits>
#include <memory>

#include "xml/ElementAttributes.h"

namespace Tindra {
namespace AutoCli {

namespace {

// The name libxml2 gives a document read from a command's standard output.
char const* const kDocumentName = "STDOUT";
// How much text the parser is handed at once.
size_t const kSliceLength = 64 * 1024;

char const* Text(xmlChar const* text) {
    return reinterpret_cast<char const*>(text);
}

}  // namespace

void SaxDocumentParser::ContextDeleter::operator()(xmlParserCtxt* parserContext) const {
    // Only the document type declaration was built into it.
    xmlFreeDoc(parserContext->myDoc);
    parserContext->myDoc = nullptr;
    xmlFreeParserCtxt(parserContext);
}

void SaxDocumentParser::Feed(char const* data, size_t length) {
    if (length == 0 || abandoned) {
        return;
    }
    fedLength += length;
    // The tree reader takes a positive int length and refuses longer texts the same way.
    if (fedLength > static_cast<size_t>(INT_MAX)) {
        Abandon();
        return;
    }
    if (!owner && !Start()) {
        return;
    }
    if (!sinkFailure) {
        PushChunks(data, length);
    }
}

bool SaxDocumentParser::Finish() {
    if (!owner) {
        return false;  // nothing fed, or abandoned
    }
    if (!sinkFailure) {
        xmlParseChunk(context, nullptr, 0, 1);
    }
    bool wellFormed = context->wellFormed != 0 || endedAtZeroByte;
    if (wellFormed && !sinkFailure) {
        Guarded([&] { sink.DocumentEnd(); });
    }
    owner.reset();
    context = nullptr;
    if (sinkFailure) {
        std::rethrow_exception(sinkFailure);
    }
    return wellFormed;
}

bool SaxDocumentParser::Start() {
    // A push parser given no bytes yet: it detects the encoding from the first ones it gets.
    owner.reset(xmlCreatePushParserCtxt(nullptr, nullptr, nullptr, 0, nullptr));
    if (!owner) {
        Abandon();
        return false;
    }
    context = owner.get();
    if (context->input != nullptr && context->input->filename == nullptr) {
        context->input->filename =
            reinterpret_cast<char*>(xmlStrdup(reinterpret_cast<xmlChar const*>(kDocumentName)));
    }
    xmlCtxtUseOptions(context, 0);
    InstallHandlers(*context->sax);
    context->_private = this;
    textNodeLength = 0;
    openElements = 0;
    rootClosed = false;
    endedAtZeroByte = false;
    return true;
}

// The rest of the text is passed over and the text counts as not well-formed.
void SaxDocumentParser::Abandon() {
    abandoned = true;
    owner.reset();
    context = nullptr;
}

// The parser copies what it is given before it parses: small slices keep that copy small.
void SaxDocumentParser::PushChunks(char const* data, size_t length) {
    while (length > 0 && !sinkFailure) {
        size_t const slice = std::min(length, kSliceLength);
        xmlParseChunk(context, data, static_cast<int>(slice), 0);
        data += slice;
        length -= slice;
    }
}

// Everything about the document type declaration keeps the default handlers, so entities and
// attribute defaults are recorded exactly as for the tree.
void SaxDocumentParser::InstallHandlers(xmlSAXHandler& handler) {
    handler.startElementNs = &SaxDocumentParser::OnStartElement;
    handler.endElementNs = &SaxDocumentParser::OnEndElement;
    handler.characters = &SaxDocumentParser::OnCharacters;
    // The same handler for both, as in the tree builder: white space is never dropped.
    handler.ignorableWhitespace = &SaxDocumentParser::OnCharacters;
    handler.cdataBlock = &SaxDocumentParser::OnCdataBlock;
    handler.comment = &SaxDocumentParser::OnComment;
    handler.processingInstruction = &SaxDocumentParser::OnProcessingInstruction;
    handler.reference = &SaxDocumentParser::OnReference;
    handler.serror = &SaxDocumentParser::OnError;
}

// The parser also reports the content of an entity, on first use, through a parser of its own;
// that content belongs to the entity's declaration and is built as the tree builder would.
SaxDocumentParser* SaxDocumentParser::ForMainDocument(void* parserContext) {
    auto* reported = static_cast<xmlParserCtxt*>(parserContext);
    auto* self = static_cast<SaxDocumentParser*>(reported->_private);
    if (self == nullptr || self->context != reported || reported->inSubset != 0) {
        return nullptr;
    }
    return self;
}

template <typename Action>
void SaxDocumentParser::Guarded(Action action) {
    // No exception may cross the parser's C frames: keep it and stop the parser.
    try {
        action();
    } catch (...) {
        sinkFailure = std::current_exception();
        xmlStopParser(context);
    }
}

void SaxDocumentParser::OnStartElement(void* parserContext, xmlChar const* localName,
                                       xmlChar const* prefix, xmlChar const* uri,
                                       int namespaceCount, xmlChar const** namespaces,
                                       int attributeCount, int defaultedCount,
                                       xmlChar const** attributes) {
    SaxDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr) {
        xmlSAX2StartElementNs(parserContext, localName, prefix, uri, namespaceCount, namespaces,
                              attributeCount, defaultedCount, attributes);
        return;
    }
    if (self->openElements > xmlParserMaxDepth) {
        self->RefuseAsTooDeep();
        return;
    }
    ++self->openElements;
    self->Guarded([&] { self->StartElement(localName, prefix, uri, attributeCount, attributes); });
}

void SaxDocumentParser::StartElement(xmlChar const* localName, xmlChar const* prefix,
                                     xmlChar const* uri, int attributeCount,
                                     xmlChar const** attributes) {
    textNodeLength = 0;
    // The tree keeps an unbound prefix as part of the element's name.
    std::string qualified;
    char const* name = Text(localName);
    if (prefix != nullptr && uri == nullptr) {
        qualified = std::string(Text(prefix)) + ":" + name;
        name = qualified.c_str();
    }
    ElementAttributes elementAttributes(context, name, attributeCount, attributes);
    sink.ElementStart(name, elementAttributes);
}

void SaxDocumentParser::OnEndElement(void* parserContext, xmlChar const* localName,
                                     xmlChar const* prefix, xmlChar const* uri) {
    SaxDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr) {
        xmlSAX2EndElementNs(parserContext, localName, prefix, uri);
        return;
    }
    self->textNodeLength = 0;
    --self->openElements;
    self->rootClosed = self->openElements == 0;
    self->Guarded([&] { self->sink.ElementEnd(); });
}

void SaxDocumentParser::OnCharacters(void* parserContext, xmlChar const* text, int length) {
    SaxDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr) {
        xmlSAX2Characters(parserContext, text, length);
        return;
    }
    self->AddCharacters(text, length);
}

void SaxDocumentParser::AddCharacters(xmlChar const* text, int length) {
    // The tree builder refuses to grow one text node past the parser's text limit.
    size_t const added = static_cast<size_t>(length);
    if (textNodeLength > 0 && textNodeLength + added > XML_MAX_TEXT_LENGTH) {
        StopAsTreeBuilderDoes();
        return;
    }
    textNodeLength += added;
    Guarded([&] { sink.Characters(Text(text), added); });
}

void SaxDocumentParser::OnCdataBlock(void* parserContext, xmlChar const* text, int length) {
    SaxDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr) {
        xmlSAX2CDataBlock(parserContext, text, length);
        return;
    }
    self->textNodeLength = 0;
    self->Guarded([&] { self->sink.CdataBlock(Text(text), static_cast<size_t>(length)); });
}

void SaxDocumentParser::OnComment(void* parserContext, xmlChar const* text) {
    SaxDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr) {
        xmlSAX2Comment(parserContext, text);
        return;
    }
    self->textNodeLength = 0;
    self->Guarded([&] { self->sink.Comment(Text(text)); });
}

void SaxDocumentParser::OnProcessingInstruction(void* parserContext, xmlChar const* target,
                                                xmlChar const* data) {
    SaxDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr) {
        xmlSAX2ProcessingInstruction(parserContext, target, data);
        return;
    }
    self->textNodeLength = 0;
    self->Guarded([&] { self->sink.OtherNode(Text(target)); });
}

void SaxDocumentParser::OnReference(void* parserContext, xmlChar const* name) {
    SaxDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr) {
        xmlSAX2Reference(parserContext, name);
        return;
    }
    self->textNodeLength = 0;
    self->Guarded([&] { self->sink.OtherNode(Text(name)); });
}

// What the tree builder does when it refuses to grow a text node: no more nodes are reported
// and the parser ends, leaving the document as far as it was built.
void SaxDocumentParser::StopAsTreeBuilderDoes() {
    context->errNo = XML_ERR_NO_MEMORY;
    context->instate = XML_PARSER_EOF;
    context->disableSAX = 1;
}

// Reading the whole text at once, the parser refuses an element nested deeper than its limit,
// and the document with it; reading piece by piece it does not check.
void SaxDocumentParser::RefuseAsTooDeep() {
    xmlStopParser(context);
    context->wellFormed = 0;
}

// Diagnostics are dropped: a malformed document is the caller's to report, not the parser's.
// One is not a fault for the tree reader: it takes a zero byte after the root element for the
// end of the text, where the piecewise parser calls it extra content.
void SaxDocumentParser::OnError(void* parserContext, xmlError* error) {
    SaxDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr || error == nullptr || error->code != XML_ERR_DOCUMENT_END) {
        return;
    }
    xmlParserInput const* input = self->context->input;
    bool const atZeroByte =
        input != nullptr && input->cur != nullptr && input->cur < input->end && *input->cur == 0;
    // The flag is cleared only after this report, so it still says whether anything was wrong
    // before.
    if (atZeroByte && self->rootClosed && self->context->wellFormed != 0) {
        self->endedAtZeroByte = true;
    }
}

}  // namespace AutoCli
}  // namespace Tindra
