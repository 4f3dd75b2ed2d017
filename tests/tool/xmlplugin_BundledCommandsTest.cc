// The bundled commands run once each through the built tool on this machine; and their helpers
// fed with awkward text from a fixture host.
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <sstream>
#include <string>

#include "Ostrel.h"

namespace {

using namespace CliTest;

std::string const kBundled = TINDRA_TEST_BINARY_DIR "/../plugins/bundled";

class BundledCommandsTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::is_directory(kBundled))
            GTEST_SKIP() << "bundled plug-ins not configured in this build";
    }
    TestSupport::ChildResult Run(Words words, Words const& environment = {}) {
        words.insert(words.begin(), {"--plugin-dir", kBundled});
        return CliTest::Ostrel(words, "", environment);
    }
};

// A helper whose output does not match its declared type fails the run with an error.
TEST_F(BundledCommandsTest, EveryCommandAnswersOnThisMachine) {
    for (std::string const line :
         {"system hostname get", "system uptime get", "system version get", "system process list",
          "system module list", "system account list", "system group list",
          "storage filesystem list", "storage disk list", "network interface list",
          "network route list", "hardware cpu list", "hardware memory get"}) {
        std::istringstream words(line);
        auto const run = Run({std::istream_iterator<std::string>(words), {}});
        EXPECT_EQ(std::make_pair(0, std::string()), std::make_pair(run.status, run.err)) << line;
        EXPECT_NE("", run.out) << line;
    }
}

// A fixture host whose data carries markup, quotes, bytes that are not UTF-8 and control
// characters: the helpers must still produce a document the engine reads back verbatim.
TEST_F(BundledCommandsTest, FixtureHostTextSurvivesTheHelpers) {
    DescriptorFiles host;
    host.Write("proc/sys/kernel/.keep", "");
    host.Write("etc/passwd",
               "root:x:0:0:root:/root:/bin/sh\n"
               "o'neil:x:1001:1001:Tom <&> \"Jerry\",room 5:/home/o'neil:/bin/sh\n");
    host.Write("etc/group", "root:x:0:\nstaff:x:1001:\nwheel:x:10:o'neil\n");
    host.Write("proc/42/status",
               "Name:\tfix<me>\nState:\tZ (zombie)\nPid:\t42\nPPid:\t1\n"
               "Uid:\t1001\t1001\t1001\t1001\nThreads:\t1\n");
    char const arguments[] = "run\0--tag=<x&y>\0\xff\x01ok";
    host.Write("proc/42/cmdline", std::string(arguments, sizeof arguments));
    auto python = [&](Words words) {
        words.insert(words.begin(), {"--formatter", "python"});
        auto const run = Run(words, {"OSTREL_HOST_ROOT=" + host.path});
        EXPECT_EQ("", run.err);
        return run.out;
    };
    EXPECT_EQ(
        "[{\"Comment\": \"\"\"Tom <&> \\\"Jerry\\\"\"\"\", \"Gid\": 1001, \"Group\": "
        "\"\"\"staff\"\"\", \"Groups\": [\"\"\"wheel\"\"\", ], \"Home\": "
        "\"\"\"/home/o'neil\"\"\", \"Login\": True, \"Name\": \"\"\"o'neil\"\"\", "
        "\"Shell\": \"\"\"/bin/sh\"\"\", \"Uid\": 1001, }, ]\n",
        python({"system", "account", "list", "--kind", "regular"}));
    EXPECT_EQ(
        "[{\"Arguments\": \"\"\"run --tag=<x&y> ok\"\"\", \"Command\": \"\"\"fix<me>\"\"\", "
        "\"Memory\": 0, \"Parent\": 1, \"Pid\": 42, \"State\": \"\"\"zombie\"\"\", "
        "\"Threads\": 1, \"User\": \"\"\"o'neil\"\"\", }, ]\n",
        python({"system", "process", "list"}));
}

}  // namespace
