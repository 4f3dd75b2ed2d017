// Reading the meta data, default format and output prototype of a descriptor command.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "autocli/plugins/DescriptorReaders.h"
#include "descriptor_Snippet.h"
#include "support/ThrownMessage.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace {

using DescriptorTest::Snippet;
using Tindra::AutoCli::ExtensionCommand;
using Tindra::AutoCli::ExtractFormatParams;
using Tindra::AutoCli::ExtractMetaData;
using Tindra::AutoCli::ExtractOutputSpec;
using Fields = std::map<std::string, std::string>;

std::shared_ptr<ExtensionCommand> WithMetaData(std::string const& body) {
    Snippet const snippet("<meta-data>" + body + "</meta-data>");
    auto command = ExtensionCommand::New();
    ExtractMetaData(snippet.Root(), command);
    return command;
}

std::shared_ptr<ExtensionCommand> WithFormat(std::string const& body) {
    Snippet const snippet("<format-parameters>" + body + "</format-parameters>");
    auto command = ExtensionCommand::New();
    ExtractFormatParams(snippet.Root(), command);
    return command;
}

std::shared_ptr<Tindra::CallSpec::OutputSpec> OutputSpecOf(std::string const& body) {
    Snippet const snippet("<output-spec>" + body + "</output-spec>");
    return ExtractOutputSpec(snippet.Root());
}

TEST(MetaDataReaderTest, EntriesBecomeFieldsTheLastPieceWinning) {
    auto command = WithMetaData(
        "<!-- kept out -->\n  <meta-data-entry name=\"type\">fetcher</meta-data-entry>\n"
        "<meta-data-entry name=\"note\">a<!--b-->c</meta-data-entry>"
        "<meta-data-entry name=\"empty\"/><meta-data-entry/>"
        "<meta-data-entry name=\"type\">changed</meta-data-entry>");
    EXPECT_EQ((Fields{{"note", "c"}, {"type", "changed"}}), command->GetMetaData());
}

TEST(MetaDataReaderTest, OtherTagsAndNamelessEntriesAreErrors) {
    EXPECT_EQ("Found unexpected tag while building meta-data set.  Unexpected tag was: entry",
              ThrownMessage([] { WithMetaData("<entry name=\"a\">b</entry>"); }));
    EXPECT_EQ(
        "Error parsing 'meta-data-entry', missing required attribute 'name'",
        ThrownMessage([] { WithMetaData("<meta-data-entry name=\"\">v</meta-data-entry>"); }));
}

TEST(FormatReaderTest, FormatterAndParametersBecomeTheDefaultFormat) {
    auto format = WithFormat(
                      "<formatter>table</formatter><ignored>x</ignored>"
                      "<format-parameter name=\"fields:Disk\">Name,Size</format-parameter>"
                      "<format-parameter name=\"units:Disk.Size\">MB</format-parameter>"
                      "<format-parameter name=\"units:Disk.Size\">GB</format-parameter>"
                      "<format-parameter>nameless</format-parameter>")
                      ->GetDefaultOutputFormatParameters();
    EXPECT_EQ("table", format.GetFormatter());
    EXPECT_EQ((Fields{{"", "nameless"}, {"fields:Disk", "Name,Size"}, {"units:Disk.Size", "GB"}}),
              format.GetParameters());
}

TEST(FormatReaderTest, ASecondFormatterIsAnErrorEvenAfterAnEmptyOne) {
    EXPECT_EQ("Invalid plugin format.  Duplicate <formatter> tags found",
              ThrownMessage([] { WithFormat("<formatter/><formatter>json</formatter>"); }));
    EXPECT_EQ("", WithFormat("")->GetDefaultOutputFormatParameters().GetFormatter());
}

TEST(OutputSpecReaderTest, TheOneValueElementIsThePrototype) {
    auto spec = OutputSpecOf(
        "<!-- a disk -->\n<list type=\"structure\"><structure typeName=\"Disk\">"
        "<field name=\"Name\"><string/></field><field name=\"Size\"><int/></field>"
        "</structure></list>\n");
    auto list = std::dynamic_pointer_cast<Tindra::MetaObj::MetaList>(spec->GetRootObject());
    ASSERT_TRUE(list);
    ASSERT_TRUE(list->GetListStructure());
    EXPECT_EQ("Disk", list->GetListStructure()->GetTypeName());
    EXPECT_EQ((std::vector<std::string>{"Name", "Size"}),
              list->GetListStructure()->GetFieldNames());
}

TEST(OutputSpecReaderTest, AnEmptyOutputSpecHasNoPrototype) {
    EXPECT_FALSE(OutputSpecOf("  <!-- nothing -->  ")->GetRootObject());
}

TEST(OutputSpecReaderTest, BuildErrorsAreWrappedASecondValueIsNot) {
    EXPECT_EQ(
        "Unable to build output spec.  Error was Unable to make a MetaObject from a node "
        "with tag 'integer'",
        ThrownMessage([] { OutputSpecOf("<integer/>"); }));
    EXPECT_EQ("Unable to build output spec.  Error was Invalid name specified for MetaStruct: ",
              ThrownMessage([] { OutputSpecOf("<structure/>"); }));
    EXPECT_EQ(
        "Found more than one node under 'output-spec', where only one node is supported.  "
        "The tag was bool",
        ThrownMessage([] { OutputSpecOf("<int/><!-- c --><bool/>"); }));
}

}  // namespace
