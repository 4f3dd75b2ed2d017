#include "tindra/autocli/extension/ShellCmd.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "platform/Fd.h"

using namespace Tindra::AutoCli;

namespace {

// A deadlock between runner and child would hang the suite; fail it instead.
class ShellCmdTest : public ::testing::Test {
protected:
    void SetUp() override { alarm(60); }
    void TearDown() override { alarm(0); }
};

std::string RunShell(std::string const& command, std::string const& input = std::string()) {
    std::string output;
    EXPECT_TRUE(WIFEXITED(AutoCli_ShellCmd(command, output, input))) << command;
    return output;
}

TEST_F(ShellCmdTest, AppendsOutputAndReturnsRawWaitStatus) {
    std::string output = "kept:";
    int status = AutoCli_ShellCmd("printf abc; exit 3", output, "");
    EXPECT_EQ("kept:abc", output);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 3 && status != 3) << status;
    output.clear();
    status = AutoCli_ShellCmd("printf partial; kill -9 $$", output, "");
    EXPECT_EQ("partial", output);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
}

// More than a pipe holds, both ways at once, arrives whole; a child that stops reading early
// is no error, and no SIGPIPE is left pending or blocked.
TEST_F(ShellCmdTest, LargeExchangesAndChildrenThatStopReading) {
    std::string input(3 * 1024 * 1024 + 17, 'a');
    for (size_t i = 0; i < input.size(); ++i) {
        input[i] += (i * 7 + i / 26) % 26;
    }
    EXPECT_TRUE(std::string(2097152, '\0') + input ==
                RunShell("head -c 2097152 /dev/zero; cat", input));
    EXPECT_EQ("done\n", RunShell("exec 0<&-; echo done", input));
    EXPECT_EQ(input.substr(0, 3), RunShell("head -c 3", input));
    sigset_t pending, mask;
    sigpending(&pending);
    pthread_sigmask(SIG_BLOCK, nullptr, &mask);
    EXPECT_FALSE(sigismember(&pending, SIGPIPE) || sigismember(&mask, SIGPIPE));
}

TEST_F(ShellCmdTest, ChildGetsOnlyOurThreeDescriptors) {
    Tindra::Platform::UniqueFd stray(open("/dev/null", O_RDONLY));  // no O_CLOEXEC
    ASSERT_TRUE(stray.IsOpen());
    EXPECT_EQ("0\n1\n2\n", RunShell("for i in $(seq 0 255); do [ -e /proc/$$/fd/$i ] && echo $i; "
                                    "done; true"));
    char ours[256] = {};
    ASSERT_GT(readlink("/proc/self/fd/2", ours, sizeof ours - 1), 0);
    EXPECT_EQ(std::string(ours) + "\n", RunShell("readlink /proc/$$/fd/2"));
}

TEST_F(ShellCmdTest, UserNameReachesChildUnchangedAndUninterpreted) {
    unsetenv("LUM_USERNAME");
    for (std::string name : {"O'Brien", "a'b''c'", "$(echo x) `echo y` $HOME \\ \"q\"", "'",
                             "name with\nnewline", ""}) {
        std::string output;
        AutoCli_ShellCmdWithLumUsername("printenv LUM_USERNAME || printf unset", name, output,
                                        "in");
        EXPECT_EQ(name.empty() ? "unset" : name + "\n", output);  // empty sets nothing
    }
}

int makerArgument = 0;
std::string NoGlobOption(int value) {
    makerArgument = value;
    return "-f";
}

TEST_F(ShellCmdTest, ChildOptionStandsBeforeDashC) {
    EXPECT_NE("/*\n", RunShell("echo /*"));
    SetChildRpZorbOptionMaker(&NoGlobOption);
    EXPECT_EQ("/*\n", RunShell("echo /*"));  // -f: no pathname expansion
    EXPECT_EQ(-1, makerArgument);
    SetChildRpZorbOptionMaker([](int) { return std::string(); });
    EXPECT_NE("/*\n", RunShell("echo /*"));
    EXPECT_EQ(std::string::npos, RunShell("echo $-").find('f'));
    SetChildRpZorbOptionMaker(nullptr);
}

TEST(PanicTest, PrintsFormattedTruncatedTextAndAborts) {
    EXPECT_DEATH(Panic("disk %s at %d%%", "sda", 95), "^panic: disk sda at 95%$");
    EXPECT_DEATH(Panic("%s", std::string(1000, 'a').c_str()), "^panic: a{255}$");
}

}  // namespace
