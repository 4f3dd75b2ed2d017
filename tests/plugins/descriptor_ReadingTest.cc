// What the descriptor readers take from well-formed elements: kinds, marks, constraint data,
// and which of several pieces counts.
#include <gtest/gtest.h>
#include <libxml/parser.h>

#include <map>
#include <string>
#include <vector>

#include "tindra/autocli/plugins/DescriptorReaders.h"
#include "xml/XmlDocument.h"

namespace {

using namespace Tindra::AutoCli;
using namespace Tindra::CallSpec;
using Fields = std::map<std::string, std::string>;
using Pairs = std::vector<std::pair<std::string, std::string>>;

// Parses a piece of descriptor as the plug-in parses files and hands its root to the reader.
template <typename Reader>
auto Read(std::string const& xml, Reader read) {
    XmlDocument const document = ParseXmlDocument(xml, "snippet", XML_PARSE_COMPACT);
    return read(xmlDocGetRootElement(document.get()));
}

std::shared_ptr<ParameterConstraint> Constraint(std::string const& xml) {
    return Read(xml, ExtractParamConstraint);
}

std::string EnumValue(std::string const& value, std::string const& text) {
    return "<enum-value value=\"" + value + "\">" + text + "</enum-value>";
}

TEST(DescriptorReadingTest, ParametersKeepKindMarksAndDescriptionSortedByName) {
    auto spec = Read(
        "<input-spec><parameter name=\"zeta\" type=\"string\" required=\"true\" secret=\"true\" "
        "shortname=\"z\"><description>Z</description></parameter><parameter name=\"alpha\" "
        "type=\"flag\" required=\"false\"><description>A</description></parameter>"
        "<context-supported>user</context-supported><unknown/><parameter name=\"mid\" "
        "type=\"bool-list\" required=\"false\" secret=\"false\"><description/><description>M"
        "</description></parameter></input-spec>",
        ExtractInputSpec);
    std::vector<std::string> seen;
    for (auto const& p : spec->parameters) {
        seen.push_back(p->GetName() + " " + std::to_string(p->GetType()) + " " +
                       std::to_string(p->IsRequired()) + std::to_string(p->IsSecret()) + " '" +
                       p->GetShortName() + "' " + p->GetDescription(false));
    }
    EXPECT_EQ((std::vector<std::string>{"alpha " + std::to_string(ParamFlag) + " 00 '' A",
                                        "mid " + std::to_string(ParamBoolList) + " 00 '' M",
                                        "zeta " + std::to_string(ParamString) + " 11 'z' Z"}),
              seen);
    EXPECT_TRUE(spec->IsContextSupported("user"));
}

TEST(DescriptorReadingTest, ConstraintDataAndTheLastMatchingChildCounting) {
    EXPECT_EQ((std::vector<std::string>{"b", "a"}),
              Constraint("<constraint type=\"stringenum\"><enum>" + EnumValue("b", "bee") +
                         EnumValue("a", "ay") + "</enum></constraint>")
                  ->GetStringEnum());
    // Integers are read leniently; of several enums the last counts.
    EXPECT_EQ((std::vector<long>{1, -2, 3}),
              Constraint("<constraint type=\"intenum\"><enum>" + EnumValue("9", "") +
                         "</enum><regex>x</regex><enum>" + EnumValue("1", "one") +
                         EnumValue(" -2", "x") + EnumValue("3x", "y") + "</enum></constraint>")
                  ->GetIntEnum());
    long minimum = 0, maximum = 0;
    // A value holding an entity, and a default from the document type, are attributes too.
    Constraint(
        "<!DOCTYPE constraint [<!ENTITY two \"2\"><!ATTLIST range min CDATA \" -5\">]>"
        "<constraint type=\"range\"><range max=\"1&two;abc\"/></constraint>")
        ->GetIntRange(minimum, maximum);
    EXPECT_EQ(std::make_pair(-5L, 12L), std::make_pair(minimum, maximum));
    EXPECT_EQ("[0-9]+(",
              Constraint("<constraint type=\"regex\"><regex>[0-9]+(</regex></constraint>")
                  ->GetStringRegex());
    EXPECT_EQ((Pairs{{"a", "first"}, {"b", "x"}, {"b", " note "}, {"b", "y"}, {"e", "cd"}}),
              Read("<enum><!-- lead -->\n" + EnumValue("a", "first") +
                       EnumValue("b", "x<!-- note -->y") + "<enum-value value=\"c\"/>" +
                       EnumValue("", "") + EnumValue("e", "<![CDATA[cd]]>") + "</enum>",
                   ExtractEnum));
}

TEST(DescriptorReadingTest, MetaDataExamplesAndFormatParametersTheLastWriteWinning) {
    auto command = ExtensionCommand::New();
    Read(
        "<meta-data><meta-data-entry name=\"type\">a</meta-data-entry>"
        "<meta-data-entry name=\"example:--all\">Everything</meta-data-entry>"
        "<meta-data-entry name=\"example:-n\"/><meta-data-entry/>"
        "<meta-data-entry name=\"examples\">not one</meta-data-entry>"
        "<meta-data-entry name=\"example:\">Defaults</meta-data-entry>"
        "<meta-data-entry name=\"type\">b<!--c-->d</meta-data-entry></meta-data>",
        [&](xmlNode* node) { ExtractMetaData(node, command); });
    EXPECT_EQ((Fields{{"example:", "Defaults"},
                      {"example:--all", "Everything"},
                      {"examples", "not one"},
                      {"type", "d"}}),
              command->GetMetaData());
    EXPECT_EQ((Pairs{{"--all", "Everything"}, {"", "Defaults"}}), command->GetExamples());
    Read(
        "<format-parameters><formatter>table</formatter><x>1</x>"
        "<format-parameter name=\"units:D.S\">MB</format-parameter>"
        "<format-parameter name=\"units:D.S\">GB</format-parameter>"
        "<format-parameter>nameless</format-parameter></format-parameters>",
        [&](xmlNode* node) { ExtractFormatParams(node, command); });
    auto format = command->GetDefaultOutputFormatParameters();
    EXPECT_EQ("table", format.GetFormatter());
    EXPECT_EQ((Fields{{"", "nameless"}, {"units:D.S", "GB"}}), format.GetParameters());
    EXPECT_FALSE(
        Read("<output-spec><!-- none --> </output-spec>", ExtractOutputSpec)->GetRootObject());
}

}  // namespace
