#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/formatters/JsonFormatter.h"
#include "tindra/autocli/formatters/PythonFormatter.h"
#include "tindra/autocli/formatters/SimpleFormatter.h"
#include "tindra/autocli/formatters/TableFormatter.h"
#include "tindra/autocli/formatters/XmlFormatter.h"

namespace FormatterTest {
namespace {

TEST(JsonAndPythonFormatters, Layouts) {
    auto disk =
        Struct("Disk", "Name", "sda", "Paths", std::vector<std::string>{"a", "b"}, "Size", 512L);
    auto structInList = Struct("R", "L", ListOf({Struct("I", "A", true)}));
    struct Case {
        std::shared_ptr<MetaObject> root;
        char const* json;
        char const* python;
    } const cases[] = {
        {disk,
         "\n{\n   \"Name\": \"sda\",\n   \"Paths\": \n   [\n   \"a\", \n   \"b\"\n   ],\n"
         "   \"Size\": 512\n}\n",
         "{\"Name\": \"\"\"sda\"\"\", \"Paths\": [\"\"\"a\"\"\", \"\"\"b\"\"\", ], \"Size\": 512, "
         "}\n"},
        // Structures in lists start on their own line.
        {structInList,
         "\n{\n   \"L\": \n   [\n   \n            {\n               \"A\": true\n"
         "            }\n   ]\n}\n",
         "{\"L\": [{\"A\": True, }, ], }\n"},
        {MetaString::New("a/b\t\x7f\xc3\"\\\b\f\r\n\x0b z"),
         "\"a\\/b\\t\\u007f\\u00c3\\\"\\\\\\b\\f\\r\\n\\u000b z\"\n",
         "\"\"\"a/b\t\x7f\xc3\\\"\\\b\f\r\\n\x0b z\"\"\"\n"},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(Render<JsonFormatter>(c.root), c.json);
        EXPECT_EQ(Render<PythonFormatter>(c.root), c.python);
    }
    EXPECT_EQ(ThrownMessage([] { Render<PythonFormatter>(nullptr); }),
              "Invalid MetaObject passed to Format in PythonFormatter");
    EXPECT_FALSE(PythonFormatter::IsAllAscii("caf\xc3\xa9"));
}

std::string XmlValue(std::shared_ptr<MetaObject> const& value, int level) {
    std::ostringstream out;
    XmlFormatter().Format(value, out, level);
    return out.str();
}

// Carries the tag of an integer without being one: formatters must look at the class, not only
// at the tag, before reading a value as an integer.
class Impostor final : public MetaObject {
public:
    Impostor() : MetaObject(MetaType::Int) {}
    std::string ToString() const override { return "impostor"; }
};

// Data and parameters are escaped; the stylesheet reference is written as given.
TEST(XmlFormatter, DocumentLayoutEscapesAndKindChecks) {
    auto disk = Struct("Disk", "<f>", "it's", "Size", 512L);
    EXPECT_EQ(Render<XmlFormatter>(disk, Params({{"stylesheet", "a\"b"}, {"k&", "<v>"}})),
              "<?xml version=\"1.0\"?>\n<?xml-stylesheet type=\"text/xsl\" href=\"a\"b\"?>\n"
              "<output xmlns:ostrel=\"urn:tindra:ostrel:output:1\">\n"
              "   <meta-data>\n"
              "      <meta-data-field name=\"k&amp;\" value=\"&lt;v&gt;\"/>\n"
              "      <meta-data-field name=\"stylesheet\" value=\"a&quot;b\"/>\n"
              "   </meta-data>\n   <root>\n"
              "      <structure typeName=\"Disk\">\n"
              "         <field name=\"&lt;f&gt;\">\n"
              "            <string>it&apos;s</string>\n"
              "         </field>\n"
              "         <field name=\"Size\">\n"
              "            <integer>512</integer>\n"
              "         </field>\n"
              "      </structure>\n   </root>\n</output>\n");
    EXPECT_EQ(SantizeString("a<b & \"c\" 50%'>&amp;\x01\xc3"),
              "a&lt;b &amp; &quot;c&quot; 50&#37;&apos;&gt;&amp;amp;\x01\xc3");

    auto numbers = MetaList::New(MetaType::Int);
    numbers->AddAll(std::vector<long>{-1, 2});
    EXPECT_EQ(XmlValue(numbers, 1),
              "   <list type=\"integer\">\n         <integer>-1</integer>\n"
              "         <integer>2</integer>\n   </list>\n");
    EXPECT_EQ(XmlValue(MetaBool::New(false), 0), "<boolean>false</boolean>\n");
    EXPECT_EQ(XmlValue(MetaList::New(MetaType::Struct, Disk("", 0, "")), 0),
              "<list type=\"structure\">\n</list>\n");
    auto const impostor = std::make_shared<Impostor>();
    EXPECT_EQ(Render<JsonFormatter>(impostor), "Error reading a int\n\n");
    EXPECT_EQ(XmlValue(impostor, 2), "Error reading a int\n");
}

std::string Simple(std::shared_ptr<MetaObject> const& root, FormatParameters params = {}) {
    return Render<SimpleFormatter>(root, params);
}

TEST(SimpleFormatter, AdapterExampleNestingHeadersAndFieldLists) {
    auto adapters = ListOf({Struct("Adapter", "Name", "eth0", "Speed", 1000L),
                            Struct("Adapter", "Name", "eth1", "Speed", 100L)});
    EXPECT_EQ(Simple(adapters, Params({{"fields:Adapter", "Name,Speed"},
                                       {"units:Adapter.Speed", "Mbps"},
                                       {"align-fields", "true"}})),
              "\nAdapter:\n   Name : eth0\n   Speed: 1000 Mbps\n"
              "\nAdapter:\n   Name : eth1\n   Speed: 100 Mbps\n\n");

    auto host = Struct("Host", "Disk", Disk("sda", 512, "Fast disk"), "Disks",
                       ListOf({Disk("nvme0n1", 2048, "NV")}), "Name", "h1", "Tags",
                       std::vector<std::string>{"a", "b"});
    EXPECT_EQ(Simple(host),
              "Host:\n   Disk: \n      Disk:\n         Model: Fast disk\n         Name: sda\n"
              "         Size: 512\n   Disks: \n         Disk:\n            Model: NV\n"
              "            Name: nvme0n1\n            Size: 2048\n\n   Name: h1\n   Tags: a, b\n");
    EXPECT_EQ(Simple(MetaInt::New(-42)) + Simple(MetaBool::New(true)), "-42\ntrue\n");

    auto const disk = Disk("sda", 512, "Fast disk");
    // A type's own field list wins; a missing field stops the list.
    std::pair<FormatParameters, char const*> const cases[] = {
        {Params({{"header:Disk", "Disk %Name%"}, {"fields", "Name"}}), "Disk sda:\n   Name: sda\n"},
        {Params({{"header:Disk", "<NONE>"}, {"fields", "Name"}}), "   Name: sda\n"},
        {Params({{"header:Disk", "A %Nope% 100%"}, {"fields", "Name"}}),
         "A %Nope% 100%:\n   Name: sda\n"},
        {Params({{"fields:Disk", "Size,Name"}, {"fields", "Model"}}),
         "Disk:\n   Size: 512\n   Name: sda\n"},
        {Params({{"fields:Other", "Size"}, {"fields", "Model"}}), "Disk:\n   Model: Fast disk\n"},
        {Params({{"fields:Disk", "Name, Size,Model"}}),
         "Disk:\n   Name: sda\nError getting field  Size\n"},
    };
    for (auto const& [params, expected] : cases) {
        EXPECT_EQ(Simple(disk, params), expected);
    }
}

}  // namespace
}  // namespace FormatterTest
