#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "autocli/extension/XmlUtil.h"
#include "extension/ValueDescription.h"
#include "tindra/metaobj/MetaInt.h"

using Tindra::AutoCli::XmlUtil_ParseXmlOutput;
using namespace Tindra::MetaObj;

namespace {

std::string Read(std::string const& document) {
    return Outcome(XmlUtil_ParseXmlOutput, document);
}

std::string Fails(std::string const& message) {
    return "throws: " + kOutputWrap + message;
}

TEST(OutputReaderTest, NotWellFormedOrValuelessGivesNothing) {
    // A malformed document hides even the errors of building its value.
    for (std::string text :
         {"", "plain text", "<output>", "<output><string>x</string>", "<o></p>", "<o/>trailing",
          "<a/><b/>", "<o>&undefined;</o>", "<o><string>\xff\xfe</string></o>", "<output/>",
          "<output>\n  <!-- nothing -->\n  \n</output>", "<output><integer>1</integer></output",
          "<output><list type=\"int\"><string>x</string></list></output><"}) {
        EXPECT_EQ("<none>", Read(text)) << text;
    }
}

TEST(OutputReaderTest, FirstValueChildOfAnyRootIsRead) {
    EXPECT_EQ("String[abc]", Read("<?xml version=\"1.0\"?>\n<!-- pre -->\n<anything>\n"
                                  "  <!-- c --><text>skipped element</text>\n"
                                  "  <string>abc</string><integer>ignored</integer>\n"
                                  "</anything>\n<!-- post -->"));
}

std::string const kRow1 =
    "<structure typeName=\"R\"><field name=\"a\"><int>1</int></field>"
    "<field name=\"b\"><string>x</string></field></structure>";
std::string const kRow2 =
    "<structure typeName=\"R\"><field name=\"a\"><int>2</int></field>"
    "<field name=\"b\"><string>y</string></field></structure>";

// Each value element inside <output>, and what reading it gives.
std::vector<std::pair<std::string, std::string>> const kValues = {
    // Integers follow stream extraction, but empty text is zero.
    {"<int></int>", "Int(0)"},
    {"<int>-42xyz</int>", "Int(-42)"},
    {"<int>  </int>", Fails("Unable to read an int value from: '  '")},
    {"<int>9223372036854775808</int>",
     Fails("Unable to read an int value from: '9223372036854775808'")},
    // Only three spellings are false.
    {"<bool>0</bool>", "Bool(false)"},
    {"<bool>f</bool>", "Bool(false)"},
    {"<bool>false</bool>", "Bool(false)"},
    {"<bool>FALSE</bool>", "Bool(true)"},
    {"<bool>no</bool>", "Bool(true)"},
    {"<bool>1</bool>", "Bool(true)"},
    {"<bool></bool>", "Bool(true)"},
    {"<bool> false</bool>", "Bool(true)"},
    // The text is the last text, CDATA or comment child, entities resolved.
    {"<string>  a&amp;b&quot;&#65;  </string>", "String[  a&b\"A  ]"},
    {"<string>abc<!-- x --></string>", "String[ x ]"},
    {"<string><![CDATA[<raw> & ]]></string>", "String[<raw> & ]"},
    {"<structure typeName=\"Disk\"><field name=\"Size\"><int>512</int></field>"
     "<field name=\"Online\"><bool>true</bool></field><field name=\"Paths\"><list "
     "type=\"string\"><string>/a</string><string>/b</string></list></field></structure>",
     "Struct Disk{[Online]=Bool(true);[Paths]=List<String>(String[/a],String[/b],);"
     "[Size]=Int(512);}"},
    // A valueless field is dropped; a field's first value counts; other children are
    // ignored; a repeated name keeps the last value.
    {"<structure typeName=\"T\"><field name=\"empty\"> <!-- c --> </field>"
     "<other><field name=\"x\"><int>1</int></field></other>"
     "<field name=\"b\"><!-- c --><string>first</string><int>9</int></field>"
     "<field name=\"a\"><int>1</int></field><field name=\"a\"><int>2</int></field></structure>",
     "Struct T{[a]=Int(2);[b]=String[first];}"},
    {"<structure typeName=\"T\"><field/></structure>",
     Fails("Invalid <field> tag found.  <field> requires a 'name' attribute.")},
    {"<structure><field name=\"a\"><int>1</int></field></structure>",
     Fails("Invalid name specified for MetaStruct: ")},
    {"<list type=\"structure\"> </list>", "List<Struct>()"},
    {"<list type=\"int\"><int>1</int><!-- c --><int>2</int></list>", "List<Int>(Int(1),Int(2),)"},
    {"<list type=\"String\"/>",
     Fails("Invalid list type attribute.  Must be one of [string, int, bool, structure, list]")},
    {"<list type=\"list\"><list type=\"int\"/></list>", Fails("Struct type expected for list.")},
    {"<list type=\"int\"><int>1</int><string>x</string></list>",
     Fails("Invalid type specificed in MetaList.  Expected object of type Int got object of type "
           "String")},
    {"<list type=\"structure\">" + kRow1 + kRow2 + "</list>",
     "List<Struct of Struct R{[a]=Int(1);[b]=String[x];}>(Struct R{[a]=Int(1);[b]=String[x];},"
     "Struct R{[a]=Int(2);[b]=String[y];},)"},
    {"<list type=\"structure\">" + kRow1 +
         "<structure typeName=\"R\"><field name=\"a\"><int>3</int></field></structure></list>",
     Fails("Invalid structure detected by MetaList::Add.  Type Errors were: (3) : Mismatch on "
           "number of fields set in struct. Expected 2 found 1, Missing field in input: b, There "
           "was an error adding an item to this list.  The item being added did not match the "
           "declared structure of this list, so it was not added.")},
    {"<integer>1</integer>", Fails("Unable to make a MetaObject from a node with tag 'integer'")},
    {"<String>x</String>", Fails("Unable to make a MetaObject from a node with tag 'String'")},
};

TEST(OutputReaderTest, ValueElements) {
    for (auto const& value : kValues) {
        EXPECT_EQ(value.second, Read("<output>" + value.first + "</output>")) << value.first;
    }
}

TEST(OutputReaderTest, FirstItemIsNotTheLockedPrototype) {
    auto value = XmlUtil_ParseXmlOutput("<o><list type=\"structure\">" + kRow1 + "</list></o>");
    ASSERT_TRUE(value);
    auto& list = static_cast<MetaList&>(*value);
    ASSERT_EQ(1u, list.GetCount());
    auto first = std::static_pointer_cast<MetaStruct>(list.GetItem(0));
    EXPECT_NE(first, list.GetListStructure());
    first->SetField("new", MetaInt::New(5));  // would throw on the locked prototype
    EXPECT_TRUE(first->HasField("new"));
}

}  // namespace
