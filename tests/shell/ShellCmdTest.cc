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
std::string RunShell(std::string const& command, std::string const& input = std::string()) {
    std::string output;
    alarm(60);
    EXPECT_TRUE(WIFEXITED(AutoCli_ShellCmd(command, output, input))) << command;
    alarm(0);
    return output;
}

// More than a pipe holds, both ways at once, arrives whole; a child that stops reading early
// is no error, and no SIGPIPE is left pending or blocked.
TEST(ShellCmdTest, LargeExchangesAndChildrenThatStopReading) {
    std::string input;
    for (int i = 0; input.size() < 3 * 1024 * 1024; ++i) {
        input += std::to_string(i) + ' ';
    }
    EXPECT_TRUE(std::string(2097152, '\0') + input ==
                RunShell("head -c 2097152 /dev/zero; cat", input));
    EXPECT_EQ("done\n", RunShell("exec 0<&-; echo done", input));
    sigset_t pending, mask;
    sigpending(&pending);
    pthread_sigmask(SIG_BLOCK, nullptr, &mask);
    EXPECT_FALSE(sigismember(&pending, SIGPIPE) || sigismember(&mask, SIGPIPE));
}

// Output is appended to; an empty name sets nothing.
TEST(ShellCmdTest, UserNameReachesChildUnchangedAndUninterpreted) {
    unsetenv("LUM_USERNAME");
    std::string const name = "'a''b $(echo x) `echo y` $HOME \\ \"q\"\nnewline'";
    std::string output;
    AutoCli_ShellCmdWithLumUsername("printenv LUM_USERNAME", name, output, "");
    AutoCli_ShellCmdWithLumUsername("printenv LUM_USERNAME || printf unset", "", output, "");
    EXPECT_EQ(name + "\nunset", output);
}

// The host's option comes before "-c" and the hook is asked with -1. The child gets our three
// standard descriptors and no others.
TEST(ShellCmdTest, ChildOptionAndDescriptors) {
    Tindra::Platform::UniqueFd stray(open("/dev/null", O_RDONLY));  // no O_CLOEXEC
    ASSERT_TRUE(stray.IsOpen());
    SetChildRpZorbOptionMaker([](int value) { return std::string(value == -1 ? "-f" : ""); });
    EXPECT_EQ("/*\n0\n1\n2\n", RunShell("echo /*; ls /proc/$$/fd"));  // -f: no globbing
    SetChildRpZorbOptionMaker(nullptr);
}

TEST(PanicTest, PrintsFormattedTruncatedTextAndAborts) {
    EXPECT_DEATH(Panic("%s", std::string(1000, 'a').c_str()), "^panic: a{255}$");
}

}  // namespace
