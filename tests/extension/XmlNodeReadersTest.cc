#include <gtest/gtest.h>
#include <libxml/parser.h>

#include <memory>
#include <random>
#include <sstream>
#include <string>

#include "autocli/extension/ValueGrammar.h"
#include "autocli/extension/XmlUtil.h"
#include "support/ThrownMessage.h"

using namespace Tindra::AutoCli;

namespace {

struct DocFree {
    void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
};

class XmlNodeReadersTest : public ::testing::Test {
protected:
    xmlNode* Root(std::string const& text) {
        doc.reset(xmlReadMemory(text.data(), static_cast<int>(text.size()), "t", nullptr, 0));
        EXPECT_TRUE(doc) << text;
        return doc ? xmlDocGetRootElement(doc.get()) : nullptr;
    }

    std::unique_ptr<xmlDoc, DocFree> doc;
};

TEST_F(XmlNodeReadersTest, AttributeIsEmptyWhenMissing) {
    xmlNode* root = Root("<d a=\"x &amp; y\" e=\"\"/>");
    EXPECT_EQ("x & y", XmlUtil_ExtractAttribute(root, "a"));
    EXPECT_EQ("", XmlUtil_ExtractAttribute(root, std::string("e")));
    EXPECT_EQ("", XmlUtil_ExtractAttribute(root, "missing"));
}

TEST_F(XmlNodeReadersTest, ContentIsLastTextCdataOrCommentChild) {
    EXPECT_EQ("def", XmlUtil_GetContent(Root("<s>abc<!--x-->def</s>")));
    EXPECT_EQ(" x ", XmlUtil_GetContent(Root("<s>abc<!-- x --><e>inner</e></s>")));
    EXPECT_EQ("c", XmlUtil_GetContent(Root("<s>a<![CDATA[c]]></s>")));
    EXPECT_EQ("", XmlUtil_GetContent(Root("<s><e>inner</e></s>")));
    EXPECT_EQ("", XmlUtil_GetContent(Root("<s/>")));
}

TEST_F(XmlNodeReadersTest, OneChildByTag) {
    // The text reader allows empty repeats; finding the node rejects any repeat.
    xmlNode* root = Root("<d><name/><name>second</name><a>1</a><b/><b/></d>");
    EXPECT_EQ("second", XmlUtil_GetContentForChildByTag(root, "name"));
    EXPECT_EQ("", XmlUtil_GetContentForChildByTag(root, std::string("absent")));
    xmlNode* found = XmlUtil_FindChildNode(root, "a");
    ASSERT_NE(nullptr, found);
    EXPECT_EQ("1", XmlUtil_GetContent(found));
    EXPECT_EQ(nullptr, XmlUtil_FindChildNode(root, std::string("c")));
    EXPECT_EQ("More than one instance of b found, expected only one.",
              ThrownMessage([&] { XmlUtil_FindChildNode(root, "b"); }));
    root = Root("<d><name>first</name><name>second</name></d>");
    EXPECT_EQ(
        "Illegal Duplicate tags found.  The tag name was expected only once, but was found "
        "multiple times.",
        ThrownMessage([&] { XmlUtil_GetContentForChildByTag(root, "name"); }));
}

std::string ByStream(std::string const& text) {
    std::istringstream in(text);
    long value = 0;
    in >> value;
    return in.fail() || in.bad() ? "fail" : std::to_string(value);
}

std::string ByGrammar(std::string const& text) {
    long value = 0;
    return ReadLeadingInt(text, value) ? std::to_string(value) : "fail";
}

TEST(ReadLeadingIntTest, AgreesWithStreamExtraction) {
    // clang-format off
    for (std::string text : {"0", "12abc", " 7", "\t\n\v\f\r-3", "+5", "-", "+", "+-5", "- 5",
                             "0x10", "007", "9223372036854775807", "9223372036854775808",
                             "-9223372036854775808", "-9223372036854775809",
                             "99999999999999999999999", "000000000000000000000000001", "1 2",
                             "\xa0" "5", "abc", " ", "", "1e5", "-0"}) {
        // clang-format on
        EXPECT_EQ(ByStream(text), ByGrammar(text)) << "text: [" << text << "]";
    }
    std::mt19937 random(7);
    std::string const alphabet = "0123456789+- \tx9";
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        size_t length = random() % 24;
        for (size_t j = 0; j < length; ++j) {
            text += alphabet[random() % alphabet.size()];
        }
        ASSERT_EQ(ByStream(text), ByGrammar(text)) << "text: [" << text << "]";
    }
}

}  // namespace
