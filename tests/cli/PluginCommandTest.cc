#include <gtest/gtest.h>

#include "Ostrel.h"

namespace {

using CliTest::BuiltInCommandTable;
using CliTest::ExpectRun;
using CliTest::Ostrel;

std::vector<std::string> WithPlugin(std::vector<std::string> const& words) {
    std::vector<std::string> args = {"--plugin", CLI_TEST_PLUGIN};
    args.insert(args.end(), words.begin(), words.end());
    return args;
}

std::string const kPrompt = "Enter value for 'password': \n";

TEST(SecretPromptEndToEndTest, ASecretWithoutValueIsReadFromStandardInput) {
    ExpectRun(Ostrel(WithPlugin({"clitest", "secret", "echo", "-p", "--label", "L"}),
                     "hunter 2\nnot read\n"),
              0, kPrompt + "L:hunter 2\n", "");
    ExpectRun(Ostrel(WithPlugin({"clitest", "secret", "echo", "--label", "L", "--password"}), ""),
              0, kPrompt + "L:\n", "");
}

TEST(SecretPromptEndToEndTest, AGivenSecretIsNotAskedFor) {
    ExpectRun(Ostrel(WithPlugin({"clitest", "secret", "echo", "--password=a b"}), "unused\n"), 0,
              ":a b\n", "");
}

TEST(SecretPromptEndToEndTest, InAStreamThePromptTakesTheNextLine) {
    std::string const lines = "--plugin " CLI_TEST_PLUGIN
                              " clitest secret echo -p\n"
                              "s3cret\n"
                              "clitest secret echo -p given\n";
    ExpectRun(Ostrel({"--input", "STDIN"}, lines), 0, kPrompt + ":s3cret\n:given\n", "");
}

TEST(PluginCommandTest, ASuccessWithoutFormatterPrintsNothing) {
    ExpectRun(Ostrel(WithPlugin({"clitest", "quiet", "run"})), 0, "", "");
    ExpectRun(Ostrel(WithPlugin({"--formatter", "json", "clitest", "quiet", "run"})), 0, "true\n",
              "");
}

TEST(PluginCommandTest, ACommandsFailureIsPrintedAsAnError) {
    ExpectRun(Ostrel(WithPlugin({"clitest", "fail", "run"})), 1, "",
              "Errors: \nError on command clitest fail run : disk on fire\n");
}

TEST(PluginCommandTest, MissingRequiredParametersStopTheCommand) {
    ExpectRun(Ostrel(WithPlugin({"clitest", "secret", "echo", "--label", "x"})), 1, "",
              "Errors: \nMissing required parameter --password\n");
}

TEST(PluginCommandTest, PluginsFromADirectoryAndFromEarlierStreamLinesStay) {
    ExpectRun(Ostrel({"--plugin-dir", CLI_TEST_PLUGIN_DIR, "clitest", "quiet", "run"}), 0, "", "");
    std::string const lines = "--plugin " CLI_TEST_PLUGIN
                              " ostrel command list -c run\n"
                              "clitest fail run\n"
                              "clitest secret echo -p x\n";
    ExpectRun(Ostrel({"--input", "STDIN"}, lines), 0,
              "Namespace      Command  Description\n"
              "-------------  -------  -----------\n"
              "clitest.fail   run      Always fails.\n"
              "clitest.quiet  run      Do nothing visible.\n"
              ":x\n",
              "Errors: \nError on command clitest fail run : disk on fire\n");
}

}  // namespace
