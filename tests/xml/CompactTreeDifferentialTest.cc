// The compact copy of a document against the parser's own tree, node for node as the node
// readers see them (names, texts, attribute lookups), and the documents it must not stand in
// for.
#include <gtest/gtest.h>
#include <libxml/parser.h>

#include <memory>
#include <string>
#include <vector>

#include "support/RandomChoices.h"
#include "xml/CompactTreeBuilder.h"
#include "xml/SaxDocumentParser.h"
#include "xml/ValueGrammar.h"
#include "xml/XmlUtil.h"

namespace {

using namespace Tindra::AutoCli;

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

// A canonical text of a subtree: everything the readers can learn from it.
template <typename Node>
std::string Describe(Node* node) {
    std::string text = std::string("<") + GrammarNodeName(node);
    for (std::string const& name : AttributeNames(node)) {
        text += " " + name + "=[" + XmlUtil_ExtractAttribute(node, name) + "]";
    }
    if (char const* content = ContentOf(node)) {
        text += " content=[" + std::string(content) + "]";
    }
    text += CarriesContent(node) ? " carries>" : ">";
    for (Node* child = FirstChildOf(node); child != nullptr; child = child->next) {
        text += Describe(child);
    }
    return text + "</>";
}

struct DocFree {
    void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
};

std::string const kNotWellFormed = "<not well-formed>";

std::string TreeCopy(std::string const& text) {
    std::unique_ptr<xmlDoc, DocFree> doc(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), "doc", nullptr, 0));
    return doc ? Describe(xmlDocGetRootElement(doc.get())) : kNotWellFormed;
}

// The compact copy, or "unfaithful" where the builder says it may differ.
std::string CompactCopy(std::string const& text) {
    CompactTree tree;
    CompactTreeBuilder builder(tree);
    SaxDocumentParser parser(builder);
    parser.Feed(text.data(), text.size());
    if (!parser.Finish()) {
        return kNotWellFormed;
    }
    return builder.IsFaithful() ? Describe(tree.Root()) : "unfaithful";
}

void Quiet(void*, xmlError*) {}

class CompactTreeDifferentialTest : public ::testing::Test {
protected:
    void SetUp() override { xmlSetStructuredErrorFunc(nullptr, &Quiet); }
    void TearDown() override { xmlSetStructuredErrorFunc(nullptr, nullptr); }

    static void ExpectSame(std::string const& text) {
        EXPECT_EQ(TreeCopy(text), CompactCopy(text)) << "document: " << text.substr(0, 200);
    }
};

TEST_F(CompactTreeDifferentialTest, HandWrittenDocuments) {
    for (std::string const text : {
             "<a/>",
             "<?xml version=\"1.0\"?>\n<!-- before --><?pi before?>\n<a>\n  <b x=\"1\"/>\n</a>\n"
             "<!-- after -->",
             "<a>t<![CDATA[c]]>t<![CDATA[c1]]><![CDATA[c2]]><!--m-->t1&amp;t2<?pi d?>t</a>",
             "<a><![CDATA[]]><!----><b></b><b/>  </a>",
             "<a>&lt;&#65;&#x10000;\xc3\xa9&gt;\n\t </a>",
             "<a x=\"a&amp;b&quot;c&#9;d\te\nf\" y='\"' z=\"\"><b z=\"&#x41;\"/></a>",
             "<a x=\"1\" p:x=\"2\"><p:b p:y=\"3\" y=\"4\"/></a>",
             "<a xmlns=\"urn:d\" xmlns:p=\"urn:p\"><p:b>in ns</p:b><c/></a>",
             "<a><text>t</text><comment>c</comment><description>d</description></a>",
             "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a x=\"caf\xe9\">caf\xe9</a>",
             "<a>unclosed",
             "<a></b>",
             "",
             "<a/><b/>",
             "<a>&undefined;</a>",
             "<a x=\"1\" x=\"2\"/>",
         }) {
        ExpectSame(text);
    }
    std::string const z(100000, 'z');
    ExpectSame("<a>" + z + "<!--" + z + "-->" + z + "&amp;" + z + "<b x=\"" + z + "\"/></a>");
}

TEST_F(CompactTreeDifferentialTest, DeclarationsAndNamespacedAttributesAreNotCopied) {
    for (std::string const text : {
             "<!DOCTYPE a [<!ATTLIST a x CDATA \"dflt\">]><a/>",
             "<!DOCTYPE a [<!ENTITY e \"val\">]><a>&e;</a>",
             "<!DOCTYPE a SYSTEM \"missing.dtd\"><a/>",
             "<a><b xml:id=\"1x\"/></a>",
             "<a xmlns:p=\"urn:p\"><b p:x=\"1\"/></a>",
         }) {
        EXPECT_EQ("unfaithful", CompactCopy(text)) << text;
    }
}

// Random descriptor-like documents with every kind of node, and damaged copies of them.
class DocumentGenerator : RandomChoices {
public:
    explicit DocumentGenerator(unsigned seed) : RandomChoices(seed) {}

    std::string Document() { return Filler() + Element(0) + Filler(); }

    std::string Damage(std::string text) {
        size_t at = Below(text.size());
        return Chance(50) ? text.substr(0, at) : text.insert(at, Pick({"<", "&", "</x>", "\""}));
    }

private:
    std::string Element(int depth) {
        std::string const tag = Pick({"command", "parameter", "description", "enum-value", "text",
                                      "comment", "p:field", "list"});
        std::string text = "<" + tag;
        for (size_t count = Below(4); count > 0; --count) {
            text += " " + Pick({"name", "type", "value", "q:name"}) + std::to_string(count) +
                    "=\"" + Pick({"", "x", "a&amp;b", "&#9;t\tu", "&lt;&#x41;"}) + "\"";
        }
        if (Chance(20)) {
            return text + "/>";
        }
        text += ">";
        for (size_t count = Below(depth > 3 ? 2 : 6); count > 0; --count) {
            text += Chance(40) ? Element(depth + 1) : Content();
        }
        return text + "</" + tag + ">";
    }

    std::string Content() {
        return Pick({"\n  ", "text", "a&amp;b&#65;", "\xc3\xa9", "<!-- c -->", "<!---->",
                     "<![CDATA[<raw>]]>", "<![CDATA[]]>", "<?pi x?>", "<?text y?>"});
    }
    std::string Filler() { return Pick({"", "\n", "<!-- c -->", "<?pi x?>"}); }
};

TEST_F(CompactTreeDifferentialTest, GeneratedDocuments) {
    DocumentGenerator generator(20250117u);
    int copied = 0;
    for (int i = 0; i < 2000; ++i) {
        std::string const document = generator.Document();
        ExpectSame(document);
        ExpectSame(generator.Damage(document));
        copied += CompactCopy(document) != kNotWellFormed;
    }
    // Most documents must be well-formed, or the comparison proves little.
    EXPECT_GT(copied, 1500);
}

}  // namespace
