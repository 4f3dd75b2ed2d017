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

// A piece of descriptor parsed as the plug-in parses files.
class Snippet {
public:
    explicit Snippet(std::string const& xml)
        : document(ParseXmlDocument(xml, "snippet", XML_PARSE_COMPACT)) {}
    xmlNode* Root() const { return xmlDocGetRootElement(document.get()); }

private:
    XmlDocument document;
};

std::shared_ptr<ParameterConstraint> Constraint(std::string const& type, std::string const& body) {
    return ExtractParamConstraint(
        Snippet("<constraint type=\"" + type + "\">" + body + "</constraint>").Root());
}

std::string EnumValue(std::string const& value, std::string const& text) {
    return "<enum-value value=\"" + value + "\">" + text + "</enum-value>";
}

TEST(DescriptorReadingTest, ParametersKeepKindMarksAndDescriptionSortedByName) {
    auto spec = ExtractInputSpec(
        Snippet("<input-spec><parameter name=\"zeta\" type=\"string\" required=\"true\" "
                "secret=\"true\" shortname=\"z\"><description>Z</description></parameter>"
                "<parameter name=\"alpha\" type=\"flag\" required=\"false\"><description>A"
                "</description></parameter><context-supported>user</context-supported><unknown/>"
                "<parameter name=\"mid\" type=\"bool-list\" required=\"false\" secret=\"false\">"
                "<description/><description>M</description></parameter></input-spec>")
            .Root());
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
    auto strings = Constraint("stringenum",
                              "<enum>" + EnumValue("b", "bee") + EnumValue("a", "ay") + "</enum>");
    EXPECT_EQ((std::vector<std::string>{"b", "a"}), strings->GetStringEnum());
    EXPECT_EQ((std::vector<long>{1, -2, 3}),
              Constraint("intenum", "<enum>" + EnumValue("1", "one") + EnumValue(" -2", "x") +
                                        EnumValue("3x", "y") + "</enum>")
                  ->GetIntEnum());
    long minimum = 0;
    long maximum = 0;
    // A value holding an entity, and a default from the document type, are attributes too.
    ExtractParamConstraint(Snippet("<!DOCTYPE constraint [<!ENTITY two \"2\"><!ATTLIST range min "
                                   "CDATA \" -5\">]><constraint type=\"range\"><range "
                                   "max=\"1&two;abc\"/></constraint>")
                               .Root())
        ->GetIntRange(minimum, maximum);
    EXPECT_EQ(std::make_pair(-5L, 12L), std::make_pair(minimum, maximum));
    EXPECT_EQ("[0-9]+(", Constraint("regex", "<regex>[0-9]+(</regex>")->GetStringRegex());
    EXPECT_EQ(std::vector<long>{2}, Constraint("intenum", "<enum>" + EnumValue("1", "one") +
                                                              "</enum><regex>x</regex><enum>" +
                                                              EnumValue("2", "two") + "</enum>")
                                        ->GetIntEnum());
    EXPECT_EQ((Pairs{{"a", "first"}, {"b", "x"}, {"b", " note "}, {"b", "y"}, {"e", "cd"}}),
              ExtractEnum(Snippet("<enum><!-- lead -->\n" + EnumValue("a", "first") +
                                  EnumValue("b", "x<!-- note -->y") + "<enum-value value=\"c\"/>" +
                                  EnumValue("", "") + EnumValue("e", "<![CDATA[cd]]>") + "</enum>")
                              .Root()));
}

TEST(DescriptorReadingTest, MetaDataExamplesAndFormatParametersTheLastWriteWinning) {
    auto command = ExtensionCommand::New();
    ExtractMetaData(Snippet("<meta-data><meta-data-entry name=\"type\">a</meta-data-entry>"
                            "<meta-data-entry name=\"example:--all\">Everything</meta-data-entry>"
                            "<meta-data-entry name=\"example:-n\"/><meta-data-entry/>"
                            "<meta-data-entry name=\"examples\">not one</meta-data-entry>"
                            "<meta-data-entry name=\"example:\">Defaults</meta-data-entry>"
                            "<meta-data-entry name=\"type\">b<!--c-->d</meta-data-entry>"
                            "</meta-data>")
                        .Root(),
                    command);
    EXPECT_EQ((Fields{{"example:", "Defaults"},
                      {"example:--all", "Everything"},
                      {"examples", "not one"},
                      {"type", "d"}}),
              command->GetMetaData());
    EXPECT_EQ((Pairs{{"--all", "Everything"}, {"", "Defaults"}}), command->GetExamples());
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
    EXPECT_FALSE(ExtractOutputSpec(Snippet("<output-spec><!-- none --> </output-spec>").Root())
                     ->GetRootObject());
}

}  // namespace
