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

// The text reader allows empty repeats; finding the node rejects any repeat.
TEST(XmlNodeReadersTest, OneChildByTag) {
    std::string text = "<d><name/><name>second</name><a>1</a><b/><b/></d>";
    std::unique_ptr<xmlDoc, DocFree> doc(xmlReadMemory(text.data(), text.size(), "t", nullptr, 0));
    xmlNode* root = xmlDocGetRootElement(doc.get());
    EXPECT_EQ("second", XmlUtil_GetContentForChildByTag(root, "name"));
    EXPECT_EQ("", XmlUtil_GetContentForChildByTag(root, std::string("absent")));
    ASSERT_NE(nullptr, XmlUtil_FindChildNode(root, "a"));
    EXPECT_EQ("1", XmlUtil_GetContent(XmlUtil_FindChildNode(root, "a")));
    EXPECT_EQ(nullptr, XmlUtil_FindChildNode(root, std::string("c")));
    EXPECT_EQ("More than one instance of b found, expected only one.",
              ThrownMessage([&] { XmlUtil_FindChildNode(root, "b"); }));
    text = "<d><name>first</name><name>second</name></d>";
    doc.reset(xmlReadMemory(text.data(), text.size(), "t", nullptr, 0));
    EXPECT_EQ(
        "Illegal Duplicate tags found.  The tag name was expected only once, but was found "
        "multiple times.",
        ThrownMessage(
            [&] { XmlUtil_GetContentForChildByTag(xmlDocGetRootElement(doc.get()), "name"); }));
}

// The integer reader agrees with stream extraction, which gives "fail" where it fails.
TEST(ReadLeadingIntTest, AgreesWithStreamExtraction) {
    auto expectSame = [](std::string const& text) {
        std::istringstream in(text);
        long byStream = 0, byGrammar = 0;
        in >> byStream;
        std::string stream = in.fail() ? "fail" : std::to_string(byStream);
        bool read = ReadLeadingInt(text, byGrammar);
        ASSERT_EQ(stream, read ? std::to_string(byGrammar) : "fail") << "text: [" << text << "]";
    };
    // clang-format off
    for (std::string text : {"0", "12abc", " 7", "\t\n\v\f\r-3", "+5", "-", "+", "+-5", "- 5",
                             "0x10", "007", "9223372036854775807", "9223372036854775808",
                             "-9223372036854775808", "-9223372036854775809",
                             "99999999999999999999999", "000000000000000000000000001", "1 2",
                             "\xa0" "5", "abc", " ", "", "1e5", "-0"}) {
        // clang-format on
        expectSame(text);
    }
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (size_t length = random() % 24; length > 0; --length) {
            text += "0123456789+- \tx9"[random() % 16];
        }
        expectSame(text);
    }
}

}  // namespace
