// Every message a descriptor can cause while it is read, exactly as the user sees it: wrapped
// with the file and, inside a command, with the command.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/DescriptorFiles.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/plugins/XmlPlugin.h"

namespace {

using DescriptorTest::CommandParts;
using DescriptorTest::Descriptor;
using DescriptorTest::DescriptorFiles;
using DescriptorTest::NamespaceElement;
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
        return "Unable to handle XML Plugin " + files.Directory() +
               "/plugin.xml.  There was an error while parsing: " + message;
    }
    std::string CommandWrapped(std::string const& message) {
        return FileWrapped("Unable to register the command 'ostrel demo.run'  Error was " +
                           message);
    }
    std::string CommandError(CommandParts const& parts) {
        return Error(Descriptor("<commands>" + parts.Element() + "</commands>"));
    }
    // A command whose input specification is the given parameters.
    std::string ParameterError(std::string const& parameters) {
        CommandParts parts;
        parts.inputSpec = "<input-spec>" + parameters + "</input-spec>";
        return CommandError(parts);
    }

    DescriptorFiles files;
};

TEST_F(DescriptorMessagesTest, FileLevel) {
    std::string const file = files.Directory() + "/plugin.xml";
    std::string const version = "Unknown ostrel extention version.  Valid versions are: '1.0.0'";
    std::vector<Case> const cases = {
        {"<plugin><version>1.0.0</plugin>", "Unable to parse XML descriptor: " + file},
        {"", "Unable to parse XML descriptor: " + file},
        {"<plugin><commands/></plugin>", version},
        {"<plugin><version>1.0</version><commands/></plugin>", version},
        {"<plugin><version>1.0.0 </version><commands/></plugin>", version},
        {"<p><version>1.0.0</version><version>1.0.0</version></p>",
         "Illegal Duplicate tags found.  The tag version was expected only once, but was found "
         "multiple times."},
        {Descriptor("<other/>"),
         "Unable to find any namespaces or commands to register for plugin " + file},
        {Descriptor("<namespaces/><namespaces/>"),
         "More than one instance of namespaces found, expected only one."},
        {Descriptor("<commands/><commands/>"),
         "More than one instance of commands found, expected only one."},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(FileWrapped(c.message), Error(c.fragment)) << c.fragment;
    }
    std::string const missing = files.Directory() + "/missing.xml";
    EXPECT_EQ("Unable to handle XML Plugin " + missing +
                  ".  There was an error while parsing: Unable to parse XML descriptor: " + missing,
              ThrownMessage([&] { XmlPlugin::New(missing)->Initialize(); }));
}

TEST_F(DescriptorMessagesTest, NamespacesAndCommandHeads) {
    std::string const space =
        "Unable to register a namespace without valid 'path' attribute or <description> being "
        "present.";
    std::string const duplicateDescription =
        "Illegal Duplicate tags found.  The tag description was expected only once, but was "
        "found multiple times.";
    CommandParts twice;
    twice.description = "<description>a</description><description>b</description>";
    std::vector<Case> const cases = {
        {"<namespaces>" + NamespaceElement("", "d") + "</namespaces>", space},
        {"<namespaces>" + NamespaceElement("a", "") + "</namespaces>", space},
        {"<namespaces><namespace path=\"a\"/></namespaces>", space},
        {"<commands><command><execute>x</execute></command></commands>",
         "Invalid command specification found.  <command> tags must have a non-empty 'path' "
         "attribute"},
        // Read before the command wrapping begins.
        {"<commands>" + twice.Element() + "</commands>", duplicateDescription},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(FileWrapped(c.message), Error(Descriptor(c.fragment))) << c.fragment;
    }
}

