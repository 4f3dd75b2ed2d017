// Command output is whatever an external program printed. The streaming reader, fed the text
// whole or in pieces, must read it exactly as the parser's own tree reads it, and the compact
// copy of a document must show the node readers what the parser's tree shows them.
#include <libxml/parser.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "xml/CompactTreeBuilder.h"
#include "xml/OutputDocumentReader.h"
#include "xml/SaxDocumentParser.h"
#include "xml/ValueGrammar.h"
#include "xml/XmlUtil.h"
#include "fuzz/FuzzSupport.h"

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

std::vector<std::string> AttributeNames(xmlNode* node) {
    std::vector<std::string> names;
    if (node->type == XML_ELEMENT_NODE) {
        for (xmlAttr* attribute = node->properties; attribute; attribute = attribute->next) {
            names.emplace_back(reinterpret_cast<char const*>(attribute->name));
        }
    }
    return names;
}

std::vector<std::string> AttributeNames(CompactNode const* node) {
    std::vector<std::string> names;
    for (auto* attribute = node->firstAttribute; attribute; attribute = attribute->next) {
        names.emplace_back(attribute->name);
    }
    return names;
}

// Everything the node readers can learn from a subtree.
template <typename Node>
std::string DescribeNode(Node* node) {
    std::string text = std::string("<") + GrammarNodeName(node);
    for (std::string const& name : AttributeNames(node)) {
        text += " " + name + "=[" + XmlUtil_ExtractAttribute(node, name) + "]";
    }
    if (char const* content = ContentOf(node)) {
        text += " content=[" + std::string(content) + "]";
    }
    text += CarriesContent(node) ? " carries>" : ">";
    for (Node* child = FirstChildOf(node); child != nullptr; child = child->next) {
        text += DescribeNode(child);
    }
    return text + "</>";
}

void CompareCompactCopy(std::string const& text) {
    CompactTree tree;
    CompactTreeBuilder builder(tree);
    SaxDocumentParser parser(builder);
    parser.Feed(text.data(), text.size());
    bool const wellFormed = parser.Finish();
    Document doc = ParseTree(text);
    Fuzz::Require(wellFormed == (doc != nullptr), "event parser and tree agree on well-formedness",
                  text);
    if (!wellFormed || !builder.IsFaithful()) {
        return;
    }
    Fuzz::Require(DescribeNode(xmlDocGetRootElement(doc.get())) == DescribeNode(tree.Root()),
                  "compact copy equals the parser's tree", text);
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
    CompareCompactCopy(text);
    return 0;
}
