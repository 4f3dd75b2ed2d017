// The streaming document reader against a reference that parses the whole tree and walks it
// with the tree builder, over hand-written and generated documents, valid and broken.
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "autocli/extension/XmlUtil.h"
#include "extension/ValueDescription.h"
#include "tindra/TindraException.h"

using Tindra::TindraException;
using Tindra::AutoCli::XmlUtil_BuildMetaObject;
using Tindra::AutoCli::XmlUtil_ParseXmlOutput;

namespace {

struct DocFree {
    void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
};

bool IsSkipped(xmlNode* node) {
    std::string name = node->name ? reinterpret_cast<char const*>(node->name) : "";
    return name == "text" || name == "comment";
}

// The whole-tree reading of a document, step by step as the reader is defined.
std::shared_ptr<Tindra::MetaObj::MetaObject> TreeParse(std::string const& text) {
    std::unique_ptr<xmlDoc, DocFree> doc(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), "STDOUT", nullptr, 0));
    if (!doc) {
        return nullptr;
    }
    xmlNode* root = xmlDocGetRootElement(doc.get());
    if (root == nullptr) {
        throw TindraException(
            "Error parsing command output.  Unable to find a properly formatted output tag as "
            "the document root");
    }
    for (xmlNode* child = root->children; child != nullptr; child = child->next) {
        if (IsSkipped(child)) {
            continue;
        }
        try {
            return XmlUtil_BuildMetaObject(child);
        } catch (TindraException const& error) {
            throw TindraException(
                std::string("Error parsing command output.  Unable to build a proper metaobject "
                            "from output tag.  output must contain properly formatted tags of "
                            "type bool, int, string, structure and list. Error was : ") +
                error.what());
        }
    }
    return nullptr;
}

template <typename Parse>
std::string Outcome(Parse parse, std::string const& text) {
    try {
        return DescribeValue(parse(text));
    } catch (TindraException const& error) {
        return std::string("throws: ") + error.what();
    }
}

void Quiet(void*, xmlError*) {}

class OutputReaderDifferentialTest : public ::testing::Test {
protected:
    void SetUp() override { xmlSetStructuredErrorFunc(nullptr, &Quiet); }
    void TearDown() override { xmlSetStructuredErrorFunc(nullptr, nullptr); }

    static void ExpectSame(std::string const& text) {
        EXPECT_EQ(Outcome(TreeParse, text), Outcome(XmlUtil_ParseXmlOutput, text))
            << "document: " << text;
    }
};

std::string const kRow =
    "<structure typeName=\"Row\">\n"
    "  <field name=\"Name\"><string>disk&amp;0</string></field>\n"
    "  <field name=\"Size\"><int> 42kb</int></field>\n"
    "  <field name=\"Up\"><!-- state --><bool>f</bool></field>\n"
    "  <field name=\"Tags\"><list type=\"string\"><string>a</string></list></field>\n"
    "</structure>\n";

