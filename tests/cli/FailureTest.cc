#include <gtest/gtest.h>

#include "Ostrel.h"

namespace {

using namespace CliTest;

// Every row ends the run with status 1 before the command runs.
struct FailureRow {
    Words args;
    char const* messages;
};

FailureRow const kFailures[] = {
    // Arguments are checked against the declaration.
    {List({}, {"-c", "--namespace-filter"}),
     "-c must have value\n--namespace-filter must have value\n"},
    {List({}, {"-c", "a", "b", "--c", "-d"}),
     "Found Extra non-parameter arguments at the end of input: 'b' '--c' '-d' \n"},
    {List({}, {"--bogus", "1"}), "Unknown parameter : bogus\n"},
    // Option errors come first, then what the command's arguments got wrong.
    {List({"--bogus", "x"}, {"-n"}), "Unknown dispatcher parameter: bogus\n-n must have value\n"},
    {List({"-x", "1", "--Formatter", "json", "-x", "2"}),
     "Unknown dispatcher parameter: x\nUnknown dispatcher parameter: Formatter\n"
     "Unknown dispatcher parameter: x\n"},
    {List({"--formatter", "json", "--formatter", "xml"}),
     "Only one --formatter option can be passed to a command\n"},
    {List({"--formatter", ""}),
     "--formatter requires the name of the formatter to use for this command\n"},
    {List({"--formatter", "nosuch"}), "Unable to find requested formatter: nosuch\n"},
    {List({"--formatter", "clihelp"}), "Unable to find requested formatter: clihelp\n"},
    {List({"--format-param", "x_y=1", "--format-param", "ok=1", "--format-param", "=v",
           "--format-param", "k="}),
     "Unable to read format parameter x_y=1\nUnable to read format parameter =v\n"
     "Unable to read format parameter k=\n"},
};

TEST(FailureTest, EachProblemIsListedUnderErrors) {
    for (auto const& row : kFailures) {
        SCOPED_TRACE(row.messages);
        ExpectRun(Ostrel(row.args), 1, "", std::string("Errors: \n") + row.messages);
    }
}

TEST(FailureTest, APluginThatFailsToLoadIsReportedAndTheRunGoesOn) {
    ExpectRun(Ostrel(List({"--plugin", "/nonexistent/x.so", "--plugin", "notes.txt"})), 0,
              kCommandTable,
              "Unable to load plugin /nonexistent/x.so: Unable to load plugin from "
              "/nonexistent/x.so : /nonexistent/x.so: cannot open shared object file: No such "
              "file or directory\n");
    ExpectRun(Ostrel(List({"--plugin-dir", "/nonexistent"})), 0, kCommandTable,
              "Unable to open directory /nonexistent for plugin registration\n");
}

TEST(FailureTest, InputOptionProblemsGoToStandardError) {
    ExpectRun(Ostrel({"--input", "STDIN", "--input", "STDIN"}), 1, "",
              "Only one --input dispatch parameter is allowed\n");
    ExpectRun(Ostrel({"--input", "/nonexistent/lines"}), 1, "",
              "Unable to open file /nonexistent/lines\n");
}

}  // namespace
