#include <gtest/gtest.h>

#include "Ostrel.h"

namespace {

using namespace CliTest;

// Only a secret given without value is read from standard input, in a stream from the next
// line; a plug-in named on an earlier line stays.
TEST(PluginCommandTest, SecretPrompt) {
    DescriptorFiles files;
    CommandParts echo;
    echo.inputSpec =
        "<input-spec>" +
        OptionalParameter("password", "string", "", " shortname=\"p\" secret=\"true\"") +
        OptionalParameter("label", "string") + "</input-spec>";
    echo.outputSpec = "<output-spec><string/></output-spec>";
    echo.formatParameters = "<format-parameters><formatter>simple</formatter></format-parameters>";
    echo.execute =
        "<execute>echo '&lt;output&gt;&lt;string&gt;$if{label,$val{label}}:$val{password}"
        "&lt;/string&gt;&lt;/output&gt;'</execute>";
    CommandParts quiet;  // no formatter: prints nothing
    quiet.path = "demo.quiet";
    quiet.execute =
        "<execute>echo '&lt;output&gt;&lt;int&gt;1&lt;/int&gt;&lt;/output&gt;'</execute>";
    std::string const plugin = DemoPlugin(files, "demo.xml", echo.Element() + quiet.Element());
    std::string const prompt = "Enter value for 'password': \n";
    ExpectRun(
        Ostrel({"--plugin", plugin, "demo", "run", "-p", "--label", "L"}, "hunter 2\nnot read\n"),
        0, prompt + "L:hunter 2\n", "");
    ExpectRun(Ostrel({"--input", "STDIN"},
                     "--plugin " + plugin + " demo run -p\ns3cret\ndemo run -p given\n"),
              0, prompt + ":s3cret\n:given\n", "");
    ExpectRun(Ostrel({"--plugin", plugin, "demo", "quiet"}), 0, "", "");
}

}  // namespace