std::vector<std::string> const kHandWritten = {
    "",
    "   ",
    "not xml",
    "<o><text>t</text><comment/><string>after named skips</string></o>",
    "<o><string>a<![CDATA[b]]></string></o>",
    "<o><string><![CDATA[b]]>c</string></o>",
    "<o><string>a<b>in</b></string></o>",
    "<o><string>a<?pi x?></string></o>",
    "<o><string>\n\t </string></o>",
    "<o><int>+7</int></o>",
    "<o><int>12<!--c-->34</int></o>",
    "<o><bool/></o>",
    "<o><?pi data?><string>x</string></o>",
    "<o><![CDATA[raw]]><string>x</string></o>",
    "<o>text first<string>x</string></o>",
    "<o><structure typeName=\"a_b\"/></o>",
    "<o><structure typeName=\"A\"><field name=\"x\"><int>1</int><int>2</int></field></structure>"
    "</o>",
    "<o><structure typeName=\"A\"><field name=\"x\"><int>1</int></field><field name=\"x\">"
    "<string>2</string></field></structure></o>",
    "<o><structure typeName=\"A\"><junk><field name=\"x\"><int>1</int></field></junk>"
    "</structure></o>",
    "<o><structure typeName=\"A\"><?field x?></structure></o>",
    "<o><structure typeName=\"A\"><field name=\"x\"><integer/></field></structure></o>",
    "<o><list type=\"list\"><list type=\"int\"/></list></o>",
    "<o><list type=\"structure\"><int>1</int></list></o>",
    "<o><list type=\"structure\"><list type=\"int\"/></list></o>",
    "<o><list type=\"structure\">" + kRow + kRow + "</list></o>",
    "<o><list type=\"structure\">" + kRow +
        "<structure typeName=\"Row\"><field name=\"Name\"><string>x</string></field>"
        "</structure></list></o>",
    "<o><list type=\"structure\">" + kRow +
        "<structure typeName=\"Other\"><field name=\"Name\"><string>x</string></field>"
        "<field name=\"Size\"><int>1</int></field><field name=\"Up\"><bool>1</bool></field>"
        "<field name=\"Tags\"><list type=\"string\"/></field></structure></list></o>",
    "<o><list type=\"structure\">" + kRow + "<int>5</int></list></o>",
    "<o><structure typeName=\"N\"><field name=\"inner\"><list type=\"structure\">" + kRow +
        "</list></field></structure></o>",
    "<!DOCTYPE o [<!ENTITY e \"val\">]><o><string>&e;</string></o>",
    "<!DOCTYPE o [<!ENTITY e \"val\">]><o><string>a&e;b</string></o>",
    "<!DOCTYPE o [<!ENTITY string \"val\">]><o>&string;</o>",
    "<!DOCTYPE o [<!ATTLIST list type CDATA \"string\">]><o><list><string>d</string></list></o>",
    "<o xmlns:p=\"urn:x\"><p:string>ns</p:string></o>",
    "<o><p:string>undeclared</p:string></o>",
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><o><string>caf\xe9</string></o>",
    "<o><string>x</string></o>junk",
    "<o><integer/></o",
    "<o><list type=\"int\"><string>x</string></list></o><",
    "<o><string>x</o>",
    "<o>&nope;</o>",
    std::string(300, '<'),
    "<o><string><![CDATA[a]]><![CDATA[b]]></string></o>",
    "<o><string><![CDATA[a]]>t<![CDATA[b]]></string></o>",
    "<o><list type=\"int\"><![CDATA[1]]></list></o>",
    "<o><structure typeName=\"A\"><![CDATA[x]]></structure></o>",
    "<o><structure typeName=\"A\"><field name=\"f\"><?int x?></field></structure></o>",
    "<o><?int x?></o>",
    "<o><?list x?></o>",
    "<o><structure typeName=\"A\"><field name=\"a&#10;b\"><int>1</int></field></structure></o>",
    "<o><structure typeName=\"A\"><field name=\"a\tb&amp;c\"><int>1</int></field></structure>"
    "</o>",
    "<o xmlns:p=\"urn:x\"><structure p:typeName=\"A\"/></o>",
    "<o><structure p:typeName=\"A\"/></o>",
    "<o><structure p:typeName=\"B\" typeName=\"A\"/></o>",
    "<!DOCTYPE o [<!ENTITY n \"Nm\">]><o><structure typeName=\"&n;\"/></o>",
    "<!DOCTYPE o [<!ENTITY n \"Nm\">]><o><structure typeName=\"&n;x\"><field name=\"&n;\">"
    "<string>&n;</string></field></structure></o>",
    "<!DOCTYPE o [<!ENTITY n \"Nm\">]><o><string>&n;</string><structure typeName=\"&n;\"/>"
    "</o>",
    "<!DOCTYPE o [<!ENTITY e \"<string>in entity</string>\">]><o>&e;</o>",
    "<!DOCTYPE o [<!ENTITY e \"<string>in entity</string>\">]><o><string>&e;after</string></o>",
    "<!DOCTYPE o [<!ENTITY e \"\">]><o><string>a&e;</string></o>",
    "<!DOCTYPE o [<!ATTLIST structure typeName CDATA \"Dflt\">]><o><structure/></o>",
    "<!DOCTYPE o [<!ATTLIST structure typeName CDATA #FIXED \"Fx\">]><o><structure/></o>",
    "<!DOCTYPE o [<!-- dtd comment --><?dtd pi?>]><o><string>x</string></o>",
    "<!DOCTYPE o [<!ELEMENT string (#PCDATA)><!ELEMENT o (string)>]><o>\n <string>x</string>\n</o>",
    "<!DOCTYPE o SYSTEM \"missing.dtd\"><o><string>x</string></o>",
    "<!DOCTYPE o SYSTEM \"missing.dtd\"><o><string>&undeclared;</string></o>",
};

