#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/formatters/JsonFormatter.h"
#include "tindra/autocli/formatters/PythonFormatter.h"
#include "tindra/autocli/formatters/XmlFormatter.h"

namespace FormatterTest {
namespace {

std::shared_ptr<MetaStruct> ExampleDisk() {
    auto disk = MetaStruct::New("Disk");
    disk->SetField("Name", "sda");
    disk->SetField("Paths", std::vector<std::string>{"a", "b"});
    disk->SetField("Size", 512L);
    return disk;
}

auto const Json = [](std::shared_ptr<MetaObject> const& root) {
    return Render<JsonFormatter>(root);
};
auto const Python = [](std::shared_ptr<MetaObject> const& root) {
    return Render<PythonFormatter>(root);
};

TEST(JsonFormatter, Example) {
    EXPECT_EQ(Json(ExampleDisk()),
              "\n{\n   \"Name\": \"sda\",\n   \"Paths\": \n   [\n   \"a\", \n   \"b\"\n   ],\n"
              "   \"Size\": 512\n}\n");
}

TEST(JsonFormatter, NestingScalarsAndEscapes) {
    auto item = MetaStruct::New("I");
    item->SetField("A", true);
    auto items = MetaList::New(MetaType::Struct, item);
    items->Add(item);
    auto root = MetaStruct::New("R");
    root->SetField("L", items);
    // Structures in lists start on their own line.
    EXPECT_EQ(Json(root),
              "\n{\n   \"L\": \n   [\n   \n            {\n               \"A\": true\n"
              "            }\n   ]\n}\n");
    EXPECT_EQ(Json(MetaInt::New(-42)), "-42\n");
    EXPECT_EQ(Json(MetaString::New("a/b\t\x7f\xc3\"\\\b\f\r\n\x0b z")),
              "\"a\\/b\\t\\u007f\\u00c3\\\"\\\\\\b\\f\\r\\n\\u000b z\"\n");
    EXPECT_EQ(Json(MetaStruct::New("E")), "\n{\n}\n");
    EXPECT_EQ(Json(MetaList::New(MetaType::Bool)), "\n[\n]\n");
}

TEST(PythonFormatter, Example) {
    EXPECT_EQ(Python(ExampleDisk()),
              "{\"Name\": \"\"\"sda\"\"\", \"Paths\": [\"\"\"a\"\"\", \"\"\"b\"\"\", ], "
              "\"Size\": 512, }\n");
}

TEST(PythonFormatter, ScalarsEscapesAndMissingValue) {
    EXPECT_EQ(Python(MetaString::New("\"hi\"\nC:\\x")), "\"\"\"\\\"hi\\\"\\nC:\\x\"\"\"\n");
    EXPECT_EQ(Python(MetaBool::New(true)), "True\n");
    EXPECT_EQ(Python(MetaStruct::New("E")), "{}\n");
    EXPECT_EQ(Python(MetaList::New(MetaType::Int)), "[]\n");
    EXPECT_EQ(ThrownMessage([] { Python(nullptr); }),
              "Invalid MetaObject passed to Format in PythonFormatter");
    EXPECT_TRUE(PythonFormatter::IsAllAscii("plain \x7f"));
    EXPECT_FALSE(PythonFormatter::IsAllAscii("caf\xc3\xa9"));
}

std::string Document(std::string const& stylesheet, std::string const& meta,
                     std::string const& root) {
    return "<?xml version=\"1.0\"?>\n" + stylesheet +
           "<output xmlns:ostrel=\"urn:tindra:ostrel:output:1\">\n   <meta-data>\n" + meta +
           "   </meta-data>\n   <root>\n" + root + "   </root>\n</output>\n";
}

std::string XmlValue(std::shared_ptr<MetaObject> const& value, int level) {
    std::ostringstream out;
    XmlFormatter().Format(value, out, level);
    return out.str();
}

TEST(XmlFormatter, DiskExample) {
    auto disk = MetaStruct::New("Disk");
    disk->SetField("Name", "sda");
    disk->SetField("Size", 512L);
    EXPECT_EQ(Render<XmlFormatter>(disk, Params({{"stylesheet", "disk.xsl"}})),
              "<?xml version=\"1.0\"?>\n"
              "<?xml-stylesheet type=\"text/xsl\" href=\"disk.xsl\"?>\n"
              "<output xmlns:ostrel=\"urn:tindra:ostrel:output:1\">\n"
              "   <meta-data>\n"
              "      <meta-data-field name=\"stylesheet\" value=\"disk.xsl\"/>\n"
              "   </meta-data>\n"
              "   <root>\n"
              "      <structure typeName=\"Disk\">\n"
              "         <field name=\"Name\">\n"
              "            <string>sda</string>\n"
              "         </field>\n"
              "         <field name=\"Size\">\n"
              "            <integer>512</integer>\n"
              "         </field>\n"
              "      </structure>\n"
              "   </root>\n"
              "</output>\n");
}

TEST(XmlFormatter, EscapesDataButNotTheStylesheet) {
    EXPECT_EQ(SantizeString("a<b & \"c\" 50%"), "a&lt;b &amp; &quot;c&quot; 50&#37;");
    EXPECT_EQ(SantizeString("'>&amp;\x01\xc3"), "&apos;&gt;&amp;amp;\x01\xc3");
    auto odd = MetaStruct::New("T");
    odd->SetField("<f>", "it's");
    EXPECT_EQ(Render<XmlFormatter>(odd, Params({{"stylesheet", "a\"b"}, {"k&", "<v>"}})),
              Document("<?xml-stylesheet type=\"text/xsl\" href=\"a\"b\"?>\n",
                       "      <meta-data-field name=\"k&amp;\" value=\"&lt;v&gt;\"/>\n"
                       "      <meta-data-field name=\"stylesheet\" value=\"a&quot;b\"/>\n",
                       "      <structure typeName=\"T\">\n         <field name=\"&lt;f&gt;\">\n"
                       "            <string>it&apos;s</string>\n         </field>\n"
                       "      </structure>\n"));
}

TEST(XmlFormatter, ScalarsAndLists) {
    EXPECT_EQ(Render<XmlFormatter>(MetaBool::New(false)),
              Document("", "", "      <boolean>false</boolean>\n"));
    EXPECT_EQ(XmlValue(MetaList::New(MetaType::String), 2),
              "      <list type=\"string\">\n      </list>\n");
    auto numbers = MetaList::New(MetaType::Int);
    numbers->AddAll(std::vector<long>{-1, 2});
    EXPECT_EQ(XmlValue(numbers, 1),
              "   <list type=\"integer\">\n         <integer>-1</integer>\n"
              "         <integer>2</integer>\n   </list>\n");
    EXPECT_EQ(XmlValue(Disks(false), 0), "<list type=\"structure\">\n</list>\n");
    EXPECT_EQ(XmlValue(MetaString::New("two\nlines"), -3), "<string>two\nlines</string>\n");
}

}  // namespace
}  // namespace FormatterTest
