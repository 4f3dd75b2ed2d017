// The bundled commands run on this machine through the built tool, each checked against what
// the host itself says; and their helpers fed with awkward text from a fixture host.
#include <gtest/gtest.h>

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/DescriptorFiles.h"

namespace {

std::string const kBundled = TINDRA_TEST_BINARY_DIR "/../plugins/bundled";

std::vector<std::string> Lines(std::string const& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::string Trimmed(std::string text) {
    text.erase(0, text.find_first_not_of(' '));
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

std::string FirstLine(std::string const& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return line;
}

std::vector<std::string> Entries(std::string const& directory) {
    std::vector<std::string> names;
    if (DIR* listing = opendir(directory.c_str())) {
        while (dirent* entry = readdir(listing)) {
            if (entry->d_name[0] != '.') {
                names.push_back(entry->d_name);
            }
        }
        closedir(listing);
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool Exists(std::string const& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0;
}

long MeminfoKiB(std::string const& key) {
    std::ifstream stream("/proc/meminfo");
    for (std::string name; stream >> name;) {
        long value = 0;
        stream >> value;
        if (name == key + ":") {
            return value;
        }
        stream.ignore(1000, '\n');
    }
    return -1;
}

class BundledCommandsTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!Exists(kBundled)) {
            GTEST_SKIP() << "bundled plug-ins not configured in this build";
        }
    }

    TestSupport::ChildResult Run(std::vector<std::string> const& words,
                                 std::vector<std::string> environment = {}) {
        std::vector<std::string> argv = {"ostrel", "--plugin-dir", kBundled};
        argv.insert(argv.end(), words.begin(), words.end());
        environment.push_back("OSTREL_SKIP_DEFAULT_PLUGINS=1");
        return TestSupport::RunProgram(OSTREL_BINARY, argv, "", environment);
    }

    // One column of a list command's table, values trimmed, one per row.
    std::vector<std::string> Column(std::string const& type, std::string const& field,
                                    std::vector<std::string> const& command) {
        std::vector<std::string> words = {"--format-param", "fields:" + type + "=" + field,
                                          "--format-param", "show-header=false",
                                          "--format-param", "wrap-last=false"};
        words.insert(words.end(), command.begin(), command.end());
        auto run = Run(words);
        EXPECT_EQ("", run.err);
        EXPECT_EQ(0, run.status);
        std::vector<std::string> values;
        for (auto const& line : Lines(run.out)) {
            values.push_back(Trimmed(line));
        }
        return values;
    }

    // One field of a command that answers with a single structure.
    std::string Field(std::string const& type, std::string const& field,
                      std::vector<std::string> const& command) {
        std::vector<std::string> words = {"--formatter",    "simple",
                                          "--format-param", "fields:" + type + "=" + field,
                                          "--format-param", "header:" + type + "=<NONE>"};
        words.insert(words.end(), command.begin(), command.end());
        auto run = Run(words);
        EXPECT_EQ("", run.err);
        std::string const prefix = "   " + field + ": ";
        EXPECT_EQ(0u, run.out.find(prefix)) << run.out;
        return run.out.size() > prefix.size() ? Lines(run.out.substr(prefix.size())).at(0) : "";
    }
};

TEST_F(BundledCommandsTest, EveryCommandAnswersWithItsDefaultFormat) {
    for (std::string const path :
         {"system hostname get", "system uptime get", "system version get", "system process list",
          "system module list", "system account list", "system group list",
          "storage filesystem list", "storage disk list", "network interface list",
          "network route list", "hardware cpu list", "hardware memory get"}) {
        std::istringstream words(path);
        std::vector<std::string> command{std::istream_iterator<std::string>(words), {}};
        auto run = Run(command);
        EXPECT_EQ("", run.err) << path;
        EXPECT_EQ(0, run.status) << path;
        EXPECT_FALSE(run.out.empty()) << path;
    }
}

TEST_F(BundledCommandsTest, SingleValuesMatchTheKernel) {
    EXPECT_EQ(FirstLine("/proc/sys/kernel/hostname"),
              Field("HostName", "Name", {"system", "hostname", "get"}));
    EXPECT_EQ(FirstLine("/proc/sys/kernel/osrelease"),
              Field("OsVersion", "Kernel", {"system", "version", "get"}));
    EXPECT_EQ(std::to_string(MeminfoKiB("MemTotal") / 1024),
              Field("Memory", "Total", {"hardware", "memory", "get"}));
    long const bootedBefore = std::stol(FirstLine("/proc/uptime"));
    EXPECT_LE(bootedBefore, std::stol(Field("Uptime", "Seconds", {"system", "uptime", "get"})));
}

TEST_F(BundledCommandsTest, ProcessFiltersSelectTheirRows) {
    std::string const self = std::to_string(getpid());
    EXPECT_EQ((std::vector<std::string>{"1"}),
              Column("Process", "Pid", {"system", "process", "list", "--pid", "1"}));
    EXPECT_EQ((std::vector<std::string>{"1", self}),
              Column("Process", "Pid", {"system", "process", "list", "-p", self, "-p", "1"}));
    EXPECT_EQ(2u, Column("Process", "Pid", {"system", "process", "list", "--limit", "2"}).size());
    auto memory = Column("Process", "Memory", {"system", "process", "list", "--sort", "memory"});
    ASSERT_GE(memory.size(), 2u);
    EXPECT_GE(std::stol(memory[0]), std::stol(memory[1]));
    auto bad = Run({"system", "process", "list", "--state", "asleep"});
    EXPECT_EQ(
        "Errors: \nInvalid data constraint for parameter 'state'. Expected a single value "
        "from the set  [running, sleeping, disk-sleep, stopped, tracing-stop, zombie, "
        "idle] got 'asleep'\n",
        bad.err);
}

TEST_F(BundledCommandsTest, ListsMatchWhatTheHostShows) {
    EXPECT_EQ(Entries("/sys/class/net"),
              Column("NetInterface", "Name", {"network", "interface", "list"}));
    EXPECT_EQ(Entries("/sys/module"), Column("KernelModule", "Name", {"system", "module", "list"}));
    auto users = Column("Account", "Name", {"system", "account", "list", "--name", "root"});
    EXPECT_NE(users.end(), std::find(users.begin(), users.end(), "root"));
    auto groups = Column("Group", "Name", {"system", "group", "list", "--member", "root"});
    EXPECT_NE(groups.end(), std::find(groups.begin(), groups.end(), "root"));
    auto mounts = Column("FileSystem", "Mount", {"storage", "filesystem", "list"});
    EXPECT_NE(mounts.end(), std::find(mounts.begin(), mounts.end(), "/"));
    size_t processors = 0;
    std::ifstream cpuinfo("/proc/cpuinfo");
    for (std::string line; std::getline(cpuinfo, line);) {
        processors += line.compare(0, 9, "processor") == 0;
    }
    EXPECT_EQ(processors, Column("Cpu", "Id", {"hardware", "cpu", "list"}).size());
    std::ifstream routes("/proc/net/route");
    std::string const table{std::istreambuf_iterator<char>(routes), {}};
    EXPECT_EQ(Lines(table).size() - 1,  // without the heading
              Column("Route", "Family", {"network", "route", "list", "--family", "inet"}).size());
}

// A fixture host whose data carries markup, quotes, bytes that are not UTF-8 and control
// characters: the helpers must still produce a document the engine reads back verbatim.
class FixtureHostTest : public BundledCommandsTest {
protected:
    void SetUp() override {
        BundledCommandsTest::SetUp();
        for (std::string const dir :
             {"/etc", "/proc", "/proc/42", "/proc/sys", "/proc/sys/kernel", "/sys", "/sys/module",
              "/sys/module/fake", "/sys/module/fake/holders", "/sys/module/fake/holders/user1"}) {
            mkdir((root + dir).c_str(), 0755);
            created.push_back(root + dir);
        }
        Write("/etc/passwd",
              "root:x:0:0:root:/root:/bin/sh\n"
              "o'neil:x:1001:1001:Tom <&> \"Jerry\",room 5:/home/o'neil:/bin/sh\n");
        Write("/etc/group", "root:x:0:\nstaff:x:1001:\nwheel:x:10:o'neil\n");
        Write("/proc/42/status",
              "Name:\tfix<me>\nState:\tZ (zombie)\nPid:\t42\nPPid:\t1\n"
              "Uid:\t1001\t1001\t1001\t1001\nThreads:\t1\n");
        char const arguments[] = "run\0--tag=<x&y>\0\xff\x01ok";
        Write("/proc/42/cmdline", std::string(arguments, sizeof arguments));
        Write("/sys/module/fake/initstate", "live\n");
        Write("/sys/module/fake/refcnt", "3\n");
        Write("/sys/module/fake/coresize", "4096\n");
    }
    void TearDown() override {
        for (auto it = written.rbegin(); it != written.rend(); ++it) {
            unlink(it->c_str());
        }
        for (auto it = created.rbegin(); it != created.rend(); ++it) {
            rmdir(it->c_str());
        }
    }

    void Write(std::string const& file, std::string const& content) {
        std::ofstream(root + file, std::ios::binary) << content;
        written.push_back(root + file);
    }
    std::string Python(std::vector<std::string> words) {
        words.insert(words.begin(), {"--formatter", "python"});
        auto run = Run(words, {"OSTREL_HOST_ROOT=" + root});
        EXPECT_EQ("", run.err);
        return run.out;
    }

    DescriptorTest::DescriptorFiles scratch;
    std::string const root = scratch.Directory();
    std::vector<std::string> created;
    std::vector<std::string> written;
};

TEST_F(FixtureHostTest, MarkupAndQuotesSurviveTheHelpers) {
    EXPECT_EQ(
        "[{\"Comment\": \"\"\"Tom <&> \\\"Jerry\\\"\"\"\", \"Gid\": 1001, \"Group\": "
        "\"\"\"staff\"\"\", \"Groups\": [\"\"\"wheel\"\"\", ], \"Home\": "
        "\"\"\"/home/o'neil\"\"\", \"Login\": True, \"Name\": \"\"\"o'neil\"\"\", "
        "\"Shell\": \"\"\"/bin/sh\"\"\", \"Uid\": 1001, }, ]\n",
        Python({"system", "account", "list", "--kind", "regular"}));
}

TEST_F(FixtureHostTest, BytesXmlCannotCarryAreDropped) {
    EXPECT_EQ(
        "[{\"Arguments\": \"\"\"run --tag=<x&y> ok\"\"\", \"Command\": \"\"\"fix<me>\"\"\", "
        "\"Memory\": 0, \"Parent\": 1, \"Pid\": 42, \"State\": \"\"\"zombie\"\"\", "
        "\"Threads\": 1, \"User\": \"\"\"o'neil\"\"\", }, ]\n",
        Python({"system", "process", "list"}));
}

TEST_F(FixtureHostTest, ModulesReportStateAndHolders) {
    EXPECT_EQ(
        "[{\"Holders\": [\"\"\"user1\"\"\", ], \"Name\": \"\"\"fake\"\"\", \"Parameters\": "
        "0, \"References\": 3, \"Size\": 4096, \"State\": \"\"\"live\"\"\", }, ]\n",
        Python({"system", "module", "list", "--loaded"}));
}

}  // namespace
