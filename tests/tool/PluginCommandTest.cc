#include <gtest/gtest.h>

#include "Ostrel.h"

namespace {

using namespace CliTest;

Words WithPlugin(Words const& words) {
    Words args = {"--plugin", TOOL_TEST_PLUGIN};
    args.insert(args.end(), words.begin(), words.end());
    return args;
}

std::string const kPrompt = "Enter value for 'password': \n";

TEST(SecretPromptEndToEndTest, OnlyASecretWithoutValueIsReadFromStandardInput) {
    ExpectRun(Ostrel(WithPlugin({"clitest", "secret", "echo", "-p", "--label", "L"}),
                     "hunter 2\nnot read\n"),
              0, kPrompt + "L:hunter 2\n", "");
    ExpectRun(Ostrel(WithPlugin({"clitest", "secret", "echo", "--label", "L", "--password"}), ""),
              0, kPrompt + "L:\n", "");
    ExpectRun(Ostrel(WithPlugin({"clitest", "secret", "echo", "--password=a b"}), "unused\n"), 0,
              ":a b\n", "");
    // In a stream the prompt takes the next line.
    ExpectRun(Ostrel({"--input", "STDIN"},
                     "--plugin " TOOL_TEST_PLUGIN " clitest secret echo -p\ns3cret\n"
                     "clitest secret echo -p given\n"),
              0, kPrompt + ":s3cret\n:given\n", "");
}

TEST(PluginCommandTest, OutcomesOfAPluginCommand) {
    // A success without formatter prints nothing unless one is asked for.
    ExpectRun(Ostrel(WithPlugin({"clitest", "quiet", "run"})), 0, "", "");
    ExpectRun(Ostrel(WithPlugin({"--formatter", "json", "clitest", "quiet", "run"})), 0, "true\n",
              "");
    ExpectRun(Ostrel(WithPlugin({"clitest", "fail", "run"})), 1, "",
              "Errors: \nError on command clitest fail run : disk on fire\n");
    ExpectRun(Ostrel(WithPlugin({"clitest", "secret", "echo", "--label", "x"})), 1, "",
              "Errors: \nMissing required parameter --password\n");
}

TEST(PluginCommandTest, PluginsFromADirectoryAndFromEarlierStreamLinesStay) {
    ExpectRun(Ostrel({"--plugin-dir", TOOL_TEST_PLUGIN_DIR, "clitest", "quiet", "run"}), 0, "", "");
    ExpectRun(Ostrel({"--input", "STDIN"},
                     "--plugin " TOOL_TEST_PLUGIN " ostrel command list -c run\nclitest fail run\n"
                     "clitest secret echo -p x\n"),
              0,
              "Namespace      Command  Description\n"
              "-------------  -------  -----------\n"
              "clitest.fail   run      Always fails.\n"
              "clitest.quiet  run      Do nothing visible.\n"
              ":x\n",
              "Errors: \nError on command clitest fail run : disk on fire\n");
}

}  // namespace