TEST_F(OutputReaderDifferentialTest, HandWrittenDocuments) {
    for (auto const& text : kHandWritten) {
        ExpectSame(text);
    }
}

TEST_F(OutputReaderDifferentialTest, OtherEncodings) {
    std::string latin1 = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><o><list type=\"string\">";
    for (int i = 0; i < 5000; ++i) {
        latin1 += "<string>caf\xe9 " + std::to_string(i) + "</string>";
    }
    latin1 += "</list></o>";
    ExpectSame(latin1);
    ExpectSame(latin1.substr(0, latin1.size() / 2));
    std::string utf16 = "\xff\xfe";  // little-endian with byte order mark
    for (char c : std::string("<o><string>wide \x7e</string></o>")) {
        utf16 += c;
        utf16 += '\0';
    }
    ExpectSame(utf16);
    ExpectSame(utf16.substr(0, utf16.size() - 3));
}

TEST_F(OutputReaderDifferentialTest, AtTheParserDepthLimit) {
    for (int depth = 250; depth <= 260; ++depth) {
        std::string document;
        for (int i = 0; i < depth; ++i) {
            document += "<e>";
        }
        for (int i = 0; i < depth; ++i) {
            document += "</e>";
        }
        ExpectSame("<o><string>" + document + "</string></o>");
        ExpectSame("<o><string>x</string>" + document + "</o>");
    }
}

TEST_F(OutputReaderDifferentialTest, AtTheTextSizeLimit) {
    std::string const utf8 = "\xc3\xa9";  // text the parser delivers in small pieces
    for (size_t size : {size_t(10000000), size_t(10000001)}) {
        ExpectSame("<o><string>" + std::string(size, 'a') + "</string></o>");
        ExpectSame("<o><int>" + std::string(size / 2, 'a') + "&amp;" + std::string(size / 2, 'b') +
                   "</int><string>x</string></o>");
        ExpectSame("<o><string>" + std::string(size - size % 2, 'a').replace(0, 2, utf8) +
                   "</string></o>");
        std::string wide;
        for (size_t i = 0; i < size / 2; ++i) {
            wide += utf8;
        }
        ExpectSame("<o><string>x</string><!--" + wide.substr(0, 100) + "--><string>" + wide +
                   "</string></o>");
    }
}

TEST_F(OutputReaderDifferentialTest, DeepNestingAndLongTexts) {
    std::string deep;
    for (int i = 0; i < 300; ++i) {
        deep += "<structure typeName=\"D\"><field name=\"f\">";
    }
    deep += "<int>1</int>";
    for (int i = 0; i < 300; ++i) {
        deep += "</field></structure>";
    }
    ExpectSame("<o>" + deep + "</o>");
    std::string const longText(100000, 'z');
    ExpectSame("<o><string>" + longText + "<!--" + longText + "-->" + longText + "</string></o>");
    ExpectSame("<o><list type=\"string\"><string>" + longText + "</string><string>" + longText +
               "</string></list></o>");
}

// Random documents from the value grammar, some with deliberate grammar errors, then random
// byte-level damage so that both the well-formed and the broken paths are exercised.
class DocumentGenerator {
public:
    explicit DocumentGenerator(unsigned seed) : random(seed) {}

    std::string Document() {
        std::string text = Pick({"", "<?xml version=\"1.0\"?>", "<!-- lead -->\n"});
        text += "<" + Pick({"output", "root", "o"}) + ">" + Filler() + Value(0) + Filler() +
                (Chance(20) ? Value(0) : "") + "</" + closing + ">";
        return text;
    }

