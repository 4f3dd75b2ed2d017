#include <gtest/gtest.h>

#include <string>

#include "autocli/extension/XmlUtil.h"
#include "extension/ValueDescription.h"
#include "support/ThrownMessage.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaString.h"

using Tindra::AutoCli::XmlUtil_ParseXmlOutput;
using namespace Tindra::MetaObj;

namespace {

std::string const kWrap =
    "Error parsing command output.  Unable to build a proper metaobject from output tag.  output "
    "must contain properly formatted tags of type bool, int, string, structure and list. Error "
    "was : ";

std::string Read(std::string const& document) {
    return DescribeValue(XmlUtil_ParseXmlOutput(document));
}

std::string Failure(std::string const& document) {
    return ThrownMessage([&] { XmlUtil_ParseXmlOutput(document); });
}

std::string InOutput(std::string const& value) {
    return "<output>" + value + "</output>";
}

TEST(OutputReaderTest, NotWellFormedOrValuelessGivesNothing) {
    for (std::string text :
         {"", "plain text", "<output>", "<output><string>x</string>", "<o></p>", "<o/>trailing",
          "<a/><b/>", "<o>&undefined;</o>", "<o><string>\xff\xfe</string></o>"}) {
        EXPECT_EQ("<none>", Read(text)) << text;
    }
    EXPECT_EQ("<none>", Read("<output>\n  <!-- nothing -->\n  \n</output>"));
    EXPECT_EQ("<none>", Read("<output/>"));
}

TEST(OutputReaderTest, MalformedDocumentHidesBuildErrors) {
    // The value cannot be built, but the document is not well-formed either: no error.
    EXPECT_EQ("<none>", Read("<output><integer>1</integer></output"));
    EXPECT_EQ("<none>", Read("<output><list type=\"int\"><string>x</string></list></output><"));
}

TEST(OutputReaderTest, FirstValueChildOfAnyRootIsRead) {
    EXPECT_EQ("String[abc]", Read("<root><string>abc</string></root>"));
    EXPECT_EQ("String[abc]", Read("<?xml version=\"1.0\"?>\n<!-- pre -->\n<anything>\n"
                                  "  <!-- c --><text>skipped element</text>\n"
                                  "  <string>abc</string><integer>ignored</integer>\n"
                                  "</anything>\n<!-- post -->"));
}

TEST(OutputReaderTest, IntegersFollowStreamExtraction) {
    EXPECT_EQ("Int(0)", Read(InOutput("<int></int>")));
    EXPECT_EQ("Int(-42)", Read(InOutput("<int>-42xyz</int>")));
    EXPECT_EQ("Int(7)", Read(InOutput("<int> 7</int>")));
    EXPECT_EQ("Int(0)", Read(InOutput("<int>0x10</int>")));
    EXPECT_EQ("Int(9223372036854775807)", Read(InOutput("<int>9223372036854775807</int>")));
    EXPECT_EQ("Int(-9223372036854775808)", Read(InOutput("<int>-9223372036854775808</int>")));
    for (std::string text : {"  ", "abc", "9223372036854775808", "-9223372036854775809", "-"}) {
        EXPECT_EQ(kWrap + "Unable to read an int value from: '" + text + "'",
                  Failure(InOutput("<int>" + text + "</int>")));
    }
}

TEST(OutputReaderTest, OnlyThreeSpellingsAreFalse) {
    for (std::string text : {"0", "f", "false"}) {
        EXPECT_EQ("Bool(false)", Read(InOutput("<bool>" + text + "</bool>"))) << text;
    }
    for (std::string text : {"FALSE", "False", "no", "1", "", " false"}) {
        EXPECT_EQ("Bool(true)", Read(InOutput("<bool>" + text + "</bool>"))) << text;
    }
}

TEST(OutputReaderTest, ElementTextIsLastContentChild) {
    EXPECT_EQ("String[def]", Read(InOutput("<string>abc<!--x-->def</string>")));
    EXPECT_EQ("String[ x ]", Read(InOutput("<string>abc<!-- x --></string>")));
    EXPECT_EQ("String[<raw> & ]", Read(InOutput("<string><![CDATA[<raw> & ]]></string>")));
    EXPECT_EQ("String[a]", Read(InOutput("<string>a<b>inner</b></string>")));
    EXPECT_EQ("String[]", Read(InOutput("<string><b>inner</b></string>")));
    EXPECT_EQ("String[  a&b\"A  ]", Read(InOutput("<string>  a&amp;b&quot;&#65;  </string>")));
    std::string big(200000, 'q');
    EXPECT_EQ("String[" + big + "]", Read(InOutput("<string>" + big + "</string>")));
}

TEST(OutputReaderTest, StructureExample) {
    EXPECT_EQ(
        "Struct Disk{[Online]=Bool(true);[Paths]=List<String>(String[/a],String[/b],);"
        "[Size]=Int(512);}",
        Read(InOutput("<structure typeName=\"Disk\">"
                      "<field name=\"Size\"><int>512</int></field>"
                      "<field name=\"Online\"><bool>true</bool></field>"
                      "<field name=\"Paths\"><list type=\"string\">"
                      "<string>/a</string><string>/b</string></list></field>"
                      "</structure>")));
}

TEST(OutputReaderTest, FieldRules) {
    // A field without a value is dropped; only a field's first value counts; other children of
    // the structure are ignored; a repeated name keeps the last value.
    EXPECT_EQ("Struct T{[a]=Int(2);[b]=String[first];}",
              Read(InOutput("<structure typeName=\"T\"><field name=\"empty\"> <!-- c --> </field>"
                            "<other><field name=\"x\"><int>1</int></field></other>"
                            "<field name=\"b\"><!-- c --><string>first</string><int>9</int></field>"
                            "<field name=\"a\"><int>1</int></field>"
                            "<field name=\"a\"><int>2</int></field></structure>")));
    std::string const fieldError =
        kWrap + "Invalid <field> tag found.  <field> requires a 'name' attribute.";
    EXPECT_EQ(fieldError, Failure(InOutput("<structure typeName=\"T\"><field/></structure>")));
    EXPECT_EQ(fieldError,
              Failure(InOutput("<structure typeName=\"T\"><field name=\"\"/></structure>")));
    EXPECT_EQ(kWrap + "Invalid name specified for MetaStruct: ",
              Failure(InOutput("<structure><field name=\"a\"><int>1</int></field></structure>")));
}

TEST(OutputReaderTest, ListRules) {
    EXPECT_EQ("List<Struct>()", Read(InOutput("<list type=\"structure\"> </list>")));
    EXPECT_EQ("List<Int>(Int(1),Int(2),)",
              Read(InOutput("<list type=\"int\"><int>1</int><!-- c --><int>2</int></list>")));
    std::string const typeError =
        kWrap + "Invalid list type attribute.  Must be one of [string, int, bool, structure, list]";
    for (std::string type : {"boolean", "integer", "", "String"}) {
        EXPECT_EQ(typeError, Failure(InOutput("<list type=\"" + type + "\"/>"))) << type;
    }
    EXPECT_EQ(typeError, Failure(InOutput("<list/>")));
    EXPECT_EQ(kWrap + "Struct type expected for list.",
              Failure(InOutput("<list type=\"list\"><list type=\"int\"/></list>")));
    EXPECT_EQ(kWrap +
                  "Invalid type specificed in MetaList.  Expected object of type Int got object "
                  "of type String",
              Failure(InOutput("<list type=\"int\"><int>1</int><string>x</string></list>")));
}

TEST(OutputReaderTest, StructureListItemsMustFitTheFirstItem) {
    std::string const row1 =
        "<structure typeName=\"R\"><field name=\"a\"><int>1</int></field>"
        "<field name=\"b\"><string>x</string></field></structure>";
    std::string const row2 =
        "<structure typeName=\"R\"><field name=\"a\"><int>2</int></field>"
        "<field name=\"b\"><string>y</string></field></structure>";
    EXPECT_EQ(
        "List<Struct of Struct R{[a]=Int(1);[b]=String[x];}>(Struct R{[a]=Int(1);[b]="
        "String[x];},Struct R{[a]=Int(2);[b]=String[y];},)",
        Read(InOutput("<list type=\"structure\">" + row1 + row2 + "</list>")));
    std::string const shortRow =
        "<structure typeName=\"R\"><field name=\"a\"><int>3</int></field></structure>";
    EXPECT_EQ(kWrap +
                  "Invalid structure detected by MetaList::Add.  Type Errors were: (3) : Mismatch "
                  "on number of fields set in struct. Expected 2 found 1, Missing field in input: "
                  "b, There was an error adding an item to this list.  The item being added did "
                  "not match the declared structure of this list, so it was not added.",
              Failure(InOutput("<list type=\"structure\">" + row1 + shortRow + "</list>")));
}

TEST(OutputReaderTest, FirstItemIsNotTheLockedPrototype) {
    auto value = XmlUtil_ParseXmlOutput(
        InOutput("<list type=\"structure\"><structure typeName=\"R\"><field name=\"a\">"
                 "<int>1</int></field></structure></list>"));
    ASSERT_TRUE(value);
    auto& list = static_cast<MetaList&>(*value);
    ASSERT_EQ(1u, list.GetCount());
    auto first = std::static_pointer_cast<MetaStruct>(list.GetItem(0));
    EXPECT_NE(first, list.GetListStructure());
    first->SetField("new", MetaInt::New(5));  // would throw on the locked prototype
    EXPECT_TRUE(first->HasField("new"));
}

TEST(OutputReaderTest, UnknownTagsAreWrappedErrors) {
    EXPECT_EQ(kWrap + "Unable to make a MetaObject from a node with tag 'integer'",
              Failure(InOutput("<integer>1</integer>")));
    EXPECT_EQ(kWrap + "Unable to make a MetaObject from a node with tag 'boolean'",
              Failure(InOutput("<list type=\"bool\"><boolean>1</boolean></list>")));
    EXPECT_EQ(kWrap + "Unable to make a MetaObject from a node with tag 'String'",
              Failure(InOutput("<String>x</String>")));
}

}  // namespace
