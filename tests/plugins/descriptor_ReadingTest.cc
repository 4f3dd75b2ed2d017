// What the descriptor readers take from well-formed elements: kinds, marks, constraint data,
// which of several pieces counts, and the order of the pending registrations.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "autocli/plugins/DescriptorReaders.h"
#include "descriptor_Snippet.h"
#include "support/DescriptorFiles.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/plugins/XmlPlugin.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace {

using DescriptorTest::CommandParts;
using DescriptorTest::Descriptor;
using DescriptorTest::DescriptorFiles;
using DescriptorTest::NamespaceElement;
using DescriptorTest::Snippet;
using namespace Tindra::AutoCli;
using namespace Tindra::CallSpec;
using Fields = std::map<std::string, std::string>;

std::shared_ptr<InputSpec> Parameters(std::string const& body) {
    return ExtractInputSpec(Snippet("<input-spec>" + body + "</input-spec>").Root());
}

std::shared_ptr<ParameterConstraint> Constraint(std::string const& type, std::string const& body) {
    return ExtractParamConstraint(
        Snippet("<constraint type=\"" + type + "\">" + body + "</constraint>").Root());
}

std::string EnumValue(std::string const& value, std::string const& text) {
    return "<enum-value value=\"" + value + "\">" + text + "</enum-value>";
}

TEST(DescriptorReadingTest, ParametersKeepKindMarksAndDescriptionSortedByName) {
    auto spec = Parameters(
        "<parameter name=\"zeta\" type=\"string\" required=\"true\" secret=\"true\" "
        "shortname=\"z\"><description>Z</description></parameter><!-- c -->"
        "<parameter name=\"alpha\" type=\"flag\" required=\"false\"><description>A</description>"
        "</parameter><context-supported>user</context-supported><unknown/>"
        "<parameter name=\"mid\" type=\"bool-list\" required=\"false\" secret=\"false\">"
        "<description/><description>M</description></parameter>");
    ASSERT_EQ(3u, spec->parameters.size());
    ParameterSpec const& alpha = *spec->parameters[0];
    ParameterSpec const& mid = *spec->parameters[1];
    ParameterSpec const& zeta = *spec->parameters[2];
    EXPECT_EQ("alpha", alpha.GetName());
    EXPECT_EQ(ParamFlag, alpha.GetType());
    EXPECT_FALSE(alpha.IsRequired());
    EXPECT_EQ("", alpha.GetShortName());
    EXPECT_EQ(ParamBoolList, mid.GetType());
    EXPECT_EQ("M", mid.GetDescription(false));
    EXPECT_FALSE(mid.IsSecret());
    EXPECT_EQ(ParamString, zeta.GetType());
    EXPECT_TRUE(zeta.IsRequired());
    EXPECT_TRUE(zeta.IsSecret());
    EXPECT_EQ("z", zeta.GetShortName());
    EXPECT_TRUE(spec->IsContextSupported("user"));
}

TEST(DescriptorReadingTest, EnumerationsKeepOrderAndIntegersReadTheirLeadingDigits) {
    auto strings = Constraint("stringenum",
                              "<enum>" + EnumValue("b", "bee") + EnumValue("a", "ay") + "</enum>");
    EXPECT_EQ(ConstraintStringEnum, strings->GetType());
    EXPECT_EQ((std::vector<std::string>{"b", "a"}), strings->GetStringEnum());
    EXPECT_EQ((Fields{{"a", "ay"}, {"b", "bee"}}), strings->GetStringEnumWithDesc());
    auto numbers = Constraint("intenum", "<enum>" + EnumValue("1", "one") + EnumValue(" -2", "x") +
                                             EnumValue("3x", "y") + "</enum>");
    EXPECT_EQ(ConstraintIntEnum, numbers->GetType());
    EXPECT_EQ((std::vector<long>{1, -2, 3}), numbers->GetIntEnum());
    auto range = Constraint("range", "<range min=\" -5\" max=\"12abc\"/>");
    long minimum = 0;
    long maximum = 0;
    range->GetIntRange(minimum, maximum);
    EXPECT_EQ(std::make_pair(-5L, 12L), std::make_pair(minimum, maximum));
    EXPECT_EQ("[0-9]+(", Constraint("regex", "<regex>[0-9]+(</regex>")->GetStringRegex());
}

