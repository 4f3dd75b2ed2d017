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

TEST(UsageTest, ListingAndUsageNameTheToolAsInvoked) {
    auto usage = TestSupport::RunProgram(OSTREL_BINARY, {"/opt/bin/tool", "--help"}, "",
                                         {"OSTREL_SKIP_DEFAULT_PLUGINS=1"});
    EXPECT_EQ(0u, usage.out.find("/opt/bin/tool [dispatcher options] <namespaces> <command> "
                                 "[options]\n      For a list of available namespaces run "
                                 "/opt/bin/tool with no arguments.  \n"));
    auto listing = TestSupport::RunProgram(OSTREL_BINARY, {"/opt/bin/tool", "ostrel"}, "",
                                           {"OSTREL_SKIP_DEFAULT_PLUGINS=1"});
    EXPECT_EQ(0u, listing.out.find("Usage: /opt/bin/tool [disp options] ostrel <namespaces> "
                                   "<command>\n\nFor help please run /opt/bin/tool --help\n"));
}

}  // namespace
