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

struct Case {
    std::string CommandParts::*part;  // nullptr: the content is the whole file
    std::string content, message;
};

DescriptorFiles files;
std::string const file = files.path + "/plugin.xml";

// The content replaces one part of an otherwise complete command, and the message gets the
// command's wrapping; or it is the whole file.
void ExpectMessages(std::vector<Case> const& cases) {
    for (Case const& c : cases) {
        CommandParts parts;
        std::string content = c.content, message = c.message;
        if (c.part != nullptr) {
            parts.*(c.part) = c.content;
            content = Descriptor("<commands>" + parts.Element() + "</commands>");
            message = "Unable to register the command 'ostrel demo.run'  Error was " + message;
        }
        files.Write("plugin.xml", content);
        EXPECT_EQ("Unable to handle XML Plugin " + file +
                      ".  There was an error while parsing: " + message,
                  ThrownMessage([&] { Tindra::AutoCli::XmlPlugin::New(file)->Initialize(); }))
            << c.content.substr(0, 200);
    }
}

TEST(DescriptorMessagesTest, FileLevelCommandPartsAndParametersInTheOrderOfTheirChecks) {
    CommandParts twice;
    twice.description = "<description>a</description><description>b</description>";
    std::string const unreadable = "Unable to parse XML descriptor: " + file;
    ExpectMessages({
        {nullptr, "<plugin><version>1.0.0</plugin>", unreadable},
        // Larger than any descriptor may be: refused before it is parsed.
        {nullptr, Descriptor("<commands/><!--" + std::string(10 * 1000 * 1000, '-') + "-->"),
         unreadable},
        {nullptr, "<plugin><version>1.0.0 </version><commands/></plugin>",
         "Unknown ostrel extention version.  Valid versions are: '1.0.0'"},
        {nullptr, Descriptor("<other/>"),
         "Unable to find any namespaces or commands to register for plugin " + file},
        {nullptr, Descriptor("<commands/><commands/>"),
         "More than one instance of commands found, expected only one."},
        {nullptr, Descriptor("<namespaces><namespace path=\"a\"/></namespaces>"),
         "Unable to register a namespace without valid 'path' attribute or <description> being "
         "present."},
        {nullptr, Descriptor("<commands><command><execute>x</execute></command></commands>"),
         "Invalid command specification found.  <command> tags must have a non-empty 'path' "
         "attribute"},
        // Read before the command wrapping begins.
        {nullptr, Descriptor("<commands>" + twice.Element() + "</commands>"),
         "Illegal Duplicate tags found.  The tag description was expected only once, but was "
         "found multiple times."},
    });
    auto const required = [](std::string const& tag) {
        return "Unable to find <" + tag + "> element, which is required for a command.";
    };
    auto const in = &CommandParts::inputSpec, out = &CommandParts::outputSpec,
               format = &CommandParts::formatParameters, meta = &CommandParts::metaData;
    ExpectMessages({
        {in, "", required("input-spec")},
        {out, "", required("output-spec")},
        {format, "", required("format-parameters")},
        {out, "<output-spec><int/><!-- c --><bool/></output-spec>",
         "Found more than one node under 'output-spec', where only one node is supported.  The "
         "tag was bool"},
        {out, "<output-spec><integer/></output-spec>",
         "Unable to build output spec.  Error was Unable to make a MetaObject from a node with "
         "tag 'integer'"},
        {format, "<format-parameters><formatter/><formatter>x</formatter></format-parameters>",
         "Invalid plugin format.  Duplicate <formatter> tags found"},
        {&CommandParts::execute, "<execute/>",
         "Missing or empty <execute> tag.  This tag must specify a valid execution string for "
         "this command."},
        {meta, "<meta-data><entry>x</entry></meta-data>",
         "Found unexpected tag while building meta-data set.  Unexpected tag was: entry"},
        {meta, "<meta-data><meta-data-entry name=\"\">v</meta-data-entry></meta-data>",
         "Error parsing 'meta-data-entry', missing required attribute 'name'"},
    });
    std::string const d = "<description>d</description>";
    std::string const prefix = "Unable to parse Input Paramter pp. ";
    auto const param = [](std::string const& attributes, std::string const& body = "") {
        return "<input-spec><parameter " + attributes + ">" + body + "</parameter></input-spec>";
    };
    // Each case breaks its rule and the later ones too, so only the earliest check may speak.
    ExpectMessages({
        {in, param("name=\"\" type=\"nope\""),
         "Unable to parse Input Parameter.  Missing required attribute: 'name'"},
        {in, param("name=\"pp\" type=\"String\" required=\"maybe\""),
         "Unable to parse Input Parameter pp. Missing or invalid required attribute: 'type'.  "
         "Must be one of [string, string-list, bool, bool-list, int, int-list]"},
        {in, param("name=\"pp\" type=\"int\" required=\"True\" secret=\"x\""),
         prefix + "Missing or invalid 'required', must be one of ['true', 'false']"},
        {in, param("name=\"pp\" type=\"int\" required=\"true\" secret=\"x\""),
         prefix + "Missing command description"},
        {in, param("name=\"pp\" type=\"int\" required=\"true\" secret=\"yes\"", d),
         prefix + "Invalid 'secret', must be one of ['true', 'false']"},
        {in, param("name=\"pp\" type=\"int-list\" required=\"true\" secret=\"true\"", d),
         prefix + "Invalid type int-list for secret, must be 'string'"},
        // From the call contract, passed on without a wrapping of the reader's own.
        {in, param("name=\"Pp\" type=\"int\" required=\"true\"", d),
         "Invalid Parameter name 'Pp' parameter names can only contain lower-case alphanumeric "
         "characters, numbers and '-'"},
    });
    std::vector<Case> constraints = {
        {in, "type=\"enum\">",
         "Missing or invalid constraint 'type', must be one of [stringenum, intenum, regex, "
         "range] got 'enum'"},
        {in, "type=\"intenum\"><enum><enum-value value=\"abc\">x</enum-value></enum>",
         "Error parsing integer enumeration. Expected integer, but got abc"},
        {in, "type=\"intenum\"><enum><value/></enum>",
         "Found unexpected tag while building an enum.  Unexpected tag was: value"},
        {in, "type=\"intenum\"><enum><enum-value>1</enum-value></enum>",
         "Error parsing 'enum-value', missing required attribute 'value'"},
        {in, "type=\"range\">",
         "Error parsing parameter constraint.  There was no data included inside the "
         "<constraint> tag for the given constraint type"},
        {in, "type=\"range\"><range min=\"1\" max=\"ten\"/>",
         "Error parsing 'range' parameter constraint.  Range requires both 'min' and 'max' "
         "attributes and that both are integers."},
        {in, "type=\"regex\"><regex/>",
         "Error parsing regex from parameter constraint.Missing or empty 'regex' tag"},
    };
    for (Case& c : constraints) {
        c.content = param("name=\"count\" type=\"int-list\" required=\"true\"",
                          d + "<constraint " + c.content + "</constraint>");
        c.message =
            "Unable to build parameter constraint for parameter count.  Error was: " + c.message;
    }
    ExpectMessages(constraints);
}

}  // namespace
