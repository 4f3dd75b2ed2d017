// Command output is whatever an external program printed. The streaming reader, fed the text
// whole or in pieces, must read it exactly as the parser's own tree reads it.
#include <libxml/parser.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/FuzzSupport.h"
#include "xml/OutputDocumentReader.h"
#include "xml/SaxDocumentParser.h"
#include "xml/ValueGrammar.h"
#include "xml/XmlUtil.h"

namespace {

using namespace Tindra::AutoCli;
using Tindra::TindraException;
using Tindra::MetaObj::MetaObject;

struct DocFree {
    void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
};
using Document = std::unique_ptr<xmlDoc, DocFree>;

Document ParseTree(std::string const& text) {
    return Document(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), "STDOUT", nullptr, 0));
}

// The reference: the first child of the root that is not text or a comment, built from the
// parser's tree.
std::shared_ptr<MetaObject> TreeRead(std::string const& text) {
    Document doc = ParseTree(text);
    if (!doc) {
        return nullptr;
    }
    xmlNode* root = xmlDocGetRootElement(doc.get());
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

// Pieces whose sizes come from the first byte, so that they end inside names, references and
// multi-byte characters.
std::shared_ptr<MetaObject> ReadInPieces(std::string const& text) {
    size_t const base = text.empty() ? 1 : 1 + static_cast<unsigned char>(text[0]) % 17;
    size_t const sizes[] = {base, 1, 3 * base, 2};
    OutputDocumentStream stream;
    for (size_t at = 0, piece = 0; at < text.size(); ++piece) {
        size_t const size = std::min(sizes[piece % 4], text.size() - at);
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
    std::string const text(reinterpret_cast<char const*>(data), size);
    std::string const whole = Fuzz::Outcome([&] { return XmlUtil_ParseXmlOutput(text); });
    std::string const tree = Fuzz::Outcome([&] { return TreeRead(text); });
    Fuzz::Require(whole == tree, "stream reading equals tree reading",
                  "stream: " + whole + "\ntree:   " + tree);
    std::string const pieces = Fuzz::Outcome([&] { return ReadInPieces(text); });
    Fuzz::Require(whole == pieces, "reading in pieces equals reading whole",
                  "whole:  " + whole + "\npieces: " + pieces);
    return 0;
}
