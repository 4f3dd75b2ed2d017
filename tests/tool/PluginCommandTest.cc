#include <gtest/gtest.h>

#include "Ostrel.h"

namespace {

using namespace CliTest;

// Only a secret given without value is read from standard input, in a stream from the next
// line; a plug-in named on an earlier line stays. A command without formatter prints nothing
// unless one is asked for.
TEST(PluginCommandTest, SecretPromptAndDefaultFormat) {
    DescriptorFiles files;
    CommandParts echo, quiet;
    echo.path = "demo.echo";
    echo.inputSpec =
        "<input-spec>" +
        OptionalParameter("password", "string", "", " shortname=\"p\" secret=\"true\"") +
        OptionalParameter("label", "string") + "</input-spec>";
    echo.outputSpec = "<output-spec><string/></output-spec>";
    echo.formatParameters = "<format-parameters><formatter>simple</formatter></format-parameters>";
    echo.execute =
        "<execute>echo '&lt;output&gt;&lt;string&gt;$if{label,$val{label}}:$val{password}"
        "&lt;/string&gt;&lt;/output&gt;'</execute>";
    quiet.path = "demo.quiet";
    quiet.execute =
        "<execute>echo '&lt;output&gt;&lt;int&gt;1&lt;/int&gt;&lt;/output&gt;'</execute>";
    std::string const plugin = DemoPlugin(files, "demo.xml", echo.Element() + quiet.Element());
    std::string const prompt = "Enter value for 'password': \n";
    struct {
        Words args;
        std::string input, out;
    } const rows[] = {
        {{"demo", "echo", "-p", "--label", "L"}, "hunter 2\nnot read\n", prompt + "L:hunter 2\n"},
        {{"demo", "quiet"}, "", ""},
        {{"--formatter", "json", "demo", "quiet"}, "", "1\n"},
        {{"--input", "STDIN"},
         "--plugin " + plugin + " demo echo -p\ns3cret\ndemo echo -p given\n",
         prompt + ":s3cret\n:given\n"},
    };
    for (auto row : rows) {
        if (row.args[0] != "--input")
            row.args.insert(row.args.begin(), {"--plugin", plugin});
        ExpectRun(Ostrel(row.args, row.input), 0, row.out, "");
    }
}

}  // namespace
