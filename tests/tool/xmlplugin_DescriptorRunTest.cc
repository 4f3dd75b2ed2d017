// Descriptor plug-ins through the built tool: broken descriptors beside a good one, a command
// line made from the arguments, and the descriptor's formatter on what a program printed. Templates
// and answers alone are the extension tests' business.
#include <gtest/gtest.h>

#include <string>

#include "Ostrel.h"

namespace {

using namespace CliTest;

std::string Command(std::string const& name, std::string const& execute,
                    std::string const& outputSpec) {
    CommandParts parts;
    parts.path = "demo." + name;
    parts.execute = "<execute><![CDATA[" + execute + "]]></execute>";
    parts.outputSpec = "<output-spec>" + outputSpec + "</output-spec>";
    parts.inputSpec = "<input-spec>" + OptionalParameter("name", "string") +
                      OptionalParameter("force", "flag") + OptionalParameter("limit", "int") +
                      OptionalParameter("path", "string-list") + "</input-spec>";
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

TEST(DescriptorRunTest, LoadsRunsAndFormats) {
    DescriptorFiles files;
    std::string const items = files.Write(
        "items.out", "<output><list type=\"structure\">" + Item("a&amp;b&lt;c&gt;", "512", "true") +
                         Item("x", "0", "false") + "</list></output>");
    // In the directory with an unbound namespace prefix, which the XML parser warns about.
    auto demo = [&](std::string const& name, std::string const& attribute) {
        return DemoPlugin(files, name,
                          Command("quiet",
                                  "true -n '$val{name}' $if{force,-f} $if{limit,-l $val{limit}} "
                                  "$multilist{path,--path,true}",
                                  "<int" + attribute + "/>") +
                              Command("items", "cat '" + items + "'",
                                      "<list type=\"structure\">" + Item("", "", "") + "</list>"));
    };
    std::string const warned = demo("b-demo.xml", " p:x=\"1\""), clean = demo("sub/demo.xml", "");
    std::string const broken =
        files.Write("a-broken.xml",
                    Descriptor("<commands><command path=\"demo.bad\"><input-spec/>"
                               "<format-parameters/><execute>x</execute></command></commands>"));
    std::string const malformed =
        files.Write("a-malformed.xml", "<plugin><version>1.0.0</plugin>\n");
    // The loading messages in their places, the XML parser's own words first.
    // Without a language of the caller's, the command line shows the one the program gets.
    auto const run = Ostrel({"--plugin-dir", files.path, "demo", "quiet", "--name", "O'Ne;il",
                             "--force", "--limit", "5", "--path", "a b", "--path", "c"},
                            "", {"LANG"});
    EXPECT_EQ(1, run.status);
    EXPECT_EQ("", run.out);
    size_t at = 0;
    for (std::string const& expected :
         {"Error loading plugin " + broken + " skipping.  Error was: Unable to handle XML Plugin " +
              broken +
              ".  There was an error while parsing: Unable to register the command 'ostrel "
              "demo.bad'  Error was Unable to find <output-spec> element, which is required for "
              "a command.\n",
          malformed + ":1: parser error : Opening and ending tag mismatch: version line 1 and "
                      "plugin\n",
          "Error loading plugin " + malformed + " skipping.",
          warned + ":4: namespace error : Namespace prefix p for x on int is not defined\n",
          std::string("Errors: \nGot no data from process: LANG=en_US.UTF-8 true -n 'ONe;il' -f "
                      "-l 5  --path \"a b\" --path \"c\"\n")}) {
        at = run.err.find(expected, at);
        ASSERT_NE(std::string::npos, at) << expected << "\nin:\n" << run.err;
        at += expected.size();
    }
    EXPECT_EQ(run.err.size(), at);
    ExpectRun(Ostrel({"--plugin", clean, "demo", "items"}), 0,
              "Name    Size     Up\n------  -------  --\na&b<c>  512 MiB  true\nx         0 MiB  "
              "false\n",
              "");
}

}  // namespace
