#include "xml/OutputDocumentParser.h"

#include <libxml/SAX2.h>
#include <libxml/encoding.h>

#include <algorithm>
#include <climits>
#include <cstring>

namespace Tindra {
namespace AutoCli {

namespace {

// The name libxml2 gives a document read from a command's standard output.
char const* const kDocumentName = "STDOUT";
// How much text the parser is handed at once: it copies what it is given before parsing.
size_t const kSliceLength = 64 * 1024;
// libxml2's limit for one text node without XML_PARSE_HUGE.
size_t const kLargestTextNode = 10000000;

// Bytes of the zero character in the encoding the first bytes announce.
size_t UnitWidth(std::string const& head) {
    switch (xmlDetectCharEncoding(reinterpret_cast<unsigned char const*>(head.data()),
                                  static_cast<int>(head.size()))) {
        case XML_CHAR_ENCODING_UTF16LE:
        case XML_CHAR_ENCODING_UTF16BE:
            return 2;
        case XML_CHAR_ENCODING_UCS4LE:
        case XML_CHAR_ENCODING_UCS4BE:
        case XML_CHAR_ENCODING_UCS4_2143:
        case XML_CHAR_ENCODING_UCS4_3412:
            return 4;
        default:
            return 1;
    }
}

// Where the first zero character of whole units begins; length when there is none.
size_t FindZeroUnit(char const* data, size_t length, size_t width) {
    if (width == 1) {
        void const* zero = std::memchr(data, 0, length);
        return zero != nullptr ? static_cast<size_t>(static_cast<char const*>(zero) - data)
                               : length;
    }
    for (size_t at = 0; at < length; at += width) {
        if (std::all_of(data + at, data + at + width, [](char c) { return c == 0; })) {
            return at;
        }
    }
    return length;
}

}  // namespace

void OutputDocumentParser::ContextDeleter::operator()(xmlParserCtxt* parserContext) const {
    xmlFreeDoc(parserContext->myDoc);
    xmlFreeParserCtxt(parserContext);
}

void OutputDocumentParser::Feed(char const* data, size_t length) {
    if (length == 0 || tooLong || endedAtZero) {
        return;
    }
    fedLength += length;
    // The tree reader takes a positive int length and refuses longer texts the same way.
    if (fedLength > static_cast<size_t>(INT_MAX)) {
        tooLong = true;
        context.reset();
        return;
    }
    if (unitWidth == 0) {
        head.append(data, length);
        if (head.size() >= 4) {
            unitWidth = UnitWidth(head);
            TakeUnits(head.data(), head.size());
            std::string().swap(head);
        }
        return;
    }
    TakeUnits(data, length);
}

bool OutputDocumentParser::Finish() {
    if (tooLong) {
        return false;
    }
    if (unitWidth == 0) {
        unitWidth = 1;
        TakeUnits(head.data(), head.size());
    }
    if (!endedAtZero) {
        Push(partUnit.data(), partUnit.size());
    }
    if (!context) {
        return false;  // nothing fed
    }
    if (!failure) {
        Guarded([&] { FlushCdata(); });
        xmlParseChunk(context.get(), nullptr, 0, 1);
    }
    // The push parser stops without a word where its input cannot be decoded; the tree reader
    // calls that a fault within the root element and the end of the text after it.
    bool const wellFormed = context->wellFormed != 0 && !refused && rootClosed;
    context.reset();
    if (failure) {
        std::rethrow_exception(failure);
    }
    return wellFormed;
}

// Multi-byte units are taken whole, so that a zero character is found across pieces.
void OutputDocumentParser::TakeUnits(char const* data, size_t length) {
    if (unitWidth == 1) {
        TakeWholeUnits(data, length);
        return;
    }
    partUnit.append(data, length);
    size_t const whole = partUnit.size() - partUnit.size() % unitWidth;
    TakeWholeUnits(partUnit.data(), whole);
    partUnit.erase(0, whole);
}

// The tree reader ends the text at a zero character after the root element, where the push
// parser would call it extra content; before that, a zero character is the parser's to refuse.
void OutputDocumentParser::TakeWholeUnits(char const* data, size_t length) {
    size_t at = 0;
    while (at < length && !endedAtZero) {
        size_t const zero = at + FindZeroUnit(data + at, length - at, unitWidth);
        Push(data + at, zero - at);
        if (zero == length) {
            return;
        }
        if (rootClosed) {
            endedAtZero = true;
            return;
        }
        Push(data + zero, unitWidth);
        at = zero + unitWidth;
    }
}

void OutputDocumentParser::Push(char const* data, size_t length) {
    if (length == 0 || (!context && !Start())) {
        return;
    }
    while (length > 0 && !failure) {
        size_t const slice = std::min(length, kSliceLength);
        xmlParseChunk(context.get(), data, static_cast<int>(slice), 0);
        data += slice;
        length -= slice;
    }
}

bool OutputDocumentParser::Start() {
    xmlSAXHandler handler;
    xmlSAXVersion(&handler, 2);  // libxml2's tree builder, with the content handlers below
    handler.startElementNs = &OutputDocumentParser::OnStartElement;
    handler.endElementNs = &OutputDocumentParser::OnEndElement;
    handler.characters = &OutputDocumentParser::OnCharacters;
    handler.ignorableWhitespace = &OutputDocumentParser::OnCharacters;
    handler.cdataBlock = &OutputDocumentParser::OnCdataBlock;
    handler.comment = &OutputDocumentParser::OnComment;
    handler.processingInstruction = &OutputDocumentParser::OnProcessingInstruction;
    handler.reference = &OutputDocumentParser::OnReference;
    handler.serror = &OutputDocumentParser::OnError;  // diagnostics are not printed
    context.reset(xmlCreatePushParserCtxt(&handler, nullptr, nullptr, 0, kDocumentName));
    if (!context) {
        refused = true;
        return false;
    }
    xmlCtxtUseOptions(context.get(), 0);
    context->_private = this;
    return true;
}

// libxml2 also parses an entity's content on its first use, through a context of its own that
// shares these handlers; that content belongs to the entity and is built by libxml2 alone.
OutputDocumentParser* OutputDocumentParser::ForMainDocument(void* parserContext) {
    auto* reported = static_cast<xmlParserCtxt*>(parserContext);
    auto* self = static_cast<OutputDocumentParser*>(reported->_private);
    return self != nullptr && self->context.get() == reported ? self : nullptr;
}

template <typename Action>
void OutputDocumentParser::Guarded(Action action) {
    // No exception may cross libxml2's frames: keep it and stop the parser.
    try {
        action();
    } catch (...) {
        failure = std::current_exception();
        xmlStopParser(context.get());
    }
}

void OutputDocumentParser::OnStartElement(void* parserContext, xmlChar const* localName,
                                          xmlChar const* prefix, xmlChar const* uri,
                                          int namespaceCount, xmlChar const** namespaces,
                                          int attributeCount, int defaultedCount,
                                          xmlChar const** attributes) {
    OutputDocumentParser* self = ForMainDocument(parserContext);
    if (self != nullptr) {
        self->BeforeOtherNode();
    }
    xmlNode* parent =
        self != nullptr && !self->openElements.empty() ? self->openElements.back() : nullptr;
    xmlNode* lastBefore = parent != nullptr ? parent->last : nullptr;
    xmlSAX2StartElementNs(parserContext, localName, prefix, uri, namespaceCount, namespaces,
                          attributeCount, defaultedCount, attributes);
    if (self == nullptr) {
        return;
    }
    xmlNode* element =
        parent != nullptr ? parent->last : xmlDocGetRootElement(self->context->myDoc);
    // Nothing new when libxml2 refused the element (nested too deep).
    if (element == nullptr || element == lastBefore || element->type != XML_ELEMENT_NODE ||
        (parent == nullptr && self->rootClosed)) {
        return;
    }
    self->openElements.push_back(element);
    self->Guarded([&] { self->builder.ElementOpened(element); });
}

void OutputDocumentParser::OnEndElement(void* parserContext, xmlChar const* localName,
                                        xmlChar const* prefix, xmlChar const* uri) {
    OutputDocumentParser* self = ForMainDocument(parserContext);
    if (self != nullptr) {
        self->BeforeOtherNode();
    }
    xmlSAX2EndElementNs(parserContext, localName, prefix, uri);
    if (self == nullptr || self->openElements.empty()) {
        return;
    }
    self->openElements.pop_back();
    self->rootClosed = self->openElements.empty();
    self->Guarded([&] { self->builder.ElementClosed(); });
}

void OutputDocumentParser::OnCharacters(void* parserContext, xmlChar const* text, int length) {
    OutputDocumentParser* self = ForMainDocument(parserContext);
    if (self != nullptr) {
        self->FlushCdata();
        self->cdataLength = 0;
        self->textLength += static_cast<size_t>(length);
        if (self->textLength > kLargestTextNode) {
            self->Refuse();
            return;
        }
        // Text is a scalar's value or else passed over (mostly the white space between
        // elements): no node is made for it.
        if (self->builder.ReadsText()) {
            self->Guarded([&] {
                self->builder.AddContent(OutputValueBuilder::Content::Text,
                                         reinterpret_cast<char const*>(text),
                                         static_cast<size_t>(length));
            });
        }
        return;
    }
    xmlSAX2Characters(parserContext, text, length);
}

// Consecutive blocks make one CDATA node, as in the tree builder, which would append each
// block of a long section by copying all of it again.
void OutputDocumentParser::OnCdataBlock(void* parserContext, xmlChar const* text, int length) {
    OutputDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr) {
        xmlSAX2CDataBlock(parserContext, text, length);
        return;
    }
    self->textLength = 0;
    self->cdataLength += static_cast<size_t>(length);
    if (self->cdataLength > kLargestTextNode) {
        self->Refuse();
        return;
    }
    if (self->builder.ReadsText()) {
        self->Guarded([&] {
            self->builder.AddContent(OutputValueBuilder::Content::Cdata,
                                     reinterpret_cast<char const*>(text),
                                     static_cast<size_t>(length));
        });
        return;
    }
    self->cdataPending = true;
    self->cdata.append(reinterpret_cast<char const*>(text), static_cast<size_t>(length));
}

void OutputDocumentParser::OnComment(void* parserContext, xmlChar const* text) {
    OutputDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr) {
        xmlSAX2Comment(parserContext, text);
        return;
    }
    // A comment is never a value, only a scalar's text.
    self->BeforeOtherNode();
    if (self->builder.ReadsText()) {
        char const* content = reinterpret_cast<char const*>(text);
        self->Guarded([&] {
            self->builder.AddContent(OutputValueBuilder::Content::Comment, content,
                                     std::char_traits<char>::length(content));
        });
    }
}

