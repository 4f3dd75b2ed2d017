// Descriptor plug-ins through the built tool: a broken descriptor beside a good one, a command
// line made from the arguments, the errors a wrong answer ends in, and the descriptor's formatter
// on what a program printed. Templates and answers alone are the extension tests' business.
#include <gtest/gtest.h>

#include <stdlib.h>

#include <string>

#include "Ostrel.h"
#include "support/DescriptorFiles.h"

namespace {

using namespace DescriptorTest;
using CliTest::Words;

std::string Command(std::string const& name, std::string const& execute,
                    std::string const& outputSpec) {
    CommandParts parts;
    parts.path = "demo." + name;
    parts.execute = "<execute><![CDATA[" + execute + "]]></execute>";
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

TEST(DescriptorRunTest, LoadsRunsAndFormats) {
    // Without a language of the caller's, the command line shows the one the program gets.
    std::string const savedLang = getenv("LANG") ? getenv("LANG") : "";
    unsetenv("LANG");
    DescriptorFiles files;
    std::string const items = files.Write(
        "items.out", "<output><list type=\"structure\">" + Item("a&amp;b&lt;c&gt;", "512", "true") +
                         Item("x", "0", "false") + "</list></output>");
    std::string const demo = files.Write(
        "b-demo.xml",
        Descriptor("<namespaces>" + NamespaceElement("demo", "Demo") + "</namespaces><commands>" +
                   Command("quiet",
                           "true -n '$val{name}' $if{force,-f} $if{limit,-l $val{limit}} "
                           "$multilist{path,--path,true}",
                           "<int/>") +
                   Command("mismatch", "echo '<output><string>1</string></output>'", "<int/>") +
                   Command("items", "cat '" + items + "'",
                           "<list type=\"structure\">" + Item("", "", "") + "</list>") +
                   "</commands>"));
    std::string const broken =
        files.Write("a-broken.xml",
                    Descriptor("<commands><command path=\"demo.bad\"><input-spec/>"
                               "<format-parameters/><execute>x</execute></command></commands>"));
    struct Row {
        Words args;
        int status;
        std::string out, err;
    } const rows[] = {
        {{"--plugin-dir", files.path, "demo", "quiet", "--name", "O'Ne;il", "--force", "--limit",
          "5", "--path", "a b", "--path", "c"},
         1,
         "",
         "Error loading plugin " + broken + " skipping.  Error was: Unable to handle XML Plugin " +
             broken +
             ".  There was an error while parsing: Unable to register the command 'ostrel "
             "demo.bad'  Error was Unable to find <output-spec> element, which is required for "
             "a command.\nErrors: \nGot no data from process: LANG=en_US.UTF-8 true -n 'ONe;il' "
             "-f -l 5  --path \"a b\" --path \"c\"\n"},
        {{"--plugin", demo, "demo", "mismatch"},
         1,
         "",
         "Errors: \nType mismatch in structure.  Expecting Int got String\nImplementation error! "
         "The output of this command does not match the declared output type, see errors "
         "above.\n"},
        {{"--plugin", demo, "demo", "items"},
         0,
         "Name    Size     Up\n------  -------  --\na&b<c>  512 MiB  true\nx         0 MiB  "
         "false\n",
         ""},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.args[3]);
        CliTest::ExpectRun(CliTest::Ostrel(row.args), row.status, row.out, row.err);
    }
    if (!savedLang.empty()) {
        setenv("LANG", savedLang.c_str(), 1);
    }
}

}  // namespace
