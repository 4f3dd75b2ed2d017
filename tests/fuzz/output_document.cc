// Command output is whatever a program printed. The streaming reader, fed it whole or in pieces,
// must read it as libxml2's tree reads it: the same value, error or "not well-formed" verdict.
#include <libxml/parser.h>

#include <algorithm>

#include "fuzz/FuzzSupport.h"
#include "xml/OutputDocumentReader.h"
#include "xml/XmlDocument.h"
#include "xml/XmlUtil.h"

namespace {

using namespace Tindra::AutoCli;
using Fuzz::MetaObject;
using Tindra::TindraException;

// After a leading byte 01, each of the first two bytes 02 and the bytes C, N after it become text
// of 9,999,990 + N % 20 bytes as read, around libxml2's limit for one text node, made of a piece
// chosen by C: the parser splits each kind of piece differently.
std::string Expanded(std::string const& text) {
    if (text.empty() || text[0] != '\x01') {
        return text;
    }
    // Each piece with the number of bytes it reads as.
    static std::pair<char const*, size_t> const pieces[] = {
        {"x", 1}, {"\xc3\xa9", 2}, {"\r\n", 1}, {"&amp;", 1}, {"ab\n", 3}};
    std::string expanded;
    for (size_t at = 1, runs = 0; at < text.size(); ++at) {
        if (text[at] != '\x02' || at + 2 >= text.size() || runs == 2) {
            expanded += text[at];
            continue;
        }
        auto const [piece, length] = pieces[static_cast<uint8_t>(text[at + 1]) % 5];
        size_t const wanted = 9999990 + static_cast<uint8_t>(text[at + 2]) % 20;
        for (size_t count = wanted / length; count > 0; --count) {
            expanded += piece;
        }
        expanded.append(wanted % length, 'x');
        at += 2;
        ++runs;
    }
    return expanded;
}

bool HasOverlongText(xmlNode* node) {
    for (; node != nullptr; node = node->next) {
        bool const text = node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
        if ((text && node->content != nullptr && xmlStrlen(node->content) > 10000000) ||
            (node->type == XML_ELEMENT_NODE && HasOverlongText(node->children))) {
            return true;
        }
    }
    return false;
}

// libxml2's memory reader with no options, the root's first child not skipped built from the tree.
// A text node over libxml2's limit is kept whole or cut short (reported as a shortage of memory)
// depending on how the parser split it: the reader refuses both as not well-formed.
std::shared_ptr<MetaObject> TreeRead(std::string const& text) {
    bool refused = false;
    xmlSetStructuredErrorFunc(&refused, [](void* flag, xmlError* error) {
        *static_cast<bool*>(flag) |= error != nullptr && error->code == XML_ERR_NO_MEMORY;
    });
    XmlDocument document(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), "STDOUT", nullptr, 0));
    xmlSetStructuredErrorFunc(nullptr, [](void*, xmlError*) {});
    if (refused || !document || HasOverlongText(document->children)) {
        return nullptr;
    }
    xmlNode* root = xmlDocGetRootElement(document.get());
    if (root == nullptr) {
        throw TindraException(NoRootElementMessage());
    }
    for (xmlNode* child = root->children; child; child = child->next) {
        try {
            if (!IsSkippedChildName(GrammarNodeName(child))) {
                return XmlUtil_BuildMetaObject(child);
            }
        } catch (TindraException const& error) {
            throw TindraException(OutputBuildErrorMessage(error.what()));
        }
    }
    return nullptr;
}

// Piece sizes come from the first byte, so that pieces end inside names, references,
// multi-byte characters and zero characters.
std::shared_ptr<MetaObject> ReadInPieces(std::string const& text) {
    size_t const scale = text.size() > 65536 ? 4099 : 1;
    size_t const base = text.empty() ? 1 : 1 + static_cast<uint8_t>(text[0]) % 17;
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

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size) {
    std::string const text = Expanded(std::string(reinterpret_cast<char const*>(data), size));
    std::string read[3];  // by the tree, by the stream whole and in pieces
    decltype(&TreeRead) const readers[] = {&TreeRead, &XmlUtil_ParseXmlOutput, &ReadInPieces};
    for (int i = 0; i < 3; ++i) {
        try {
            read[i] = Fuzz::Describe(readers[i](text));
        } catch (TindraException const& error) {  // the only way user input may fail
            read[i] = std::string("throws: ") + error.what();
        }
    }
    Fuzz::Require(read[1] == read[0] && read[2] == read[0],
                  "the stream, whole or in pieces, reads as the tree",
                  "tree:   " + read[0].substr(0, 2000) + "\nwhole:  " + read[1].substr(0, 2000) +
                      "\npieces: " + read[2].substr(0, 2000));
    return 0;
}
