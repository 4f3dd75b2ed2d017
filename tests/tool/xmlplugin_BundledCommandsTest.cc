// The bundled commands run once each through the built tool on this machine, judged by the shape
// of their default output; and their helpers fed with awkward text from a fixture host.
#include <gtest/gtest.h>

#include <boost/algorithm/string/replace.hpp>
#include <boost/regex.hpp>
#include <filesystem>
#include <string>
#include <vector>

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

// Whether a run printed the fields in order: as a table's heading or as a structure's labels.
bool HasShape(std::string const& out, std::string const& fields) {
    std::string const heading = boost::replace_all_copy(fields, ",", " +");
    std::string const labels = boost::replace_all_copy(fields, ",", " *: [^\n]*\n   ");
    return boost::regex_search(out, boost::regex("^" + heading + " *\n-|^   " + labels + " *:"));
}

TEST_F(BundledCommandsTest, EveryCommandAnswersInItsDefaultFormat) {
    std::vector<std::pair<Words, std::string>> const commands = {
        {{"system", "hostname", "get"}, "Name,Domain,Configured"},
        {{"system", "uptime", "get"}, "Text,Since,Seconds,Load1,Load5,Load15,Tasks"},
        {{"system", "version", "get"}, "Description,Name,Version,Id,Kernel,Build,Architecture"},
        {{"system", "process", "list"}, "Pid,Parent,User,State,Threads,Memory,Command,Arguments"},
        {{"system", "module", "list"}, "Name,State,Size,References,Parameters,Holders"},
        {{"system", "account", "list"}, "Name,Uid,Gid,Group,Login,Home,Shell,Groups"},
        {{"system", "group", "list"}, "Name,Gid,Members"},
        {{"storage", "filesystem", "list"}, "Device,Type,Size,Used,Available,Use,ReadOnly,Mount"},
        {{"storage", "disk", "list"},
         "Name,Size,Removable,ReadOnly,Rotational,Vendor,Model,Partitions"},
        {{"network", "interface", "list"}, "Name,State,Mtu,Speed,Mac,Addresses"},
        {{"network", "route", "list"}, "Family,Destination,Gateway,Interface,Metric,Flags"},
        {{"hardware", "cpu", "list"}, "Id,Socket,Core,Mhz,Online,Vendor,Model"},
        {{"hardware", "memory", "get"},
         "Total,Used,Available,Free,Buffers,Cached,SwapTotal,SwapUsed,SwapFree"},
    };
    for (auto const& [command, fields] : commands) {
        auto const run = Run(command);
        EXPECT_EQ(std::make_pair(0, std::string()), std::make_pair(run.status, run.err));
        EXPECT_TRUE(HasShape(run.out, fields)) << run.out;
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
