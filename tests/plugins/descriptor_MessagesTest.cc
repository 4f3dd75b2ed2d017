// Every message a descriptor can cause while it is read, once each and exactly as the user sees
// it: wrapped with the file and, inside a command, with the command.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/DescriptorFiles.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/plugins/XmlPlugin.h"

namespace {

using namespace DescriptorTest;
using Tindra::AutoCli::XmlPlugin;

struct Case {
    std::string fragment;
    std::string message;
};

class DescriptorMessagesTest : public ::testing::Test {
protected:
    std::string Error(std::string const& content) {
        std::string const path = files.Write("plugin.xml", content);
        return ThrownMessage([&] { XmlPlugin::New(path)->Initialize(); });
    }
    std::string FileWrapped(std::string const& message) {
        return "Unable to handle XML Plugin " + files.path +
               "/plugin.xml.  There was an error while parsing: " + message;
    }
    // Each fragment goes into an otherwise complete command; the message gets both wrappings.
    void ExpectCommandErrors(std::vector<Case> const& cases, std::string const& inner,
                             std::string CommandParts::*part) {
        for (Case const& c : cases) {
            CommandParts parts;
            parts.*part = inner.empty() ? c.fragment : inner + c.fragment + "</input-spec>";
            EXPECT_EQ(FileWrapped("Unable to register the command 'ostrel demo.run'  Error was " +
                                  c.message),
                      Error(Descriptor("<commands>" + parts.Element() + "</commands>")))
                << c.fragment;
        }
    }
    DescriptorFiles files;
};

TEST_F(DescriptorMessagesTest, FileLevelAndHeadsOfEntries) {
    std::string const file = files.path + "/plugin.xml";
    CommandParts twice;
    twice.description = "<description>a</description><description>b</description>";
    std::vector<Case> const cases = {
        {"<plugin><version>1.0.0</plugin>", "Unable to parse XML descriptor: " + file},
        {"<plugin><version>1.0.0 </version><commands/></plugin>",
         "Unknown ostrel extention version.  Valid versions are: '1.0.0'"},
        {Descriptor("<other/>"),
         "Unable to find any namespaces or commands to register for plugin " + file},
        {Descriptor("<namespaces><namespace path=\"a\"/></namespaces>"),
         "Unable to register a namespace without valid 'path' attribute or <description> being "
         "present."},
        {Descriptor("<commands><command><execute>x</execute></command></commands>"),
         "Invalid command specification found.  <command> tags must have a non-empty 'path' "
         "attribute"},
        // Read before the command wrapping begins.
        {Descriptor("<commands>" + twice.Element() + "</commands>"),
         "Illegal Duplicate tags found.  The tag description was expected only once, but was "
         "found multiple times."},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(FileWrapped(c.message), Error(c.fragment)) << c.fragment;
    }
}

TEST_F(DescriptorMessagesTest, CommandParts) {
    auto const required = [](std::string const& tag) {
        return "Unable to find <" + tag + "> element, which is required for a command.";
    };
    ExpectCommandErrors({{"", required("input-spec")}}, "", &CommandParts::inputSpec);
    ExpectCommandErrors({{"", required("output-spec")},
                         {"<output-spec><int/><!-- c --><bool/></output-spec>",
                          "Found more than one node under 'output-spec', where only one node is "
                          "supported.  The tag was bool"},
                         {"<output-spec><integer/></output-spec>",
                          "Unable to build output spec.  Error was Unable to make a MetaObject "
                          "from a node with tag 'integer'"}},
                        "", &CommandParts::outputSpec);
    ExpectCommandErrors(
        {{"", required("format-parameters")},
         {"<format-parameters><formatter/><formatter>x</formatter></format-parameters>",
          "Invalid plugin format.  Duplicate <formatter> tags found"}},
        "", &CommandParts::formatParameters);
    ExpectCommandErrors({{"<execute/>",
                          "Missing or empty <execute> tag.  This tag must specify a valid "
                          "execution string for this command."}},
                        "", &CommandParts::execute);
    ExpectCommandErrors({{"<meta-data><entry>x</entry></meta-data>",
                          "Found unexpected tag while building meta-data set.  Unexpected tag "
                          "was: entry"},
                         {"<meta-data><meta-data-entry name=\"\">v</meta-data-entry></meta-data>",
                          "Error parsing 'meta-data-entry', missing required attribute 'name'"}},
                        "", &CommandParts::metaData);
}

TEST_F(DescriptorMessagesTest, ParametersInTheOrderOfTheirChecks) {
    std::string const d = "<description>d</description>";
    std::string const head = "<parameter name=\"pp\" type=\"int\" required=\"true\"";
    std::string const prefix = "Unable to parse Input Paramter pp. ";
    // Each case breaks its rule and the later ones too, so only the earliest check may speak.
    ExpectCommandErrors(
        {{"<parameter name=\"\" type=\"nope\"/>",
          "Unable to parse Input Parameter.  Missing required attribute: 'name'"},
         {"<parameter name=\"pp\" type=\"String\" required=\"maybe\"/>",
          "Unable to parse Input Parameter pp. Missing or invalid required attribute: 'type'.  "
          "Must be one of [string, string-list, bool, bool-list, int, int-list]"},
         {"<parameter name=\"pp\" type=\"int\" required=\"True\" secret=\"x\"/>",
          prefix + "Missing or invalid 'required', must be one of ['true', 'false']"},
         {head + " secret=\"x\"/>", prefix + "Missing command description"},
         {head + " secret=\"yes\">" + d + "</parameter>",
          prefix + "Invalid 'secret', must be one of ['true', 'false']"},
         {"<parameter name=\"pp\" type=\"int-list\" required=\"true\" secret=\"true\">" + d +
              "</parameter>",
          prefix + "Invalid type int-list for secret, must be 'string'"},
         // From the call contract, passed on without a wrapping of the reader's own.
         {"<parameter name=\"Pp\" type=\"int\" required=\"true\">" + d + "</parameter>",
          "Invalid Parameter name 'Pp' parameter names can only contain lower-case alphanumeric "
          "characters, numbers and '-'"}},
        "<input-spec>", &CommandParts::inputSpec);
}

TEST_F(DescriptorMessagesTest, ConstraintsWrappedWithTheirParameter) {
    std::vector<Case> cases = {
        {"<constraint type=\"enum\"/>",
         "Missing or invalid constraint 'type', must be one of [stringenum, intenum, regex, "
         "range] got 'enum'"},
        {"<constraint type=\"intenum\"><enum><enum-value value=\"abc\">x</enum-value></enum>"
         "</constraint>",
         "Error parsing integer enumeration. Expected integer, but got abc"},
        {"<constraint type=\"intenum\"><enum><value/></enum></constraint>",
         "Found unexpected tag while building an enum.  Unexpected tag was: value"},
        {"<constraint type=\"intenum\"><enum><enum-value>1</enum-value></enum></constraint>",
         "Error parsing 'enum-value', missing required attribute 'value'"},
        {"<constraint type=\"range\"/>",
         "Error parsing parameter constraint.  There was no data included inside the "
         "<constraint> tag for the given constraint type"},
        {"<constraint type=\"range\"><range min=\"1\" max=\"ten\"/></constraint>",
         "Error parsing 'range' parameter constraint.  Range requires both 'min' and 'max' "
         "attributes and that both are integers."},
    };
    for (Case& c : cases) {
        c.fragment =
            "<parameter name=\"count\" type=\"int-list\" required=\"true\">"
            "<description>d</description>" +
            c.fragment + "</parameter>";
        c.message =
            "Unable to build parameter constraint for parameter count.  Error was: " + c.message;
    }
    cases.push_back(
        {"<parameter name=\"text\" type=\"string\" required=\"true\"><description>d"
         "</description><constraint type=\"regex\"><regex/></constraint></parameter>",
         "Unable to build parameter constraint for parameter text.  Error was: Error "
         "parsing regex from parameter constraint.Missing or empty 'regex' tag"});
    ExpectCommandErrors(cases, "<input-spec>", &CommandParts::inputSpec);
}

}  // namespace