    std::string Damage(std::string text) {
        if (text.empty()) {
            return text;
        }
        size_t at = Below(text.size());
        switch (Below(4)) {
            case 0:
                return text.erase(at, 1 + Below(3));
            case 1:
                return text.insert(at, Pick({"<", ">", "&", "</x>", "\"", "<int>"}));
            case 2:
                return text.substr(0, at);
            default:
                text[at] = static_cast<char>(Below(256));
                return text;
        }
    }

    std::string closing;

private:
    std::string Value(int depth) {
        int kind = static_cast<int>(Below(depth > 3 ? 4 : 6));
        switch (kind) {
            case 0:
                return Element("int", Pick({"12", "-3", "", " 9z", "x", "99999999999999999999"}));
            case 1:
                return Element("bool", Pick({"true", "f", "0", "no", ""}));
            case 2:
                return Element("string", Pick({"s", "a&amp;b", "", " sp ", "<![CDATA[c]]>"}));
            case 3:
                return Chance(10) ? Element(Pick({"integer", "boolean", "text"}), "1")
                                  : Element("string", "t<!--c-->u");
            case 4:
                return Structure(depth);
            default:
                return List(depth);
        }
    }

    std::string Structure(int depth, std::string const& typeName = "") {
        std::string name = typeName.empty() ? Pick({"T", "U"}) : typeName;
        if (Chance(5)) {
            name = Pick({"", "bad_name"});
        }
        std::string text = "<structure typeName=\"" + name + "\">";
        int fields = static_cast<int>(Below(4));
        for (int i = 0; i < fields; ++i) {
            std::string fieldName = Chance(5) ? "" : std::string(1, static_cast<char>('a' + i));
            text += Filler() + "<field name=\"" + fieldName + "\">" + Filler() +
                    (Chance(10) ? "" : Value(depth + 1)) + "</field>";
        }
        return text + Filler() + "</structure>";
    }

    std::string List(int depth) {
        std::string type = Pick({"int", "string", "structure", "structure", "bool"});
        if (Chance(5)) {
            type = Pick({"list", "integer", ""});
        }
        std::string text = "<list type=\"" + type + "\">";
        int items = static_cast<int>(Below(5));
        for (int i = 0; i < items; ++i) {
            text += Filler();
            if (type == "structure" && !Chance(10)) {
                text += Structure(depth + 1, "R");
            } else if (type == "int" && !Chance(10)) {
                text += Element("int", std::to_string(i));
            } else {
                text += Value(depth + 1);
            }
        }
        return text + Filler() + "</list>";
    }

    std::string Element(std::string const& tag, std::string const& content) {
        return content.empty() && Chance(50) ? "<" + tag + "/>"
                                             : "<" + tag + ">" + content + "</" + tag + ">";
    }

    std::string Filler() { return Chance(3) ? " <?pi x?> " : Pick({"", "", "\n  ", "<!-- c -->"}); }

    std::string Pick(std::vector<std::string> const& choices) {
        std::string choice = choices[Below(choices.size())];
        if (choice == "output" || choice == "root" || choice == "o") {
            closing = choice;
        }
        return choice;
    }

    size_t Below(size_t bound) {
        return std::uniform_int_distribution<size_t>(0, bound - 1)(random);
    }
    bool Chance(int percent) { return Below(100) < static_cast<size_t>(percent); }

    std::mt19937 random;
};

TEST_F(OutputReaderDifferentialTest, GeneratedDocuments) {
    DocumentGenerator generator(20240611u);
    int wellFormedValues = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string document = generator.Document();
        ExpectSame(document);
        ExpectSame(generator.Damage(document));
        std::string outcome = Outcome(TreeParse, document);
        if (outcome != "<none>" && outcome.compare(0, 7, "throws:") != 0) {
            ++wellFormedValues;
        }
    }
    // The generator must keep producing readable documents, or the comparison proves little.
    EXPECT_GT(wellFormedValues, 300);
}

}  // namespace
