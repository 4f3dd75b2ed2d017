#include <fcntl.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "Ostrel.h"
#include "support/DescriptorFiles.h"

namespace {

using namespace CliTest;

// Every row ends the run with status 1 before the command runs. (What the parsers say about
// arguments alone is pinned by their own tests.)
struct FailureRow {
    Words args;
    char const* messages;
};

FailureRow const kFailures[] = {
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

TEST(FailureTest, InputFilesThatCannotBeReadAreNamed) {
    ExpectRun(Ostrel({"--input", "STDIN", "--input", "STDIN"}), 1, "",
              "Only one --input dispatch parameter is allowed\n");
    ExpectRun(Ostrel({"--input", "/nonexistent/lines"}), 1, "",
              "Unable to open file /nonexistent/lines\n");
    ExpectRun(Ostrel({"--input", "/"}), 1, "", "Unable to read file /: Is a directory\n");
}

// Output that cannot be written is never a silent success; a reader that left is no error
// worth a message (the test runs the tool with SIGPIPE ignored, so it sees EPIPE).
TEST(FailureTest, LostOutputIsReportedOnceUnlessTheReaderLeft) {
    TestSupport::OwnedFd full(open("/dev/full", O_WRONLY | O_CLOEXEC));
    ExpectRun(Ostrel(List({}), "", {}, full.Get()), 1, "",
              "ostrel: write error: No space left on device\n");
    ExpectRun(Ostrel({"--help"}, "", {}, full.Get()), 1, "",
              "ostrel: write error: No space left on device\n");
    ExpectRun(Ostrel({"--input", "STDIN"}, "ostrel command list\nostrel command list\n", {},
                     TestSupport::kClosedOutput),
              1, "", "ostrel: write error: Bad file descriptor\n");
    auto pipe = TestSupport::Pipe::Open();
    pipe.read.Reset();
    ExpectRun(Ostrel(List({}), "", {}, pipe.write.Get()), 1, "", "");
}

// A regular expression from a descriptor that does not compile, or that the matcher gives up
// on, fails its own line only.
TEST(FailureTest, ARegularExpressionThatCannotBeCheckedFailsItsLineOnly) {
    DescriptorTest::DescriptorFiles files;
    DescriptorTest::CommandParts parts;
    parts.inputSpec = "<input-spec>";
    for (std::string const name : {"broken", "greedy"}) {
        parts.inputSpec += "<parameter name=\"" + name +
                           "\" type=\"string\" required=\"false\"><description>d</description>"
                           "<constraint type=\"regex\"><regex>" +
                           (name == "broken" ? "([a-z" : "(a*)*b") +
                           "</regex></constraint></parameter>";
    }
    parts.inputSpec += "</input-spec>";
    auto const plugin = files.Write(
        "regex.xml",
        DescriptorTest::Descriptor("<namespaces>" + DescriptorTest::NamespaceElement("demo", "D") +
                                   "</namespaces><commands>" + parts.Element() + "</commands>"));
    auto const run = Ostrel({"--input", "STDIN"}, "--plugin " + plugin +
                                                      " demo run --broken abc\n"
                                                      "demo run --greedy " +
                                                      std::string(5000, 'a') +
                                                      "\nostrel command list -c list\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, kCommandTable);
    std::string const prefix = "Errors: \nUnable to check the value of parameter '";
    std::string const broken = prefix + "broken' against the regular expression (([a-z): ";
    std::string const greedy = prefix + "greedy' against the regular expression ((a*)*b): ";
    auto const second = run.err.find(prefix, 1);
    ASSERT_NE(second, std::string::npos) << run.err;
    EXPECT_EQ(run.err.substr(0, broken.size()), broken);
    EXPECT_EQ(run.err.substr(second, greedy.size()), greedy);
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 4) << run.err;
}

}  // namespace