TEST(DescriptorReadingTest, TheLastMatchingChildCountsOnceAnyOneHeldData) {
    auto numbers =
        Constraint("intenum", "<enum>" + EnumValue("1", "one") + "</enum><regex>x</regex><enum>" +
                                  EnumValue("2", "two") + "</enum>");
    EXPECT_EQ(std::vector<long>{2}, numbers->GetIntEnum());
    auto emptied = Constraint("stringenum", "<enum>" + EnumValue("a", "ay") + "</enum><enum/>");
    EXPECT_TRUE(emptied->GetStringEnum().empty());
}

TEST(DescriptorReadingTest, EveryPieceOfEnumContentIsOnePair) {
    using Pairs = std::vector<std::pair<std::string, std::string>>;
    Snippet const snippet("<enum><!-- lead -->\n" + EnumValue("a", "first") +
                          EnumValue("b", "x<!-- note -->y") + "<enum-value value=\"c\"/>" +
                          EnumValue("", "") + EnumValue("e", "<![CDATA[cd]]>") + "</enum>");
    EXPECT_EQ((Pairs{{"a", "first"}, {"b", "x"}, {"b", " note "}, {"b", "y"}, {"e", "cd"}}),
              ExtractEnum(snippet.Root()));
}

TEST(DescriptorReadingTest, MetaDataAndFormatParametersTheLastWriteWinning) {
    auto command = ExtensionCommand::New();
    ExtractMetaData(Snippet("<meta-data><!-- c -->\n"
                            "<meta-data-entry name=\"type\">fetcher</meta-data-entry>"
                            "<meta-data-entry name=\"note\">a<!--b-->c</meta-data-entry>"
                            "<meta-data-entry name=\"empty\"/><meta-data-entry/>"
                            "<meta-data-entry name=\"type\">changed</meta-data-entry></meta-data>")
                        .Root(),
                    command);
    EXPECT_EQ((Fields{{"note", "c"}, {"type", "changed"}}), command->GetMetaData());
    ExtractFormatParams(Snippet("<format-parameters><formatter>table</formatter><x>1</x>"
                                "<format-parameter name=\"units:D.S\">MB</format-parameter>"
                                "<format-parameter name=\"units:D.S\">GB</format-parameter>"
                                "<format-parameter>nameless</format-parameter>"
                                "</format-parameters>")
                            .Root(),
                        command);
    auto format = command->GetDefaultOutputFormatParameters();
    EXPECT_EQ("table", format.GetFormatter());
    EXPECT_EQ((Fields{{"", "nameless"}, {"units:D.S", "GB"}}), format.GetParameters());
}

TEST(DescriptorReadingTest, ExampleEntriesBecomeHelpExamplesInOrder) {
    auto command = ExtensionCommand::New();
    ExtractMetaData(Snippet("<meta-data>"
                            "<meta-data-entry name=\"example:--all\">Everything</meta-data-entry>"
                            "<meta-data-entry name=\"example:-n\"/>"
                            "<meta-data-entry name=\"examples\">not one</meta-data-entry>"
                            "<meta-data-entry name=\"example:\">Defaults</meta-data-entry>"
                            "</meta-data>")
                        .Root(),
                    command);
    using Examples = std::vector<std::pair<std::string, std::string>>;
    EXPECT_EQ((Examples{{"--all", "Everything"}, {"", "Defaults"}}), command->GetExamples());
    EXPECT_EQ("Everything", command->GetMetaDataField("example:--all"));
}

TEST(DescriptorReadingTest, TheOutputPrototypeIsTheOneValueElement) {
    auto spec = ExtractOutputSpec(
        Snippet("<output-spec><!-- a disk -->\n<list type=\"structure\">"
                "<structure typeName=\"Disk\"><field name=\"Size\"><int/></field></structure>"
                "</list>\n</output-spec>")
            .Root());
    auto list = std::dynamic_pointer_cast<Tindra::MetaObj::MetaList>(spec->GetRootObject());
    ASSERT_TRUE(list && list->GetListStructure());
    EXPECT_EQ("Disk", list->GetListStructure()->GetTypeName());
    EXPECT_FALSE(ExtractOutputSpec(Snippet("<output-spec> <!-- none --> </output-spec>").Root())
                     ->GetRootObject());
}

