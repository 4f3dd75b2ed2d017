// What the descriptor readers take from well-formed elements: kinds, marks, constraint data,
// which of several pieces counts, and the order of the pending registrations.
#include <gtest/gtest.h>
#include <libxml/parser.h>

#include <map>
#include <string>
#include <vector>

#include "autocli/plugins/DescriptorReaders.h"
#include "support/DescriptorFiles.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/plugins/XmlPlugin.h"
#include "xml/XmlDocument.h"

namespace {

using namespace DescriptorTest;
using namespace Tindra::AutoCli;
using namespace Tindra::CallSpec;
using Fields = std::map<std::string, std::string>;
using Pairs = std::vector<std::pair<std::string, std::string>>;

// A piece of descriptor parsed as the plug-in parses files.
class Snippet {
public:
    explicit Snippet(std::string const& xml)
        : document(xmlReadMemory(xml.data(), static_cast<int>(xml.size()), "snippet", nullptr, 0)) {
    }
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
    Constraint("range", "<range min=\" -5\" max=\"12abc\"/>")->GetIntRange(minimum, maximum);
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
}

TEST(DescriptorFileReadingTest, NamespacesFirstThenCommandsAndAFailedFileKeepsNothing) {
    DescriptorFiles files;
    CommandParts second, first;
    second.path = "b.second";
    first.path = "a.first";
    auto plugin = XmlPlugin::New(files.Write(
        "plugin.xml",
        Descriptor("<commands>" + second.Element() + first.Element() + "</commands><namespaces>" +
                   NamespaceElement("b", "Bee") + NamespaceElement("a", "Ay") + "</namespaces>")));
    plugin->Initialize();
    std::vector<std::pair<std::string, int>> order;
    for (auto const& [path, node] : plugin->GetPendingRegistrations()) {
        order.emplace_back(path, node->GetType());
    }
    EXPECT_EQ((std::vector<std::pair<std::string, int>>{
                  {"b", 1}, {"a", 1}, {"b.second", 2}, {"a.first", 2}}),
              order);
    EXPECT_EQ("Bee", plugin->GetPendingRegistrations()[0].second->GetDescription());
    EXPECT_EQ("Xml Plugin doesn't not support formatters",
              ThrownMessage([&] { plugin->GetFormatter("table"); }));

    first.execute = "";
    auto broken = XmlPlugin::New(files.Write(
        "broken.xml",
        Descriptor("<namespaces>" + NamespaceElement("demo", "Demo") + "</namespaces><commands>" +
                   second.Element() + first.Element() + "</commands>")));
    EXPECT_NE("<nothing thrown>", ThrownMessage([&] { broken->Initialize(); }));
    EXPECT_TRUE(broken->GetPendingRegistrations().empty());
}

}  // namespace
