// Command output is whatever an external program printed. The streaming reader, fed the text
// whole or in pieces of any size, must read it exactly as libxml2's tree of the whole text reads:
// the same value, the same error or the same "not well-formed" verdict.
//
// An input beginning with byte 01 stands for a larger text: each byte 02 in it, followed by a
// byte C and a byte N, becomes text of 9,999,990 + N % 20 characters as the parser reads them,
// around libxml2's limit for one text node, made of one of a few pieces chosen by C that the
// parser splits differently.
#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "fuzz/FuzzSupport.h"
#include "xml/OutputDocumentReader.h"
#include "xml/ValueGrammar.h"
#include "xml/XmlDocument.h"
#include "xml/XmlUtil.h"

namespace {

using namespace Tindra::AutoCli;
using Tindra::TindraException;
using Tindra::MetaObj::MetaObject;

size_t const kLargestTextNode = 10000000;

// A piece and the bytes it gives once read.
struct RunPiece {
    char const* text;
    size_t readLength;
};
RunPiece const kRunPieces[] = {{"x", 1}, {"\xc3\xa9", 2}, {"\r\n", 1}, {"&amp;", 1}, {"ab\n", 3}};

std::string Run(unsigned char choice, size_t readLength) {
    RunPiece const& piece = kRunPieces[choice % (sizeof kRunPieces / sizeof kRunPieces[0])];
    std::string run;
    for (size_t count = readLength / piece.readLength; count > 0; --count) {
        run += piece.text;
    }
    return run.append(readLength % piece.readLength, 'x');
}

std::string Expanded(std::string const& text) {
    if (text.empty() || text[0] != '\x01') {
        return text;
    }
    std::string expanded;
    int runs = 0;
    for (size_t at = 1; at < text.size(); ++at) {
        if (text[at] == '\x02' && at + 2 < text.size() && runs < 2) {
            expanded += Run(static_cast<unsigned char>(text[at + 1]),
                            9999990 + static_cast<unsigned char>(text[at + 2]) % 20);
            at += 2;
            ++runs;
        } else {
            expanded += text[at];
        }
    }
    return expanded;
}

void NoteShortage(void* refused, xmlError* error) {
    if (error != nullptr && error->code == XML_ERR_NO_MEMORY) {
        *static_cast<bool*>(refused) = true;
    }
}

bool HasOverlongText(xmlNode* node) {
    for (; node != nullptr; node = node->next) {
        bool const text = node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
        if (text && node->content != nullptr &&
            xmlStrlen(node->content) > static_cast<int>(kLargestTextNode)) {
            return true;
        }
        if (node->type == XML_ELEMENT_NODE && HasOverlongText(node->children)) {
            return true;
        }
    }
    return false;
}

// The tree reading: libxml2's memory reader with no options, and the rule the reader adds for a
// text node over libxml2's limit, which libxml2 itself keeps whole or cuts short depending on
// how its parser split the text: the document is refused as not well-formed.
XmlDocument ParseTree(std::string const& text) {
    bool refused = false;
    xmlSetStructuredErrorFunc(&refused, &NoteShortage);
    XmlDocument document(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), "STDOUT", nullptr, 0));
    Fuzz::SilenceXmlDiagnostics();
    if (refused || (document && HasOverlongText(document->children))) {
        return nullptr;
    }
    return document;
}

// The first child of the root that is not text or a comment, built from the parser's tree.
std::shared_ptr<MetaObject> TreeRead(std::string const& text) {
    XmlDocument document = ParseTree(text);
    if (!document) {
        return nullptr;
    }
    xmlNode* root = xmlDocGetRootElement(document.get());
    if (root == nullptr) {
        throw TindraException(NoRootElementMessage());
    }
    for (xmlNode* child = root->children; child; child = child->next) {
        if (IsSkippedChildName(GrammarNodeName(child))) {
            continue;
        }
        try {
            return XmlUtil_BuildMetaObject(child);
        } catch (TindraException const& error) {
            throw TindraException(OutputBuildErrorMessage(error.what()));
        }
    }
    return nullptr;
}

// Pieces whose sizes come from the first byte, so that they end inside names, references,
// multi-byte characters and zero characters.
std::shared_ptr<MetaObject> ReadInPieces(std::string const& text, size_t scale) {
    size_t const base = text.empty() ? 1 : 1 + static_cast<unsigned char>(text[0]) % 17;
    size_t const sizes[] = {base, 1, 3 * base, 2};
    OutputDocumentStream stream;
    for (size_t at = 0, piece = 0; at < text.size(); ++piece) {
        size_t const size = std::min(sizes[piece % 4] * scale, text.size() - at);
        stream.Feed(text.data() + at, size);
        at += size;
    }
    return stream.Finish();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    Fuzz::SilenceXmlDiagnostics();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size) {
    std::string const text = Expanded(std::string(reinterpret_cast<char const*>(data), size));
    std::string const tree = Fuzz::Outcome([&] { return TreeRead(text); });
    std::string const whole = Fuzz::Outcome([&] { return XmlUtil_ParseXmlOutput(text); });
    Fuzz::Require(whole == tree, "stream reading equals tree reading",
                  "stream: " + whole.substr(0, 2000) + "\ntree:   " + tree.substr(0, 2000));
    size_t const scale = text.size() > 65536 ? 4099 : 1;
    std::string const pieces = Fuzz::Outcome([&] { return ReadInPieces(text, scale); });
    Fuzz::Require(whole == pieces, "reading in pieces equals reading whole",
                  "whole:  " + whole.substr(0, 2000) + "\npieces: " + pieces.substr(0, 2000));
    return 0;
}
