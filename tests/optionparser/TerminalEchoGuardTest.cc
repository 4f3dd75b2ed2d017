#include "platform/TerminalEchoGuard.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

#include "support/ChildProcess.h"
#include "support/PseudoTerminal.h"
#include "tindra/autocli/cli/OptionParser.h"

namespace {

using TestSupport::PseudoTerminal;
using Tindra::Platform::TerminalEchoGuard;

void (*CurrentHandler(int signal))(int) {
    struct sigaction current {};
    sigaction(signal, nullptr, &current);
    return current.sa_handler;
}

TEST(TerminalEchoGuardTest, SwitchesOnlyEchoOffAndRestoresTheAttributes) {
    PseudoTerminal terminal;
    tcflag_t before = terminal.LocalModes();
    ASSERT_TRUE(before & ECHO);
    {
        TerminalEchoGuard guard(terminal.slave.Get());
        EXPECT_TRUE(guard.IsActive());
        EXPECT_EQ(before & ~static_cast<tcflag_t>(ECHO), terminal.LocalModes());
    }
    EXPECT_EQ(before, terminal.LocalModes());
}

TEST(TerminalEchoGuardTest, RestoresWhenLeftByAnException) {
    PseudoTerminal terminal;
    try {
        TerminalEchoGuard guard(terminal.slave.Get());
        ASSERT_FALSE(terminal.Echoes());
        throw std::runtime_error("read failed");
    } catch (std::runtime_error const&) {
    }
    EXPECT_TRUE(terminal.Echoes());
}

TEST(TerminalEchoGuardTest, HandlersAreReplacedOnlyWhileTheGuardLives) {
    PseudoTerminal terminal;
    auto result = TestSupport::RunInChild([&terminal] {
        int const signals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
        for (int signal : signals) {
            ::signal(signal, SIG_DFL);
        }
        {
            TerminalEchoGuard guard(terminal.slave.Get());
            for (int signal : signals) {
                std::cout << (CurrentHandler(signal) == SIG_DFL ? "default;" : "ours;");
            }
        }
        for (int signal : signals) {
            std::cout << (CurrentHandler(signal) == SIG_DFL ? "default;" : "ours;");
        }
    });
    EXPECT_EQ("ours;ours;ours;ours;default;default;default;default;", result.out);
}

TEST(TerminalEchoGuardTest, DoesNothingOnADescriptorThatIsNoTerminal) {
    auto pipe = TestSupport::Pipe::Open();
    auto before = CurrentHandler(SIGTERM);
    TerminalEchoGuard guard(pipe.read.Get());
    EXPECT_FALSE(guard.IsActive());
    EXPECT_EQ(before, CurrentHandler(SIGTERM));
}

TEST(TerminalEchoGuardTest, ASignalWithDefaultActionRestoresTheTerminalAndStillKills) {
    PseudoTerminal terminal;
    auto result = TestSupport::RunInChild([&terminal] {
        signal(SIGTERM, SIG_DFL);
        TerminalEchoGuard guard(terminal.slave.Get());
        raise(SIGTERM);
        std::cout << "survived";
    });
    EXPECT_EQ(128 + SIGTERM, result.status);
    EXPECT_EQ("", result.out);
    EXPECT_TRUE(terminal.Echoes());
}

extern "C" void ReportInterrupt(int) {
    char const text[] = "previous handler;";
    ssize_t ignored = write(1, text, sizeof text - 1);
    (void)ignored;
}

TEST(TerminalEchoGuardTest, ASignalReachesThePreviousHandlerAfterTheTerminalIsRestored) {
    PseudoTerminal terminal;
    auto result = TestSupport::RunInChild([&terminal] {
        signal(SIGINT, ReportInterrupt);
        TerminalEchoGuard guard(terminal.slave.Get());
        raise(SIGINT);
        std::cout << (terminal.Echoes() ? "echo on;" : "echo off;");
        std::cout << (CurrentHandler(SIGINT) == ReportInterrupt ? "handler back" : "ours");
    });
    EXPECT_EQ(0, result.status);
    EXPECT_EQ("previous handler;echo on;handler back", result.out);
}

TEST(TerminalEchoGuardTest, AnIgnoredSignalStaysIgnoredAndEchoStaysOff) {
    PseudoTerminal terminal;
    auto result = TestSupport::RunInChild([&terminal] {
        signal(SIGHUP, SIG_IGN);
        TerminalEchoGuard guard(terminal.slave.Get());
        raise(SIGHUP);
        std::cout << (terminal.Echoes() ? "echo on" : "echo off");
    });
    EXPECT_EQ(0, result.status);
    EXPECT_EQ("echo off", result.out);
}

// The whole prompt over a terminal: the typed line is returned and nothing is echoed back.
TEST(SilentStringTest, ReadsALineFromATerminalWithoutEchoingIt) {
    PseudoTerminal terminal;
    auto answer = TestSupport::Pipe::Open();
    std::cout.flush();
    pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        dup2(terminal.slave.Get(), 0);
        std::string line = Tindra::AutoCli::OptionParser::GetSilentString();
        ssize_t ignored = write(answer.write.Get(), line.data(), line.size());
        (void)ignored;
        _exit(0);
    }
    answer.write.Reset();
    // Type only once the child has switched echo off; before that the terminal would echo.
    for (int tries = 0; terminal.Echoes() && tries < 10000; ++tries) {
        usleep(1000);
    }
    ASSERT_FALSE(terminal.Echoes());
    std::string typed = "top secret\n";
    ASSERT_EQ(static_cast<ssize_t>(typed.size()),
              write(terminal.master.Get(), typed.data(), typed.size()));

    char buffer[64];
    ssize_t n = read(answer.read.Get(), buffer, sizeof buffer);
    EXPECT_EQ("top secret", std::string(buffer, n > 0 ? n : 0));
    EXPECT_EQ(0, TestSupport::WaitForChild(pid));
    pollfd echoed = {terminal.master.Get(), POLLIN, 0};
    EXPECT_EQ(0, poll(&echoed, 1, 0)) << "the terminal echoed the secret";
    EXPECT_TRUE(terminal.Echoes());
}

}  // namespace
