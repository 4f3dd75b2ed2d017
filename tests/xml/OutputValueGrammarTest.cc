#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <string>

#include "support/ThrownMessage.h"
#include "tindra/metaobj/MetaObject.h"
#include "xml/OutputDocumentReader.h"
#include "xml/ValueGrammar.h"

using namespace Tindra::AutoCli;

namespace {

// The integer reader agrees with stream extraction, which gives "fail" where it fails.
TEST(OutputValueGrammarTest, IntsReadAsStreamExtractionReadsThem) {
    auto expectSame = [](std::string const& text) {
        std::istringstream in(text);
        long byStream = 0, byGrammar = 0;
        in >> byStream;
        std::string stream = in.fail() ? "fail" : std::to_string(byStream);
        bool read = ReadLeadingInt(text, byGrammar);
        ASSERT_EQ(stream, read ? std::to_string(byGrammar) : "fail") << "text: [" << text << "]";
    };
    // Kinds of blank and lengths the random texts below do not reach.
    for (std::string text :
         {"\t\n\v\f\r-3", "\2405", "9223372036854775807", "9223372036854775808",
          "-9223372036854775808", "-9223372036854775809", "000000000000000000000000001"}) {
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

// What the stream reads; the output_document fuzz target holds it to the tree reading.
TEST(OutputValueGrammarTest, ValuesAndTheBuildErrorOfADocumentInPieces) {
    auto readInPieces = [](std::string const& text, size_t size) {
        OutputDocumentStream stream;
        for (size_t at = 0; at < text.size(); at += size) {
            stream.Feed(text.data() + at, std::min(size, text.size() - at));
        }
        return stream.Finish();
    };
    std::string const rows =
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<!DOCTYPE o [<!ENTITY t \"Disk\">]>\n"
        "<output><list type=\"structure\">\n"
        "  <structure typeName=\"&t;\"><field name=\"Name\"><string>caf\xe9 &amp; <![CDATA[<b>]]>"
        "<!--c--></string></field><field name=\"Size\"><int> 7kB</int></field></structure>\n"
        "<structure typeName=\"Disk\"><field name=\"Name\"><string>b</string></field>"
        "<field name=\"Size\"><int>-1</int></field></structure>"
        "</list></output>\n";
    for (size_t size : {1, 4096}) {
        auto value = readInPieces(rows, size);
        ASSERT_NE(value, nullptr) << size;
        // Of a string's children, the last with content counts; the entity gives both items
        // one type name, as a list requires.
        EXPECT_EQ("{'Name' => 'c', 'Size' => '7', }, {'Name' => 'b', 'Size' => '-1', }",
                  value->ToString());
    }
    EXPECT_EQ(ThrownMessage([&] {
                  readInPieces("<o><list type=\"int\"><int>1</int><int>x</int></list></o>", 3);
              }),
              "Error parsing command output.  Unable to build a proper metaobject from output "
              "tag.  output must contain properly formatted tags of type bool, int, string, "
              "structure and list. Error was : Unable to read an int value from: 'x'");
}

}  // namespace