TEST_F(DescriptorMessagesTest, CommandParts) {
    auto without = [](std::string CommandParts::*part, std::string const& replacement) {
        CommandParts parts;
        parts.*part = replacement;
        return parts;
    };
    std::string const execute =
        "Missing or empty <execute> tag.  This tag must specify a valid execution string for "
        "this command.";
    std::vector<std::pair<CommandParts, std::string>> const cases = {
        {without(&CommandParts::inputSpec, ""),
         "Unable to find <input-spec> element, which is required for a command."},
        {without(&CommandParts::outputSpec, ""),
         "Unable to find <output-spec> element, which is required for a command."},
        {without(&CommandParts::formatParameters, ""),
         "Unable to find <format-parameters> element, which is required for a command."},
        {without(&CommandParts::execute, ""), execute},
        {without(&CommandParts::execute, "<execute/><execute></execute>"), execute},
        {without(&CommandParts::execute, "<execute> </execute><execute/>"),
         "Illegal Duplicate tags found.  The tag execute was expected only once, but was found "
         "multiple times."},
        {without(&CommandParts::standardInput, "<stdin>a</stdin><stdin>b</stdin>"),
         "Illegal Duplicate tags found.  The tag stdin was expected only once, but was found "
         "multiple times."},
        {without(&CommandParts::metaData, "<meta-data/><meta-data/>"),
         "More than one instance of meta-data found, expected only one."},
        {without(&CommandParts::execute, "<execute>x</execute><input-spec/>"),
         "More than one instance of input-spec found, expected only one."},
        {without(&CommandParts::execute, "<execute>x</execute><output-spec/>"),
         "More than one instance of output-spec found, expected only one."},
        {without(&CommandParts::execute, "<execute>x</execute><format-parameters/>"),
         "More than one instance of format-parameters found, expected only one."},
        {without(&CommandParts::metaData, "<meta-data><entry>x</entry></meta-data>"),
         "Found unexpected tag while building meta-data set.  Unexpected tag was: entry"},
        {without(&CommandParts::metaData,
                 "<meta-data><meta-data-entry name=\"\">v</meta-data-entry></meta-data>"),
         "Error parsing 'meta-data-entry', missing required attribute 'name'"},
        {without(&CommandParts::formatParameters,
                 "<format-parameters><formatter/><formatter>x</formatter></format-parameters>"),
         "Invalid plugin format.  Duplicate <formatter> tags found"},
        {without(&CommandParts::outputSpec, "<output-spec><int/><!-- c --><bool/></output-spec>"),
         "Found more than one node under 'output-spec', where only one node is supported.  The "
         "tag was bool"},
        {without(&CommandParts::outputSpec, "<output-spec><integer/></output-spec>"),
         "Unable to build output spec.  Error was Unable to make a MetaObject from a node with "
         "tag 'integer'"},
        {without(&CommandParts::outputSpec, "<output-spec><structure/></output-spec>"),
         "Unable to build output spec.  Error was Invalid name specified for MetaStruct: "},
    };
    for (auto const& [parts, message] : cases) {
        EXPECT_EQ(CommandWrapped(message), CommandError(parts)) << parts.Element();
    }
}

TEST_F(DescriptorMessagesTest, ParametersInTheOrderOfTheirChecks) {
    std::string const d = "<description>d</description>";
    std::string const prefix = "Unable to parse Input Paramter pp. ";
    std::string const type =
        "Unable to parse Input Parameter pp. Missing or invalid required attribute: 'type'.  Must "
        "be one of [string, string-list, bool, bool-list, int, int-list]";
    std::string const required =
        prefix + "Missing or invalid 'required', must be one of ['true', 'false']";
    std::string const description = prefix + "Missing command description";
    // Each case breaks its rule and the later ones too, so only the earliest check may speak.
    std::vector<Case> const cases = {
        {"<parameter name=\"\" type=\"nope\"/>",
         "Unable to parse Input Parameter.  Missing required attribute: 'name'"},
        {"<parameter name=\"pp\" required=\"maybe\"/>", type},
        {"<parameter name=\"pp\" type=\"String\" required=\"true\"/>", type},
        {"<parameter name=\"pp\" type=\"int\" secret=\"x\"/>", required},
        {"<parameter name=\"pp\" type=\"int\" required=\"True\"/>", required},
        {"<parameter name=\"pp\" type=\"int\" required=\"true\" secret=\"x\"/>", description},
        {"<parameter name=\"pp\" type=\"int\" required=\"true\" secret=\"yes\">" + d +
             "</parameter>",
         prefix + "Invalid 'secret', must be one of ['true', 'false']"},
        {"<parameter name=\"pp\" type=\"int-list\" required=\"true\" secret=\"true\">" + d +
             "</parameter>",
         prefix + "Invalid type int-list for secret, must be 'string'"},
        {"<parameter name=\"pp\" type=\"int\" required=\"true\"><description>a</description>"
         "<description>b</description></parameter>",
         "Illegal Duplicate tags found.  The tag description was expected only once, but was "
         "found multiple times."},
        // From the call contract, passed on without a wrapping of the reader's own.
        {"<parameter name=\"Pp\" type=\"int\" required=\"true\">" + d + "</parameter>",
         "Invalid Parameter name 'Pp' parameter names can only contain lower-case alphanumeric "
         "characters, numbers and '-'"},
        {"<parameter name=\"pp\" shortname=\"ab\" type=\"int\" required=\"true\">" + d +
             "</parameter>",
         "Invalid value for shortName, must be a single character a-z, A-Z or 0-9"},
        {"<parameter name=\"p\" type=\"int\" required=\"true\">" + d + "</parameter>",
         "Parameter name must be at least 2 characters"},
        {"<parameter name=\"pp\" type=\"int\" required=\"true\">" + d + "</parameter>" +
             "<parameter name=\"pp\" type=\"bool\" required=\"true\">" + d + "</parameter>",
         "Found a duplicate paramater specification for parameter named 'pp'"},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(CommandWrapped(c.message), ParameterError(c.fragment)) << c.fragment;
    }
}

