// Descriptor plug-ins through the built tool: a command line made from the arguments, and the
// descriptor's formatter on what a program printed. Templates and answers alone are the
// extension tests' business.
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
    std::string const plugin =
        DemoPlugin(files, "demo.xml",
                   Command("quiet",
                           "true -n '$val{name}' $if{force,-f} $if{limit,-l $val{limit}} "
                           "$multilist{path,--path,true}",
                           "<int/>") +
                       Command("items", "cat '" + items + "'",
                               "<list type=\"structure\">" + Item("", "", "") + "</list>"));
    // Without a language of the caller's, the command line shows the one the program gets.
    ExpectRun(Ostrel({"--plugin", plugin, "demo", "quiet", "--name", "O'Ne;il", "--force",
                      "--limit", "5", "--path", "a b", "--path", "c"},
                     "", {"LANG"}),
              1, "",
              "Errors: \nGot no data from process: LANG=en_US.UTF-8 true -n 'ONe;il' -f -l 5  "
              "--path \"a b\" --path \"c\"\n");
    ExpectRun(Ostrel({"--plugin", plugin, "demo", "items"}), 0,
              "Name    Size     Up\n------  -------  --\na&b<c>  512 MiB  true\nx         0 MiB  "
              "false\n",
              "");
}

}  // namespace
