// The streaming document reader against a reference that parses the whole tree and walks it
// with the tree builder, over hand-written and generated documents, valid and broken.
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "autocli/extension/XmlUtil.h"
#include "extension/ValueDescription.h"

using Tindra::TindraException;
using Tindra::AutoCli::XmlUtil_BuildMetaObject;
using Tindra::AutoCli::XmlUtil_ParseXmlOutput;

namespace {

struct DocFree {
    void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
};

// The whole-tree reading: the first child of the root that is not text or a comment.
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
    for (xmlNode* child = root->children; child; child = child->next) {
        std::string name = child->name ? reinterpret_cast<char const*>(child->name) : "";
        if (name == "text" || name == "comment") {
            continue;
        }
        try {
            return XmlUtil_BuildMetaObject(child);
        } catch (TindraException const& error) {
            throw TindraException(kOutputWrap + error.what());
        }
    }
    return nullptr;
}

std::string Repeat(std::string const& text, size_t times) {
    std::string result;
    for (; times > 0; --times) {
        result += text;
    }
    return result;
}

void Quiet(void*, xmlError*) {}

class OutputReaderDifferentialTest : public ::testing::Test {
protected:
    void SetUp() override { xmlSetStructuredErrorFunc(nullptr, &Quiet); }
    void TearDown() override { xmlSetStructuredErrorFunc(nullptr, nullptr); }

    static void ExpectSame(std::string const& text) {
        EXPECT_EQ(Outcome(TreeParse, text), Outcome(XmlUtil_ParseXmlOutput, text))
            << "document: " << text.substr(0, 200);
    }
};

// Documents separated by "|"; line breaks are not part of them, \n and \t stand for those
// characters.
char const kCorpus[] =
    R"(not xml|<o><text>t</text><comment/><string>after named skips</string></o>|<o><string>a<![CDATA[b]]
