#include <gtest/gtest.h>

#include "Ostrel.h"

namespace {

using CliTest::ExpectRun;
using CliTest::Ostrel;

std::string const kHeader =
    "For help please run ostrel --help\n"
    "\n";

TEST(ListingTest, NoWordsListTheRootAndFail) {
    ExpectRun(Ostrel({}), 1,
              "Usage: ostrel [disp options] <namespaces> <command>\n\n" + kHeader +
                  "Available Namespaces: \n\n"
                  "ostrel  Commands that operate on the ostrel system itself allowing users to "
                  "get additional information.\n\n"
                  "Available Commands: \n\n\n",
              "");
}

TEST(ListingTest, NamespacesListTheirChildrenUnderTheirPath) {
    ExpectRun(Ostrel({"ostrel"}), 1,
              "Usage: ostrel [disp options] ostrel <namespaces> <command>\n\n" + kHeader +
                  "Available Namespaces: \n\n"
                  "command  Operations to get information about commands.\n\n"
                  "Available Commands: \n\n\n",
              "");
    ExpectRun(Ostrel({"ostrel", "command"}), 1,
              "Usage: ostrel [disp options] ostrel command <namespaces> <command>\n\n" + kHeader +
                  "Available Namespaces: \n\n\n"
                  "Available Commands: \n\n"
                  "list  List all of the ostrel commands.\n\n",
              "");
}

TEST(ListingTest, DescriptionsWrapAtTheGivenScreenWidth) {
    ExpectRun(Ostrel({"--screen-width", "60"}), 1,
              "Usage: ostrel [disp options] <namespaces> <command>\n\n" + kHeader +
                  "Available Namespaces: \n\n"
                  "ostrel  Commands that operate on the ostrel system itself \n"
                  "        allowing users to get additional information.\n\n"
                  "Available Commands: \n\n\n",
              "");
}

TEST(ListingTest, TheToolIsNamedAsInvoked) {
    auto run = TestSupport::RunProgram(OSTREL_BINARY, {"/opt/bin/admin", "ostrel", "command"}, "",
                                       {"OSTREL_SKIP_DEFAULT_PLUGINS=1"});
    EXPECT_EQ(1, run.status);
    EXPECT_EQ(0u, run.out.find("Usage: /opt/bin/admin [disp options] ostrel command <namespaces>"))
        << run.out;
    EXPECT_NE(std::string::npos, run.out.find("For help please run /opt/bin/admin --help\n"));
}

TEST(ListingTest, AnUnknownDispatcherOptionIsReportedAfterTheListing) {
    ExpectRun(Ostrel({"--bogus", "x", "ostrel", "command"}), 1,
              "Usage: ostrel [disp options] ostrel command <namespaces> <command>\n\n" + kHeader +
                  "Available Namespaces: \n\n\n"
                  "Available Commands: \n\n"
                  "list  List all of the ostrel commands.\n\n",
              "Errors: \nUnknown dispatcher parameter: bogus\n");
}

TEST(ListingTest, AnUnknownWordEndsTheRunWithTheResolverMessage) {
    ExpectRun(Ostrel({"nosuch"}), 1, "",
              "Errors: \nUnable to find a command or namespace with the name 'nosuch' in "
              "namespace \n");
    ExpectRun(Ostrel({"ostrel", "command", "nosuch", "--x", "1"}), 1, "",
              "Errors: \nUnable to find a command or namespace with the name 'nosuch' in "
              "namespace ostrel command\n");
    ExpectRun(Ostrel({"ostrel", "command", "list", "more"}), 1, "",
              "Errors: \nUnable to find a namespace or command with the name 'more' on the "
              "command 'ostrel command list'. Commands cannot have sub-commands or "
              "sub-namespaces.\n");
}

std::string const kUsage =
    "ostrel [dispatcher options] <namespaces> <command> [options]\n"
    "      For a list of available namespaces run ostrel with no arguments.  \n"
    "      Objects can be listed by specifying just the namespace.\n"
    "      Commands can be listed by specifying the namespace and object.\n"
    "\n"
    " Dispatcher Options: \n"
    "       --plugin-dir                    Add all the plug-ins from this directory\n"
    "       --plugin                        Add a specific file plugin.  (Multiple --plugin "
    "options can be passed.)\n"
    "       --formatter <formatter>         Override the formatter to use for a given command\n"
    "       --format-param <key>=<value>    Set a formatter parameter to give the formatter "
    "information about how to format the command\n"
    "       --screen-width <width>          Use the specified screen width when formatting "
    "text\n"
    "    -h|--help                          Show this message.\n"
    "\n";

TEST(UsageTest, HelpAsADispatcherOptionPrintsTheUsageAndNothingElse) {
    ExpectRun(Ostrel({"--help"}), 1, kUsage, "");
    ExpectRun(Ostrel({"-h", "ostrel", "command", "list"}), 1, kUsage, "");
    // Nothing else is applied, not even the check for unknown options.
    ExpectRun(Ostrel({"--bogus", "1", "--formatter", "xml", "--help"}), 1, kUsage, "");
}

TEST(UsageTest, OptionDescriptionsStartInColumnForty) {
    auto run = Ostrel({"-h"});
    std::size_t lineStart = run.out.find(" Dispatcher Options: \n");
    ASSERT_NE(std::string::npos, lineStart);
    lineStart = run.out.find('\n', lineStart) + 1;
    int optionLines = 0;
    for (std::size_t end; (end = run.out.find('\n', lineStart)) != lineStart; lineStart = end + 1) {
        std::string line = run.out.substr(lineStart, end - lineStart);
        EXPECT_EQ(' ', line.at(38)) << line;
        EXPECT_NE(' ', line.at(39)) << line;
        ++optionLines;
    }
    EXPECT_EQ(6, optionLines);
}

TEST(UsageTest, TheUsageNamesTheToolAsInvoked) {
    auto run = TestSupport::RunProgram(OSTREL_BINARY, {"tool", "--help"}, "",
                                       {"OSTREL_SKIP_DEFAULT_PLUGINS=1"});
    EXPECT_EQ(0u, run.out.find("tool [dispatcher options] <namespaces> <command> [options]\n"
                               "      For a list of available namespaces run tool with no "
                               "arguments.  \n"));
}

}  // namespace
