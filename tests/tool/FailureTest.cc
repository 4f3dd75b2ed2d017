#include <fcntl.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "Ostrel.h"

namespace {

using namespace CliTest;

// Each ends the run with status 1 before the command runs: option errors first, then what the
// command's arguments got wrong. (What the parsers say about arguments alone is theirs.)
TEST(FailureTest, EachProblemIsListedUnderErrors) {
    std::pair<Words, std::string> const failures[] = {
        {List({"--bogus", "x"}, {"-n"}),
         "Unknown dispatcher parameter: bogus\n-n must have value\n"},
        {List({"--formatter", "json", "--formatter", "xml"}),
         "Only one --formatter option can be passed to a command\n"},
        {List({"--formatter", ""}),
         "--formatter requires the name of the formatter to use for this command\n"},
        {List({"--formatter", "nosuch"}), "Unable to find requested formatter: nosuch\n"},
        {List({"--format-param", "x_y=1", "--format-param", "ok=1"}),
         "Unable to read format parameter x_y=1\n"}};
    for (auto const& [args, messages] : failures)
        ExpectRun(Ostrel(args), 1, "", "Errors: \n" + messages);
}

// A plug-in directory that cannot be read is reported and the run goes on; input that cannot
// be read ends it.
TEST(FailureTest, PluginsAndInputFilesThatCannotBeReadAreNamed) {
    ExpectRun(Ostrel(List({"--plugin-dir", "/nonexistent"})), 0, kCommandTable,
              "Unable to open directory /nonexistent for plugin registration\n");
    ExpectRun(Ostrel({"--input", "STDIN", "--input", "STDIN"}), 1, "",
              "Only one --input dispatch parameter is allowed\n");
    ExpectRun(Ostrel({"--input", "/nonexistent/lines"}), 1, "",
              "Unable to open file /nonexistent/lines\n");
    ExpectRun(Ostrel({"--input", "/"}), 1, "", "Unable to read file /: Is a directory\n");
}

// Output that cannot be written is never a silent success; a reader that left is no error
// worth a message (the tool runs with SIGPIPE ignored, so it sees EPIPE).
TEST(FailureTest, LostOutputIsReportedOnceUnlessTheReaderLeft) {
    TestSupport::OwnedFd full(open("/dev/full", O_WRONLY | O_CLOEXEC));
    for (Words const& args : {List({}), Words{"--help"}})
        ExpectRun(Ostrel(args, "", {}, full.Get()), 1, "",
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
    DescriptorFiles files;
    CommandParts parts;
    auto regex = [](std::string const& name, std::string const& pattern) {
        return OptionalParameter(
            name, "string",
            "<constraint type=\"regex\"><regex>" + pattern + "</regex></constraint>");
    };
    parts.inputSpec =
        "<input-spec>" + regex("broken", "([a-z") + regex("greedy", "(a*)*b") + "</input-spec>";
    auto const run = Ostrel({"--input", "STDIN"},
                            "--plugin " + DemoPlugin(files, "regex.xml", parts.Element()) +
                                " demo run --broken abc\ndemo run --greedy " +
                                std::string(5000, 'a') + "\nostrel command list -c list\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, kCommandTable);
    std::string const prefix = "Errors: \nUnable to check the value of parameter '";
    auto const second = run.err.find(prefix, 1);
    ASSERT_NE(std::string::npos, second) << run.err;
    EXPECT_EQ(0u, run.err.find(prefix + "broken' against the regular expression (([a-z): "));
    EXPECT_EQ(second, run.err.find(prefix + "greedy' against the regular expression ((a*)*b): "));
    EXPECT_EQ(4, std::count(run.err.begin(), run.err.end(), '\n')) << run.err;
}

}  // namespace