TEST_F(DescriptorMessagesTest, ConstraintsWrappedWithTheirParameter) {
    std::string const noData =
        "Error parsing parameter constraint.  There was no data included inside the "
        "<constraint> tag for the given constraint type";
    std::string const range =
        "Error parsing 'range' parameter constraint.  Range requires both 'min' and 'max' "
        "attributes and that both are integers.";
    std::vector<Case> const cases = {
        {"<constraint type=\"enum\"/>",
         "Missing or invalid constraint 'type', must be one of [stringenum, intenum, regex, "
         "range] got 'enum'"},
        {"<constraint/>",
         "Missing or invalid constraint 'type', must be one of [stringenum, intenum, regex, "
         "range] got ''"},
        {"<constraint type=\"intenum\"><enum><enum-value value=\"abc\">x</enum-value></enum>"
         "</constraint>",
         "Error parsing integer enumeration. Expected integer, but got abc"},
        {"<constraint type=\"intenum\"><enum><enum-value value=\"9223372036854775808\">x"
         "</enum-value></enum></constraint>",
         "Error parsing integer enumeration. Expected integer, but got 9223372036854775808"},
        {"<constraint type=\"intenum\"><enum><value/></enum></constraint>",
         "Found unexpected tag while building an enum.  Unexpected tag was: value"},
        {"<constraint type=\"intenum\"><enum><enum-value>1</enum-value></enum></constraint>",
         "Error parsing 'enum-value', missing required attribute 'value'"},
        {"<constraint type=\"intenum\"><enum><enum-value value=\"1\"/></enum></constraint>",
         noData},
        {"<constraint type=\"intenum\"><regex>1</regex></constraint>", noData},
        {"<constraint type=\"range\"/>", noData},
        {"<constraint type=\"range\"><range min=\"1\"/></constraint>", range},
        {"<constraint type=\"range\"><range min=\"1\" max=\"ten\"/></constraint>", range},
        {"<constraint type=\"range\"><range min=\"10\" max=\"1\"/></constraint>",
         "Invalid values for SetIntRange, constraints must have a min value <= max value"},
        {"<constraint type=\"intenum\"><enum><enum-value value=\"4\">a</enum-value>"
         "<enum-value value=\"04\">b</enum-value></enum></constraint>",
         "Duplicate Value found in ParameterConstraint::AddIntEnum"},
        {"<constraint type=\"regex\"><regex>[0-9]+</regex></constraint>",
         "Invalid constraint specified for parameter count.  The parameter constraint specified "
         "is not allowed for a parameter of this type."},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(CommandWrapped("Unable to build parameter constraint for parameter count.  "
                                 "Error was: " +
                                 c.message),
                  ParameterError("<parameter name=\"count\" type=\"int-list\" required=\"true\">"
                                 "<description>d</description>" +
                                 c.fragment + "</parameter>"))
            << c.fragment;
    }
    EXPECT_EQ(CommandWrapped("Unable to build parameter constraint for parameter text.  Error "
                             "was: Error parsing regex from parameter constraint.Missing or "
                             "empty 'regex' tag"),
              ParameterError("<parameter name=\"text\" type=\"string\" required=\"true\">"
                             "<description>d</description><constraint type=\"regex\"><regex/>"
                             "</constraint></parameter>"));
}

}  // namespace
