#include "platform/TerminalEchoGuard.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

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

TEST(TerminalEchoGuardTest, SwitchesOnlyEchoOffAndRestoresOnScopeExit) {
    PseudoTerminal terminal;
    tcflag_t before = terminal.LocalModes();
    ASSERT_TRUE(before & ECHO);
    {
        TerminalEchoGuard guard(terminal.slave.Get());
        EXPECT_EQ(before & ~static_cast<tcflag_t>(ECHO), terminal.LocalModes());
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
    EXPECT_EQ("ours;previous handler;echo on;handler back;default", interrupted.out);
    auto hungUp = raiseUnderGuard(SIGHUP, SIG_IGN);
    EXPECT_EQ(0u, hungUp.out.find("ours;echo off;"));
}

// Waits until the child has switched echo to the given state.
bool AwaitEcho(PseudoTerminal const& terminal, bool on) {
    for (int tries = 0; terminal.Echoes() != on && tries < 10000; ++tries) {
        usleep(1000);
    }
    return terminal.Echoes() == on;
}

// The secret prompt as a user meets it: stopped with ^Z the terminal echoes again; continued,
// echo goes off and the prompt is shown again; the line typed then is the value, unechoed.
TEST(SecretPromptTest, EchoIsOffWhileWaitingAlsoAfterAStopAndBackOnAfterwards) {
    PseudoTerminal terminal;
    auto answer = TestSupport::Pipe::Open();
    auto spec = Tindra::CallSpec::InputSpec::New();
    auto password = Tindra::CallSpec::ParameterSpec::New("password", Tindra::CallSpec::ParamString);
    password->SetSecret(true);
    spec->AddParameter(password);
    std::cout.flush();
    pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        setpgid(0, 0);  // a group of its own whose parent is in the session: ^Z may stop it
        dup2(terminal.slave.Get(), 0);
        dup2(terminal.slave.Get(), 1);
        Tindra::AutoCli::OptionParser parser;
        parser.ParseVector({"demo", "--password"});
        parser.SetInputSpec(spec);
        std::string line = parser.GetCommandParameter("password").at(0);
        _exit(write(answer.write.Get(), line.data(), line.size()) < 0);
    }
    answer.write.Reset();
    std::string const prompt = "Enter value for 'password': ";
    ASSERT_TRUE(AwaitEcho(terminal, false));
    EXPECT_EQ(prompt, terminal.ReadWritten());

    kill(pid, SIGTSTP);
    int status = 0;
    ASSERT_EQ(pid, waitpid(pid, &status, WUNTRACED));
    ASSERT_TRUE(WIFSTOPPED(status));
    EXPECT_TRUE(terminal.Echoes()) << "a stopped prompt leaves the terminal silent";
    kill(pid, SIGCONT);
    ASSERT_TRUE(AwaitEcho(terminal, false));
    EXPECT_EQ(prompt, terminal.ReadWritten());

    ASSERT_EQ(11, write(terminal.master.Get(), "top secret\n", 11));
    char buffer[64];
    ssize_t n = read(answer.read.Get(), buffer, sizeof buffer);
    EXPECT_EQ("top secret", std::string(buffer, n > 0 ? n : 0));
    EXPECT_EQ(0, TestSupport::WaitForChild(pid));
    EXPECT_EQ("\n", terminal.ReadWritten()) << "the terminal echoed the secret";
    EXPECT_TRUE(terminal.Echoes());
}

}  // namespace
