// What the descriptor readers take from well-formed elements: kinds, marks, constraint numbers,
// and which of several pieces counts.
#include <gtest/gtest.h>
#include <libxml/parser.h>

#include <string>
#include <vector>

#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/plugins/DescriptorReaders.h"
#include "xml/XmlDocument.h"

namespace {

using namespace Tindra::AutoCli;
using namespace Tindra::CallSpec;

// Parses a piece of descriptor as the plug-in parses files and hands its root to the reader.
template <typename Reader>
auto Read(std::string const& xml, Reader read) {
    XmlDocument const document = ParseXmlDocument(xml, "snippet", XML_PARSE_COMPACT);
    return read(xmlDocGetRootElement(document.get()));
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
    for (auto const& p : spec->parameters)
        seen.push_back(p->GetName() + " " + std::to_string(p->GetType()) + " " +
                       std::to_string(p->IsRequired()) + std::to_string(p->IsSecret()) + " '" +
                       p->GetShortName() + "' " + p->GetDescription(false));
    EXPECT_EQ((std::vector<std::string>{"alpha " + std::to_string(ParamFlag) + " 00 '' A",
                                        "mid " + std::to_string(ParamBoolList) + " 00 '' M",
                                        "zeta " + std::to_string(ParamString) + " 11 'z' Z"}),
              seen);
    EXPECT_TRUE(spec->IsContextSupported("user"));
}

TEST(DescriptorReadingTest, ConstraintNumbersAndTheLastEnumCounting) {
    // Integers are read leniently; of several enums the last counts.
    EXPECT_EQ(
        (std::vector<long>{1, -2, 3}),
        Read("<constraint type=\"intenum\"><enum><enum-value value=\"9\"/></enum><regex>x"
             "</regex><enum><enum-value value=\"1\">one</enum-value><enum-value value=\" -2\">"
             "x</enum-value><enum-value value=\"3x\">y</enum-value></enum></constraint>",
             ExtractParamConstraint)
            ->GetIntEnum());
    long minimum = 0, maximum = 0;
    // A value holding an entity, and a default from the document type, are attributes too.
    Read(
        "<!DOCTYPE constraint [<!ENTITY two \"2\"><!ATTLIST range min CDATA \" -5\">]>"
        "<constraint type=\"range\"><range max=\"1&two;abc\"/></constraint>",
        ExtractParamConstraint)
        ->GetIntRange(minimum, maximum);
    EXPECT_EQ(std::make_pair(-5L, 12L), std::make_pair(minimum, maximum));
}

// "example:<arguments>" entries stay meta data and become the command's help examples.
TEST(DescriptorReadingTest, ExampleEntriesAndFormatParameters) {
    auto command = ExtensionCommand::New();
    Read(
        "<meta-data><meta-data-entry name=\"type\">fetcher</meta-data-entry><meta-data-entry "
        "name=\"example:--all\">Everything</meta-data-entry></meta-data>",
        [&](xmlNode* node) { ExtractMetaData(node, command); });
    Read(
        "<format-parameters><formatter>json</formatter><format-parameter name=\"fields\">A,B"
        "</format-parameter></format-parameters>",
        [&](xmlNode* node) { ExtractFormatParams(node, command); });
    EXPECT_EQ((std::vector<CommandSpec::Example>{{"--all", "Everything"}}), command->GetExamples());
    EXPECT_EQ("Everything", command->GetMetaDataField("example:--all"));
    EXPECT_EQ("fetcher", command->GetMetaDataField("type"));
    auto const format = command->GetDefaultOutputFormatParameters();
    EXPECT_EQ("json", format.GetFormatter());
    EXPECT_EQ("A,B", format.GetParameter("fields"));
}

}  // namespace
