// Descriptor plug-ins through the built tool: loading errors as the user sees them, the command
// line and standard input made from the templates, the answers a program can give, and the
// descriptor's formatter on what a program printed.
#include <gtest/gtest.h>

#include <stdlib.h>

#include <string>
#include <vector>

#include "Ostrel.h"
#include "support/DescriptorFiles.h"

namespace {

using namespace DescriptorTest;
using CliTest::ExpectRun;
using CliTest::Words;

std::string Command(std::string const& name, std::string const& execute,
                    std::string const& outputSpec = "<int/>", std::string const& extra = "") {
    CommandParts parts;
    parts.path = "demo." + name;
    parts.execute = "<execute><![CDATA[" + execute + "]]></execute>" + extra;
    parts.outputSpec = "<output-spec>" + outputSpec + "</output-spec>";
    parts.inputSpec = "<input-spec>";
    for (std::string const parameter :
         {"name string", "force flag", "limit int", "path string-list"}) {
        size_t const blank = parameter.find(' ');
        parts.inputSpec += "<parameter name=\"" + parameter.substr(0, blank) + "\" type=\"" +
                           parameter.substr(blank + 1) +
                           "\" required=\"false\"><description>d</description></parameter>";
    }
    parts.inputSpec += "</input-spec>";
    parts.formatParameters =
        "<format-parameters><formatter>table</formatter>"
        "<format-parameter name=\"fields:Item\">Name,Size,Up</format-parameter>"
        "<format-parameter name=\"units:Item.Size\">MiB</format-parameter></format-parameters>";
    return parts.Element();
}

std::string Item(std::string const& name, std::string const& size, std::string const& up) {
    return "<structure typeName=\"Item\"><field name=\"Name\"><string>" + name +
           "</string></field><field name=\"Size\"><int>" + size +
           "</int></field><field name=\"Up\"><bool>" + up + "</bool></field></structure>";
}

class DescriptorRunTest : public ::testing::Test {
protected:
    void SetUp() override {
        unsetenv("LANG");  // runs choose their own
        std::string const items =
            files.Write("items.out", "<output><list type=\"structure\">" +
                                         Item("a&amp;b&lt;c&gt;", "512", "true") +
                                         Item("x", "0", "false") + "</list></output>");
        demo = files.Write(
            "b-demo.xml",
            Descriptor(
                "<namespaces>" + NamespaceElement("demo", "Demo") + "</namespaces><commands>" +
                Command("quiet",
                        "true -n '$val{name}' $if{force,-f} $if{limit,-l $val{limit}} "
                        "$multilist{path,--path,true}") +
                Command("echo", "cat", "<string/>",
                        "<stdin><![CDATA[<output><string>$val{name}</string></output>]]></stdin>") +
                Command("errors", "printf 'ERROR:disk busy\\nERROR: retry later\\n<output/>'") +
                Command("malformed", "echo '<output><int>1</output>'") +
                Command("mismatch", "echo '<output><string>1</string></output>'") +
                Command("items", "cat '" + items + "'",
                        "<list type=\"structure\">" + Item("", "", "") + "</list>") +
                "</commands>"));
    }
    void TearDown() override {
        if (!savedLang.empty()) {
            setenv("LANG", savedLang.c_str(), 1);
        }
    }

    // The tool with the given environment and, unless asked otherwise, the demo plug-in.
    TestSupport::ChildResult Demo(Words args, Words environment = {"LANG=C"}) {
        if (args[0] != "--plugin-dir")
            args.insert(args.begin(), {"--plugin", demo});
        return CliTest::Ostrel(args, "", environment);
    }

    std::string const savedLang = getenv("LANG") ? getenv("LANG") : "";
    DescriptorFiles files;
    std::string demo;
};

TEST_F(DescriptorRunTest, ABrokenDescriptorIsReportedAndTheOthersStillLoad) {
    std::string const broken =
        files.Write("a-broken.xml",
                    Descriptor("<commands><command path=\"demo.bad\"><input-spec/>"
                               "<format-parameters/><execute>x</execute></command></commands>"));
    std::string const why =
        "Unable to register the command 'ostrel demo.bad'  Error was Unable "
        "to find <output-spec> element, which is required for a command.\n";
    ExpectRun(Demo({"--plugin-dir", files.path, "demo", "quiet", "--name", "O'Ne;il", "--force",
                    "--limit", "5", "--path", "a b", "--path", "c"},
                   {}),
              1, "",
              "Error loading plugin " + broken +
                  " skipping.  Error was: Unable to handle XML Plugin " + broken +
                  ".  There was an error while parsing: " + why +
                  "Errors: \nGot no data from process: LANG=en_US.UTF-8 "
                  "true -n 'ONe;il' -f -l 5  --path \"a b\" --path \"c\"\n");
}

TEST_F(DescriptorRunTest, TemplatesAreFilledFromTheArguments) {
    // Only conditional sections disappear when their parameter is not given.
    ExpectRun(Demo({"demo", "quiet"}, {}), 1, "",
              "Errors: \nGot no data from process: LANG=en_US.UTF-8 true -n '$val{name}'   "
              "$multilist{path,--path,true}\n");
    // Standard input takes the value as it is: no shell reads it.
    ExpectRun(Demo({"--formatter", "json", "demo", "echo", "--name", "O'Neil $HOME;"}), 0,
              "\"O'Neil $HOME;\"\n", "");
}

TEST_F(DescriptorRunTest, WhatTheProgramAnswersDecidesTheErrors) {
    std::string const noRoot =
        "Implementation error! The output of this command does not match the declared output "
        "type, see errors above.\n";
    std::string const none =
        "No root object set for output. The command did not provide proper output.\n" + noRoot;
    std::vector<std::pair<std::string, std::string>> const answers = {
        {"errors", "disk busy\n retry later\n"},
        {"malformed", none},
        {"mismatch", "Type mismatch in structure.  Expecting Int got String\n" + noRoot},
    };
    for (auto const& [command, errors] : answers) {
        ExpectRun(Demo({"demo", command}), 1, "", "Errors: \n" + errors);
    }
}

// The descriptor's formatter with its fields and units; the formatters' layouts are their own
// tests' business.
TEST_F(DescriptorRunTest, TheDescriptorsFormatterPrintsTheProgramsOutput) {
    ExpectRun(Demo({"demo", "items"}), 0,
              "Name    Size     Up\n------  -------  --\na&b<c>  512 MiB  true\nx         0 MiB  "
              "false\n",
              "");
}

}  // namespace
