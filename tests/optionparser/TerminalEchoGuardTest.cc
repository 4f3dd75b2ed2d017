#include "platform/TerminalEchoGuard.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <signal.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

#include "support/ChildProcess.h"
#include "support/PseudoTerminal.h"
#include "tindra/autocli/cli/OptionParser.h"

namespace {

using TestSupport::PseudoTerminal;
using TestSupport::RunInChild;
using Tindra::Platform::TerminalEchoGuard;

using Handler = void (*)(int);

Handler CurrentHandler(int signal) {
    struct sigaction current {};
    sigaction(signal, nullptr, &current);
    return current.sa_handler;
}

TEST(TerminalEchoGuardTest, SwitchesOnlyEchoOffAndRestoresOnScopeExitAndException) {
    PseudoTerminal terminal;
    tcflag_t before = terminal.LocalModes();
    ASSERT_TRUE(before & ECHO);
    try {
        TerminalEchoGuard guard(terminal.slave.Get());
        EXPECT_TRUE(guard.IsActive());
        EXPECT_EQ(before & ~static_cast<tcflag_t>(ECHO), terminal.LocalModes());
        throw std::runtime_error("read failed");
    } catch (std::runtime_error const&) {
    }
    EXPECT_EQ(before, terminal.LocalModes());

    auto pipe = TestSupport::Pipe::Open();
    Handler handler = CurrentHandler(SIGTERM);
    TerminalEchoGuard onPipe(pipe.read.Get());
    EXPECT_FALSE(onPipe.IsActive());
    EXPECT_EQ(handler, CurrentHandler(SIGTERM)) << "no terminal, nothing to guard";
}

extern "C" void ReportInterrupt(int) {
    char const text[] = "previous handler;";
    ssize_t ignored = write(1, text, sizeof text - 1);
    (void)ignored;
}

// Each run installs `previous`, raises `signal` under the guard, then reports echo and handlers.
TEST(TerminalEchoGuardTest, SignalsRestoreTheTerminalAndReachThePreviousDisposition) {
    PseudoTerminal terminal;
    auto raiseUnderGuard = [&terminal](int signal, Handler previous) {
        return RunInChild([&terminal, signal, previous] {
            for (int other : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
                ::signal(other, other == signal ? previous : SIG_DFL);
            }
            {
                TerminalEchoGuard guard(terminal.slave.Get());
                std::cout << (CurrentHandler(SIGQUIT) == SIG_DFL ? "default;" : "ours;")
                          << std::flush;
                raise(signal);
                std::cout << (terminal.Echoes() ? "echo on;" : "echo off;");
                std::cout << (CurrentHandler(signal) == previous ? "handler back;" : "ours;");
            }
            std::cout << (CurrentHandler(SIGQUIT) == SIG_DFL ? "default" : "ours");
        });
    };
    auto killed = raiseUnderGuard(SIGTERM, SIG_DFL);
    EXPECT_EQ(128 + SIGTERM, killed.status);
    EXPECT_EQ("ours;", killed.out);
    EXPECT_TRUE(terminal.Echoes());
    auto interrupted = raiseUnderGuard(SIGINT, ReportInterrupt);
    EXPECT_EQ(0, interrupted.status);
    EXPECT_EQ("ours;previous handler;echo on;handler back;default", interrupted.out);
    auto hungUp = raiseUnderGuard(SIGHUP, SIG_IGN);
    EXPECT_EQ(0, hungUp.status);
    EXPECT_EQ(0u, hungUp.out.find("ours;echo off;"));
}

TEST(SilentStringTest, ReadsALineFromATerminalWithoutEchoingIt) {
    PseudoTerminal terminal;
    auto answer = TestSupport::Pipe::Open();
    std::cout.flush();
    pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        dup2(terminal.slave.Get(), 0);
        std::string line = Tindra::AutoCli::OptionParser::GetSilentString();
        _exit(write(answer.write.Get(), line.data(), line.size()) < 0);
    }
    answer.write.Reset();
    // Type only once echo is off; before that the terminal would echo.
    for (int tries = 0; terminal.Echoes() && tries < 10000; ++tries) {
        usleep(1000);
    }
    ASSERT_FALSE(terminal.Echoes());
    ASSERT_EQ(11, write(terminal.master.Get(), "top secret\n", 11));
    char buffer[64];
    ssize_t n = read(answer.read.Get(), buffer, sizeof buffer);
    EXPECT_EQ("top secret", std::string(buffer, n > 0 ? n : 0));
    EXPECT_EQ(0, TestSupport::WaitForChild(pid));
    pollfd echoed = {terminal.master.Get(), POLLIN, 0};
    EXPECT_EQ(0, poll(&echoed, 1, 0)) << "the terminal echoed the secret";
    EXPECT_TRUE(terminal.Echoes());
}

}  // namespace
