#include <gtest/gtest.h>

#include "Ostrel.h"

namespace {

using namespace CliTest;

// A namespace listing: its path in the usage line, then its children.
std::string Listing(std::string const& path, std::string const& namespaces,
                    std::string const& commands) {
    return "Usage: ostrel [disp options] " + path +
           "<namespaces> <command>\n\nFor help please run ostrel --help\n\n"
           "Available Namespaces: \n\n" +
           namespaces + "\nAvailable Commands: \n\n" + commands + "\n";
}

TEST(ListingTest, NamespacesListTheirWrappedChildrenAndFail) {
    ExpectRun(Ostrel({}), 1,
              Listing("",
                      "ostrel  Commands that operate on the ostrel system itself allowing users "
                      "to get additional information.\n",
                      ""),
              "");
    ExpectRun(Ostrel({"ostrel"}), 1,
              Listing("ostrel ", "command  Operations to get information about commands.\n", ""),
              "");
    // An unknown dispatcher option is reported after the listing.
    ExpectRun(Ostrel({"--bogus", "x", "ostrel", "command"}), 1,
              Listing("ostrel command ", "", "list  List all of the ostrel commands.\n"),
              "Errors: \nUnknown dispatcher parameter: bogus\n");
}

TEST(UsageTest, HelpPrintsTheUsageAloneNamingTheToolAsInvoked) {
    std::string const usage =
        "ostrel [dispatcher options] <namespaces> <command> [options]\n"
        "      For a list of available namespaces run ostrel with no arguments.  \n"
        "      Objects can be listed by specifying just the namespace.\n"
        "      Commands can be listed by specifying the namespace and object.\n"
        "\n"
        " Dispatcher Options: \n"
        "       --plugin-dir                    Add all the plug-ins from this directory\n"
        "       --plugin                        Add a specific file plugin.  (Multiple --plugin "
        "options can be passed.)\n"
        "       --formatter <formatter>         Override the formatter to use for a given "
        "command\n"
        "       --format-param <key>=<value>    Set a formatter parameter to give the formatter "
        "information about how to format the command\n"
        "       --screen-width <width>          Use the specified screen width when formatting "
        "text\n"
        "    -h|--help                          Show this message.\n"
        "\n";
    // Nothing else is applied, not even the check for unknown options.
    for (Words args :
         {Words{"--help"}, List({"-h"}), Words{"--bogus", "1", "--formatter", "xml", "--help"}}) {
        ExpectRun(Ostrel(args), 1, usage, "");
    }

    // Listing and usage name the tool as invoked.
    auto run = [](char const* word) {
        return TestSupport::RunProgram(OSTREL_BINARY, {"/opt/bin/tool", word}, "",
                                       {"OSTREL_SKIP_DEFAULT_PLUGINS=1"})
            .out;
    };
    EXPECT_EQ(0u, run("--help").find("/opt/bin/tool [dispatcher options] <namespaces> <command> "
                                     "[options]\n      For a list of available namespaces run "
                                     "/opt/bin/tool with no arguments.  \n"));
    EXPECT_EQ(0u, run("ostrel").find("Usage: /opt/bin/tool [disp options] ostrel <namespaces> "
                                     "<command>\n\nFor help please run /opt/bin/tool --help\n"));
}

}  // namespace
