#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/formatters/JsonFormatter.h"
#include "tindra/autocli/formatters/PythonFormatter.h"
#include "tindra/autocli/formatters/TableFormatter.h"
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

std::shared_ptr<MetaStruct> StructInList() {
    auto item = MetaStruct::New("I");
    item->SetField("A", true);
    auto items = MetaList::New(MetaType::Struct, item);
    items->Add(item);
    auto root = MetaStruct::New("R");
    root->SetField("L", items);
    return root;
}

TEST(JsonAndPythonFormatters, Layouts) {
    struct Case {
        std::shared_ptr<MetaObject> root;
        char const* json;
        char const* python;
    } const cases[] = {
        {ExampleDisk(),
         "\n{\n   \"Name\": \"sda\",\n   \"Paths\": \n   [\n   \"a\", \n   \"b\"\n   ],\n"
         "   \"Size\": 512\n}\n",
         "{\"Name\": \"\"\"sda\"\"\", \"Paths\": [\"\"\"a\"\"\", \"\"\"b\"\"\", ], \"Size\": 512, "
         "}\n"},
        // Structures in lists start on their own line.
        {StructInList(),
         "\n{\n   \"L\": \n   [\n   \n            {\n               \"A\": true\n"
         "            }\n   ]\n}\n",
         "{\"L\": [{\"A\": True, }, ], }\n"},
        {MetaInt::New(-42), "-42\n", "-42\n"},
        {MetaBool::New(true), "true\n", "True\n"},
        {MetaString::New("a/b\t\x7f\xc3\"\\\b\f\r\n\x0b z"),
         "\"a\\/b\\t\\u007f\\u00c3\\\"\\\\\\b\\f\\r\\n\\u000b z\"\n",
         "\"\"\"a/b\t\x7f\xc3\\\"\\\b\f\r\\n\x0b z\"\"\"\n"},
        {MetaStruct::New("E"), "\n{\n}\n", "{}\n"},
        {MetaList::New(MetaType::Bool), "\n[\n]\n", "[]\n"},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(Render<JsonFormatter>(c.root), c.json);
        EXPECT_EQ(Render<PythonFormatter>(c.root), c.python);
    }
    EXPECT_EQ(ThrownMessage([] { Render<PythonFormatter>(nullptr); }),
              "Invalid MetaObject passed to Format in PythonFormatter");
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

// Data and parameters are escaped; the stylesheet reference is written as given.
TEST(XmlFormatter, DocumentLayoutAndEscapes) {
    auto disk = MetaStruct::New("Disk");
    disk->SetField("Name", "sda");
    disk->SetField("Size", 512L);
    EXPECT_EQ(Render<XmlFormatter>(disk, Params({{"stylesheet", "disk.xsl"}})),
              Document("<?xml-stylesheet type=\"text/xsl\" href=\"disk.xsl\"?>\n",
                       "      <meta-data-field name=\"stylesheet\" value=\"disk.xsl\"/>\n",
                       "      <structure typeName=\"Disk\">\n"
                       "         <field name=\"Name\">\n"
                       "            <string>sda</string>\n"
                       "         </field>\n"
                       "         <field name=\"Size\">\n"
                       "            <integer>512</integer>\n"
                       "         </field>\n"
                       "      </structure>\n"));
    EXPECT_EQ(SantizeString("a<b & \"c\" 50%'>&amp;\x01\xc3"),
              "a&lt;b &amp; &quot;c&quot; 50&#37;&apos;&gt;&amp;amp;\x01\xc3");
    auto odd = MetaStruct::New("T");
    odd->SetField("<f>", "it's");
    EXPECT_EQ(Render<XmlFormatter>(odd, Params({{"stylesheet", "a\"b"}, {"k&", "<v>"}})),
              Document("<?xml-stylesheet type=\"text/xsl\" href=\"a\"b\"?>\n",
                       "      <meta-data-field name=\"k&amp;\" value=\"&lt;v&gt;\"/>\n"
                       "      <meta-data-field name=\"stylesheet\" value=\"a&quot;b\"/>\n",
                       "      <structure typeName=\"T\">\n         <field name=\"&lt;f&gt;\">\n"
                       "            <string>it&apos;s</string>\n         </field>\n"
                       "      </structure>\n"));
    EXPECT_EQ(Render<XmlFormatter>(MetaBool::New(false)),
              Document("", "", "      <boolean>false</boolean>\n"));
}

TEST(XmlFormatter, ValuesAtALevel) {
    auto numbers = MetaList::New(MetaType::Int);
    numbers->AddAll(std::vector<long>{-1, 2});
    std::tuple<std::shared_ptr<MetaObject>, int, char const*> const cases[] = {
        {MetaList::New(MetaType::String), 2, "      <list type=\"string\">\n      </list>\n"},
        {numbers, 1,
         "   <list type=\"integer\">\n         <integer>-1</integer>\n"
         "         <integer>2</integer>\n   </list>\n"},
        {Disks(false), 0, "<list type=\"structure\">\n</list>\n"},
        {MetaString::New("two\nlines"), -3, "<string>two\nlines</string>\n"},
    };
    for (auto const& [value, level, expected] : cases) {
        EXPECT_EQ(XmlValue(value, level), expected);
    }
}

// Carries the tag of an integer without being one: formatters must look at the class, not only
// at the tag, before reading a value as an integer.
class Impostor final : public MetaObject {
public:
    Impostor() : MetaObject(MetaType::Int) {}
    std::string ToString() const override { return "impostor"; }
};

TEST(KindChecks, TagThatDisagreesWithTheClass) {
    auto const impostor = std::make_shared<Impostor>();
    EXPECT_EQ(Render<JsonFormatter>(impostor), "Error reading a int\n\n");
    EXPECT_EQ(XmlValue(impostor, 2), "Error reading a int\n");
    // A table cell shows the value's own text, aligned as its tag says.
    auto row = MetaStruct::New("Odd");
    row->SetField("N", std::shared_ptr<MetaObject>(impostor));
    auto rows = MetaList::New(MetaType::Struct, row);
    rows->Add(row);
    EXPECT_EQ(Render<TableFormatter>(rows, Params({{"fields", "N,N"}})),
              "N         N\n--------  -\nimpostor  impostor  \n");
}

}  // namespace
}  // namespace FormatterTest