class DescriptorFileReadingTest : public ::testing::Test {
protected:
    std::shared_ptr<XmlPlugin> Read(std::string const& body) {
        auto plugin = XmlPlugin::New(files.Write("plugin.xml", Descriptor(body)));
        plugin->Initialize();
        return plugin;
    }
    DescriptorFiles files;
};

TEST_F(DescriptorFileReadingTest, NamespacesComeFirstThenCommandsEachInDocumentOrder) {
    CommandParts second;
    second.path = "b.second";
    CommandParts first;
    first.path = "a.first";
    auto plugin =
        Read("<commands>" + second.Element() + first.Element() + "</commands>" + "<namespaces>" +
             NamespaceElement("b", "Bee") + NamespaceElement("a", "Ay") + "</namespaces>");
    std::vector<std::pair<std::string, int>> order;
    for (auto const& [path, node] : plugin->GetPendingRegistrations()) {
        order.emplace_back(path, node->GetType());
    }
    EXPECT_EQ((std::vector<std::pair<std::string, int>>{
                  {"b", 1}, {"a", 1}, {"b.second", 2}, {"a.first", 2}}),
              order);
    EXPECT_EQ("Bee", plugin->GetPendingRegistrations()[0].second->GetDescription());
    EXPECT_TRUE(Read("<commands/>")->GetPendingRegistrations().empty());
}

TEST_F(DescriptorFileReadingTest, ACommandCarriesItsElement) {
    CommandParts parts;
    parts.description = "";
    parts.metaData =
        "<meta-data><meta-data-entry name=\"type\">fetcher</meta-data-entry></meta-data>";
    parts.inputSpec = "<input-spec><context-supported>user</context-supported></input-spec>";
    parts.formatParameters = "<format-parameters><formatter>json</formatter></format-parameters>";
    auto command = std::dynamic_pointer_cast<ExtensionCommand>(
        Read("<commands>" + parts.Element() + "</commands>")
            ->GetPendingRegistrations()
            .at(0)
            .second);
    ASSERT_TRUE(command);
    EXPECT_EQ("", command->GetDescription());
    EXPECT_EQ("fetcher", command->GetMetaDataField("type"));
    EXPECT_EQ("json", command->GetDefaultOutputFormatParameters().GetFormatter());
    EXPECT_TRUE(command->GetInputSpec()->IsContextSupported("user"));
    EXPECT_TRUE(command->GetOutputSpec()->GetRootObject());
}

TEST_F(DescriptorFileReadingTest, AFailedFileKeepsNothingToRegister) {
    CommandParts broken;
    broken.path = "demo.broken";
    broken.execute = "";
    auto plugin = XmlPlugin::New(files.Write(
        "plugin.xml",
        Descriptor("<namespaces>" + NamespaceElement("demo", "Demo") + "</namespaces><commands>" +
                   CommandParts().Element() + broken.Element() + "</commands>")));
    EXPECT_NE("<nothing thrown>", ThrownMessage([&] { plugin->Initialize(); }));
    EXPECT_TRUE(plugin->GetPendingRegistrations().empty());
}

TEST_F(DescriptorFileReadingTest, DescriptorsProvideNoFormatters) {
    auto plugin = Read("<commands/>");
    EXPECT_FALSE(plugin->HasFormatter("table"));
    EXPECT_TRUE(plugin->GetFormatters().empty());
    EXPECT_EQ(&plugin->GetFormatters(), &XmlPlugin::New("other.xml")->GetFormatters());
    EXPECT_EQ("Xml Plugin doesn't not support formatters",
              ThrownMessage([&] { plugin->GetFormatter("table"); }));
    EXPECT_EQ(files.Directory() + "/plugin.xml", plugin->GetName());
}

}  // namespace
