#include <gtest/gtest.h>

#include "Ostrel.h"

namespace {

using CliTest::BuiltInCommandTable;
using CliTest::ExpectRun;
using CliTest::Ostrel;

std::vector<std::string> List(std::vector<std::string> const& before,
                              std::vector<std::string> const& after = {}) {
    std::vector<std::string> words = before;
    for (char const* word : {"ostrel", "command", "list"}) {
        words.push_back(word);
    }
    words.insert(words.end(), after.begin(), after.end());
    return words;
}

void ExpectErrors(std::vector<std::string> const& args, std::string const& messages) {
    ExpectRun(Ostrel(args), 1, "", "Errors: \n" + messages);
}

TEST(FailureTest, ArgumentsAreCheckedAgainstTheDeclarationBeforeTheCommandRuns) {
    ExpectErrors(List({}, {"--namespace-filter"}), "--namespace-filter must have value\n");
    ExpectErrors(List({}, {"-c", "-n"}), "-c must have value\n-n must have value\n");
    ExpectErrors(List({}, {"-n", "x", "y", "--c", "z"}),
                 "Found Extra non-parameter arguments at the end of input: 'y' '--c' 'z' \n");
    ExpectErrors(List({}, {"-c", "a", "b", "-d"}),
                 "Found Extra non-parameter arguments at the end of input: 'b' '-d' \n");
}

TEST(FailureTest, UnknownDispatcherOptionsStopTheCommand) {
    ExpectErrors(List({"--bogus", "x"}), "Unknown dispatcher parameter: bogus\n");
    ExpectErrors(List({"-x", "1", "--Formatter", "json", "-x", "2"}),
                 "Unknown dispatcher parameter: x\nUnknown dispatcher parameter: Formatter\n"
                 "Unknown dispatcher parameter: x\n");
    // Option errors come first, then what the command's arguments got wrong.
    ExpectErrors(List({"--bogus", "x"}, {"-n"}),
                 "Unknown dispatcher parameter: bogus\n-n must have value\n");
}

TEST(FailureTest, TheFormatterMustBeNamedOnce) {
    ExpectErrors(List({"--formatter", "json", "--formatter", "xml"}),
                 "Only one --formatter option can be passed to a command\n");
    ExpectErrors(List({"--formatter", ""}),
                 "--formatter requires the name of the formatter to use for this command\n");
    ExpectErrors(List({"--formatter", "nosuch"}), "Unable to find requested formatter: nosuch\n");
    ExpectErrors(List({"--formatter", "clihelp"}), "Unable to find requested formatter: clihelp\n");
}

TEST(FailureTest, EveryMalformedFormatParameterIsReported) {
    ExpectErrors(List({"--format-param", "x_y=1", "--format-param", "ok=1", "--format-param", "=v",
                       "--format-param", "k="}),
                 "Unable to read format parameter x_y=1\nUnable to read format parameter =v\n"
                 "Unable to read format parameter k=\n");
}

TEST(FailureTest, InvalidInputIsReportedByTheValidator) {
    ExpectErrors(List({}, {"--bogus", "1"}), "Unknown parameter : bogus\n");
}

TEST(FailureTest, APluginThatFailsToLoadIsReportedAndTheRunGoesOn) {
    ExpectRun(Ostrel(List({"--plugin", "/nonexistent/x.so", "--plugin", "notes.txt"})), 0,
              BuiltInCommandTable(),
              "Unable to load plugin /nonexistent/x.so: Unable to load plugin from "
              "/nonexistent/x.so : /nonexistent/x.so: cannot open shared object file: No such "
              "file or directory\n");
    ExpectRun(Ostrel(List({"--plugin-dir", "/nonexistent"})), 0, BuiltInCommandTable(),
              "Unable to open directory /nonexistent for plugin registration\n");
}

TEST(FailureTest, InputOptionProblemsGoToStandardError) {
    ExpectRun(Ostrel({"--input", "STDIN", "--input", "STDIN"}), 1, "",
              "Only one --input dispatch parameter is allowed\n");
    ExpectRun(Ostrel({"--input", "/nonexistent/lines"}), 1, "",
              "Unable to open file /nonexistent/lines\n");
}

}  // namespace