void OutputDocumentParser::OnProcessingInstruction(void* parserContext, xmlChar const* target,
                                                   xmlChar const* data) {
    OutputDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr || self->openElements.empty()) {
        xmlSAX2ProcessingInstruction(parserContext, target, data);
        return;
    }
    self->BeforeOtherNode();
    xmlNode* lastBefore = self->openElements.back()->last;
    xmlSAX2ProcessingInstruction(parserContext, target, data);
    self->ShowAddedNode(lastBefore);
}

void OutputDocumentParser::OnReference(void* parserContext, xmlChar const* name) {
    OutputDocumentParser* self = ForMainDocument(parserContext);
    if (self == nullptr || self->openElements.empty()) {
        xmlSAX2Reference(parserContext, name);
        return;
    }
    self->BeforeOtherNode();
    xmlNode* lastBefore = self->openElements.back()->last;
    xmlSAX2Reference(parserContext, name);
    self->ShowAddedNode(lastBefore);
}

// libxml2's own refusal of a text node, or a real shortage of memory: the tree would be cut
// short, so the document is not read.
void OutputDocumentParser::OnError(void*, xmlError* error) {
    if (error == nullptr || error->domain != XML_FROM_PARSER || error->code != XML_ERR_NO_MEMORY ||
        error->ctxt == nullptr) {
        return;
    }
    auto* reported = static_cast<xmlParserCtxt*>(error->ctxt);
    if (auto* self = static_cast<OutputDocumentParser*>(reported->_private)) {
        self->refused = true;
    }
}

void OutputDocumentParser::BeforeOtherNode() {
    FlushCdata();
    textLength = 0;
    cdataLength = 0;
}

void OutputDocumentParser::FlushCdata() {
    if (!cdataPending) {
        return;
    }
    cdataPending = false;
    if (!openElements.empty()) {
        xmlNode* node =
            xmlNewCDataBlock(context->myDoc, reinterpret_cast<xmlChar const*>(cdata.data()),
                             static_cast<int>(cdata.size()));
        if (node != nullptr && xmlAddChild(openElements.back(), node) == nullptr) {
            xmlFreeNode(node);
            node = nullptr;
        }
        if (node != nullptr) {
            Guarded([&] { builder.NodeAdded(node); });
        }
    }
    cdata.clear();
}

void OutputDocumentParser::ShowAddedNode(xmlNode* lastBefore) {
    xmlNode* added = openElements.back()->last;
    if (added != nullptr && added != lastBefore) {
        Guarded([&] { builder.NodeAdded(added); });
    }
}

void OutputDocumentParser::Refuse() {
    refused = true;
    xmlStopParser(context.get());
}

}  // namespace AutoCli
}  // namespace Tindra
