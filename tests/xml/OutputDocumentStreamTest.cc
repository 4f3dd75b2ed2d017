#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/ThrownMessage.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"
#include "xml/OutputDocumentReader.h"

using namespace Tindra::AutoCli;
using Tindra::MetaObj::MetaList;
using Tindra::MetaObj::MetaObject;
using Tindra::MetaObj::MetaStruct;

namespace {

std::shared_ptr<MetaObject> ReadInPiecesOf(std::string const& text, size_t size) {
    OutputDocumentStream stream;
    for (size_t at = 0; at < text.size(); at += size) {
        stream.Feed(text.data() + at, std::min(size, text.size() - at));
    }
    return stream.Finish();
}

std::string Items(std::shared_ptr<MetaObject> const& value) {
    if (!value) {
        return "<none>";
    }
    std::string text;
    for (auto const& item : std::static_pointer_cast<MetaList>(value)->GetObjects()) {
        text +=
            item->ToString().substr(0, 20) + "(" + std::to_string(item->ToString().size()) + ");";
    }
    return text;
}

// libxml2 cuts a text node over its limit short and reads on as if nothing had happened; the
// value would lose its end and every item after it.
TEST(OutputDocumentStreamTest, RefusesTextNodesOverTheLimitRatherThanCuttingThem) {
    auto document = [](size_t length, std::string const& piece) {
        std::string const start = "<output><list type=\"string\"><string>";
        std::string text = start;
        while (text.size() < start.size() + length) {
            text += piece;
        }
        return text + "</string><string>b</string><string>c</string></list></output>";
    };
    EXPECT_EQ(Items(XmlUtil_ParseXmlOutput(document(10000000, "x"))),
              "xxxxxxxxxxxxxxxxxxxx(10000000);b(1);c(1);");
    EXPECT_EQ(Items(XmlUtil_ParseXmlOutput(document(12000000, "x"))), "<none>");
    // 11 of each 16 bytes are left once line ends and references are read.
    EXPECT_EQ(Items(XmlUtil_ParseXmlOutput(document(16000000, "x\r\ny &amp; z \xc3\xa9"))),
              "<none>");
    std::string const cdata =
        "<o><string><![CDATA[" + std::string(10000001, 'y') + "]]></string></o>";
    EXPECT_EQ(ReadInPiecesOf(cdata, 65536), nullptr);
}

// A zero character after the root element ends the text, as for libxml2's memory reader;
// anywhere before, it spoils the document.
TEST(OutputDocumentStreamTest, EndsAtAZeroCharacterAfterTheRoot) {
    std::string const trailing("<o><string>x</string></o>\n<!--c-->\0junk", 39);
    for (size_t size : {1, 2, 5, 1000}) {
        auto value = ReadInPiecesOf(trailing, size);
        ASSERT_NE(value, nullptr) << size;
        EXPECT_EQ(value->ToString(), "x");
    }
    EXPECT_EQ(XmlUtil_ParseXmlOutput(std::string("<o><string>a\0b</string></o>", 27)), nullptr);
    EXPECT_EQ(XmlUtil_ParseXmlOutput(std::string("\0<o/>", 5)), nullptr);
    // In UTF-16 the zero character is two zero bytes.
    std::string const wide(
        "\xff\xfe<\0o\0>\0<\0s\0t\0r\0i\0n\0g\0>\0\xe9\0<\0/\0s\0t\0r\0i\0n\0g\0>\0<\0/"
        "\0o\0>\0\0\0j\0",
        56);
    for (size_t size : {1, 3, 56}) {
        auto value = ReadInPiecesOf(wide, size);
        ASSERT_NE(value, nullptr) << size;
        EXPECT_EQ(value->ToString(), "\xc3\xa9");
    }
}

// Pieces end inside names, references, multi-byte characters and CDATA sections; the value and
// the first error are those of the whole text.
TEST(OutputDocumentStreamTest, ReadsADocumentArrivingInPiecesAsTheWholeText) {
    std::string const rows =
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<!DOCTYPE o [<!ENTITY t \"Disk\">]>\n"
        "<output><list type=\"structure\">\n"
        "  <structure typeName=\"&t;\"><field name=\"Name\"><string>caf\xe9 &amp; <![CDATA[<b>]]>"
        "<!--c--></string></field><field name=\"Size\"><int> 7kB</int></field></structure>\n"
        "  <structure typeName=\"Disk\"><field name=\"Name\"><string>a<!--x-->b</string></field>"
        "<field name=\"Size\"><int>-1</int></field></structure>\n"
        "</list></output>\n";
    std::string const bad = "<o><list type=\"int\"><int>1</int><int>x</int></list></o>";
    for (size_t size : {1, 2, 7, 4096}) {
        auto value = ReadInPiecesOf(rows, size);
        ASSERT_NE(value, nullptr) << size;
        auto const& items = std::static_pointer_cast<MetaList>(value)->GetObjects();
        ASSERT_EQ(items.size(), 2u);
        auto first = std::static_pointer_cast<MetaStruct>(items[0]);
        EXPECT_EQ(first->GetTypeName(), "Disk");
        EXPECT_EQ(first->GetField("Name")->ToString(), "c");
        EXPECT_EQ(first->GetField("Size")->ToString(), "7");
        auto second = std::static_pointer_cast<MetaStruct>(items[1]);
        EXPECT_EQ(second->GetField("Name")->ToString(), "b");
        EXPECT_NE(ThrownMessage([&] {
                      ReadInPiecesOf(bad, size);
                  }).find("Error was : Unable to read an int value from: 'x'"),
                  std::string::npos);
    }
}

}  // namespace