></string></o>|<o><string><![CDATA[b]]>c</string></o>|<o><string><![CDATA[a]]><![CDATA[b]]></strin
g></o>|<o><string><![CDATA[a]]>t<![CDATA[b]]></string></o>|<o><string>a<b>in</b></string></o>|<o><
string>a<?pi x?></string></o>|<o><string>\n\t </string></o>|<o><int>+7</int></o>|<o><int>12<!--c--
>34</int></o>|<o><bool/></o>|<o><?int x?></o>|<o><?pi data?><string>x</string></o>|<o><![CDATA[raw
]]><string>x</string></o>|<o>text first<string>x</string></o>|<o><structure typeName="a_b"/></o>|<
o><structure typeName="A"><field name="x"><int>1</int><int>2</int></field><field name="x"><string>
2</string></field></structure></o>|<o><structure typeName="A"><junk><field name="x"><int>1</int></
field></junk></structure></o>|<o><structure typeName="A"><?field x?><![CDATA[x]]></structure></o>|
<o><structure typeName="A"><field name="x"><integer/></field></structure></o>|<o><structure typeNa
me="A"><field name="f"><?int x?></field></structure></o>|<o><structure typeName="A"><field name="a
\tb&amp;c&#10;"><int>1</int></field></structure></o>|<o><list type="list"><list type="int"/></list
></o>|<o><list type="structure"><int>1</int></list></o>|<o><list type="structure"><list type="int"
/></list></o>|<o><list type="int"><![CDATA[1]]></list></o>|<!DOCTYPE o [<!ENTITY e "val">]><o><str
ing>a&e;b</string></o>|<!DOCTYPE o [<!ENTITY string "val">]><o>&string;</o>|<!DOCTYPE o [<!ENTITY 
e "">]><o><string>a&e;</string></o>|<!DOCTYPE o [<!ENTITY e "<string>in entity</string>">]><o>&e;<
/o>|<!DOCTYPE o [<!ENTITY e "<string>in entity</string>">]><o><string>&e;after</string></o>|<!DOCT
YPE o [<!ENTITY n "Nm">]><o><structure typeName="&n;x"><field name="&n;"><string>&n;</string></fie
ld></structure></o>|<!DOCTYPE o [<!ENTITY n "Nm">]><o><string>&n;</string><structure typeName="&n;
"/></o>|<!DOCTYPE o [<!ATTLIST list type CDATA "string">]><o><list><string>d</string></list></o>|<
!DOCTYPE o [<!ATTLIST structure typeName CDATA "Dflt">]><o><structure/></o>|<!DOCTYPE o [<!ATTLIST
 structure typeName CDATA #FIXED "Fx">]><o><structure/></o>|<!DOCTYPE o [<!-- dtd comment --><?dtd
 pi?>]><o><string>x</string></o>|<!DOCTYPE o [<!ELEMENT string (#PCDATA)><!ELEMENT o (string)>]><o
>\n <string>x</string>\n</o>|<!DOCTYPE o SYSTEM "missing.dtd"><o><string>x</string></o>|<!DOCTYPE 
o SYSTEM "missing.dtd"><o><string>&undeclared;</string></o>|<o xmlns:p="urn:x"><p:string>ns</p:str
ing></o>|<o><p:string>undeclared</p:string></o>|<o xmlns:p="urn:x"><structure p:typeName="A"/></o>
|<o><structure p:typeName="B" typeName="A"/></o>|<o><string>x</string></o>junk|<o><integer/></o|<o
>&nope;</o>|<o><list type="int"><string>x</string></list></o><)";

std::string const kRow =
    "<structure typeName=\"Row\"><field name=\"Name\"><string>disk&amp;0</string></field>\n"
    "<field name=\"Size\"><int> 42kb</int></field><field name=\"Up\"><!-- s --><bool>f</bool>"
    "</field><field name=\"Tags\"><list type=\"string\"><string>a</string></list></field>"
    "</structure>\n";
std::string const kRowList = "<o><list type=\"structure\">" + kRow;

TEST_F(OutputReaderDifferentialTest, HandWrittenDocuments) {
    std::string corpus(kCorpus);
    corpus.erase(std::remove(corpus.begin(), corpus.end(), '\n'), corpus.end());
    std::istringstream documents(corpus);
    for (std::string text; std::getline(documents, text, '|');) {
        for (size_t at; (at = text.find_first_of('\\')) != std::string::npos;) {
            text.replace(at, 2, text[at + 1] == 'n' ? "\n" : "\t");
        }
        ExpectSame(text);
    }
    ExpectSame("");
    ExpectSame(std::string(300, '<'));
    ExpectSame("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><o><string>caf\xe9</string></o>");
    // Structure lists: matching, short, differently named and non-structure items.
    std::string const name = "<field name=\"Name\"><string>x</string></field>";
    ExpectSame(kRowList + kRow + "</list></o>");
    ExpectSame(kRowList + "<structure typeName=\"Row\">" + name + "</structure></list></o>");
    ExpectSame(kRowList + "<structure typeName=\"Other\">" + name +
               "<field name=\"Size\"><int>1</int></field><field name=\"Up\"><bool>1</bool>"
               "</field><field name=\"Tags\"><list type=\"string\"/></field></structure></list>"
               "</o>");
    ExpectSame(kRowList + "<int>5</int></list></o>");
    ExpectSame("<o><structure typeName=\"N\"><field name=\"inner\"><list type=\"structure\">" +
               kRow + "</list></field></structure></o>");
}

TEST_F(OutputReaderDifferentialTest, OtherEncodings) {
    std::string latin1 = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><o><list type=\"string\">";
    for (int i = 0; i < 5000; ++i) {
        latin1 += "<string>caf\xe9 " + std::to_string(i) + "</string>";
    }
    ExpectSame(latin1 + "</list></o>");
    ExpectSame(latin1.substr(0, latin1.size() / 2));
    std::string utf16 = "\xff\xfe";  // little-endian with byte order mark
    for (char c : std::string("<o><string>wide \x7e</string></o>")) {
        utf16 += std::string{c, '\0'};
    }
    ExpectSame(utf16);
    ExpectSame(utf16.substr(0, utf16.size() - 3));
}

TEST_F(OutputReaderDifferentialTest, AtTheParserLimits) {
    for (size_t depth = 250; depth <= 260; ++depth) {
        std::string nested = Repeat("<e>", depth) + Repeat("</e>", depth);
        ExpectSame("<o><string>" + nested + "</string></o>");
        ExpectSame("<o><string>x</string>" + nested + "</o>");
    }
    ExpectSame("<o>" + Repeat("<structure typeName=\"D\"><field name=\"f\">", 300) +
               "<int>1</int>" + Repeat("</field></structure>", 300) + "</o>");
    std::string const z(100000, 'z');
    ExpectSame("<o><string>" + z + "<!--" + z + "-->" + z + "</string></o>");
    ExpectSame("<o><list type=\"string\"><string>" + z + "</string><string>" + z +
               "</string></list></o>");
    std::string const utf8 = "\xc3\xa9";  // text the parser delivers in small pieces
    for (size_t size : {size_t(10000000), size_t(10000001)}) {
        std::string const wide = Repeat(utf8, size / 2), half(size / 2, 'a');
        ExpectSame("<o><string>" + std::string(size, 'a') + "</string></o>");
        ExpectSame("<o><int>" + half + "&amp;" + half + "</int><string>x</string></o>");
        ExpectSame("<o><string>" + std::string(size - size % 2, 'a').replace(0, 2, utf8) +
                   "</string></o>");
        ExpectSame("<o><string>x</string><!--" + wide.substr(0, 100) + "--><string>" + wide +
                   "</string></o>");
    }
}

// Random documents from the value grammar, some with grammar errors, then byte-level damage,
// so that both the well-formed and the broken paths are exercised.
class DocumentGenerator {
public:
    explicit DocumentGenerator(unsigned seed) : random(seed) {}

    std::string Document() { return "<o>" + Filler() + Value(0) + Filler() + "</o>"; }

    std::string Damage(std::string text) {
        size_t at = Below(text.size());
        if (Chance(50)) {
            return Chance(50) ? text.substr(0, at) : text.insert(at, Pick({"<", "&", "</x>"}));
        }
        text[at] = static_cast<char>(Below(256));
        return text;
    }

private:
    // A value of the kind given by its first letter (int, bool, string, Structure, list).
    std::string Value(int depth, char kind = 0) {
        switch (kind ? kind : "ibsSl"[Below(depth > 2 ? 3 : 5)]) {
            case 'i':
                return Element("int", Pick({"12", "-3", "", " 9z", "99999999999999999999"}));
            case 'b':
                return Element(Chance(10) ? "boolean" : "bool", Pick({"f", "0", "no", ""}));
            case 's':
                return Element("string", Pick({"a&amp;b", "", "t<!--c-->u", "<![CDATA[c]]>"}));
            case 'S': {
                std::string text = "<structure typeName=\"" + Pick({"", "T", "T", "T"}) + "\">";
                for (char field = 'a' + Below(4); field > 'a'; --field) {
                    text += Filler() + "<field name=\"" + std::string(Chance(5) ? 0 : 1, field) +
                            "\">" + Value(depth + 1) + "</field>";
                }
                return text + "</structure>";
            }
            default: {
                std::string type = Pick({"int", "string", "structure", "structure", "list"});
                std::string text = "<list type=\"" + type + "\">";
                for (size_t items = Below(5); items > 0; --items) {
                    text += Filler() + Value(depth + 1, Chance(10)            ? 0
                                                        : type == "structure" ? 'S'
                                                                              : type[0]);
                }
                return text + "</list>";
            }
        }
    }

    std::string Element(std::string const& tag, std::string const& content) {
        return content.empty() && Chance(50) ? "<" + tag + "/>"
                                             : "<" + tag + ">" + content + "</" + tag + ">";
    }
    std::string Filler() { return Pick({"", "", "\n  ", "<!-- c -->", "<?pi x?>"}); }
    std::string Pick(std::vector<std::string> const& choices) {
        return choices[Below(choices.size())];
    }
    size_t Below(size_t bound) {
        return std::uniform_int_distribution<size_t>(0, bound - 1)(random);
    }
    bool Chance(int percent) { return Below(100) < static_cast<size_t>(percent); }

    std::mt19937 random;
};

TEST_F(OutputReaderDifferentialTest, GeneratedDocuments) {
    DocumentGenerator generator(20240611u);
    int readable = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string document = generator.Document();
        ExpectSame(document);
        ExpectSame(generator.Damage(document));
        std::string outcome = Outcome(TreeParse, document);
        readable += outcome != "<none>" && outcome.compare(0, 7, "throws:") != 0;
    }
    // The generator must keep producing readable documents, or the comparison proves little.
    EXPECT_GT(readable, 300);
}

}  // namespace
