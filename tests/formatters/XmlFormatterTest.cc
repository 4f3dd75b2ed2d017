#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "tindra/autocli/formatters/XmlFormatter.h"

namespace FormatterTest {
namespace {

std::string const kDocumentStart =
    "<?xml version=\"1.0\"?>\n"
    "<output xmlns:ostrel=\"urn:tindra:ostrel:output:1\">\n";

std::string Xml(std::shared_ptr<MetaObject> const& root,
                FormatParameters params = FormatParameters()) {
    XmlFormatter formatter;
    return Render(formatter, root, std::move(params));
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
    EXPECT_EQ(Xml(disk, Params({{"stylesheet", "disk.xsl"}})),
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
    EXPECT_EQ(Xml(odd, Params({{"stylesheet", "a\"b"}, {"k&", "<v>"}})),
              "<?xml version=\"1.0\"?>\n"
              "<?xml-stylesheet type=\"text/xsl\" href=\"a\"b\"?>\n"
              "<output xmlns:ostrel=\"urn:tindra:ostrel:output:1\">\n"
              "   <meta-data>\n"
              "      <meta-data-field name=\"k&amp;\" value=\"&lt;v&gt;\"/>\n"
              "      <meta-data-field name=\"stylesheet\" value=\"a&quot;b\"/>\n"
              "   </meta-data>\n"
              "   <root>\n"
              "      <structure typeName=\"T\">\n"
              "         <field name=\"&lt;f&gt;\">\n"
              "            <string>it&apos;s</string>\n"
              "         </field>\n"
              "      </structure>\n"
              "   </root>\n"
              "</output>\n");
}

TEST(XmlFormatter, ScalarsAndLists) {
    EXPECT_EQ(Xml(MetaBool::New(false)),
              kDocumentStart +
                  "   <meta-data>\n   </meta-data>\n   <root>\n"
                  "      <boolean>false</boolean>\n   </root>\n</output>\n");
    EXPECT_EQ(XmlValue(MetaList::New(MetaType::String), 2),
              "      <list type=\"string\">\n      </list>\n");
    auto numbers = MetaList::New(MetaType::Int);
    numbers->Add(-1L);
    numbers->Add(2L);
    EXPECT_EQ(XmlValue(numbers, 1),
              "   <list type=\"integer\">\n         <integer>-1</integer>\n"
              "         <integer>2</integer>\n   </list>\n");
    EXPECT_EQ(XmlValue(Disks(false), 0), "<list type=\"structure\">\n</list>\n");
    EXPECT_EQ(XmlValue(MetaString::New("two\nlines"), -3), "<string>two\nlines</string>\n");
}

}  // namespace
}  // namespace FormatterTest
