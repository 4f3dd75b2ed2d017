#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "platform/ChildProcess.h"
#include "platform/Fd.h"
#include "platform/Pipe.h"
#include "platform/SigpipeGuard.h"

namespace Platform = Tindra::Platform;

namespace {

bool IsCloseOnExec(int fd) {
    return (fcntl(fd, F_GETFD) & FD_CLOEXEC) != 0;
}

TEST(CreatePipeTest, EndsAreCloseOnExecAndAboveStandardDescriptors) {
    // With standard input closed, a plain pipe would hand out descriptor 0.
    int savedInput = fcntl(0, F_DUPFD_CLOEXEC, 10);
    ASSERT_GE(savedInput, 0);
    close(0);
    Platform::UniqueFd readEnd, writeEnd;
    int error = Platform::CreatePipe(readEnd, writeEnd);
    bool zeroStillFree = fcntl(0, F_GETFD) < 0;
    dup2(savedInput, 0);
    close(savedInput);

    ASSERT_EQ(0, error);
    EXPECT_TRUE(zeroStillFree);
    EXPECT_GE(readEnd.Get(), 3);
    EXPECT_GE(writeEnd.Get(), 3);
    EXPECT_TRUE(IsCloseOnExec(readEnd.Get()));
    EXPECT_TRUE(IsCloseOnExec(writeEnd.Get()));
    ASSERT_EQ(1, write(writeEnd.Get(), "x", 1));
    char c = 0;
    ASSERT_EQ(1, read(readEnd.Get(), &c, 1));
    EXPECT_EQ('x', c);
}

TEST(SpawnTest, ReportsUnrunnableProgramAsErrorNumber) {
    pid_t pid = -1;
    int const fds[3] = {0, 1, 2};
    EXPECT_EQ(ENOENT, Platform::SpawnWithMappedFds("/nonexistent/program", {"x"}, fds, pid));
    EXPECT_EQ(EACCES, Platform::SpawnWithMappedFds("/dev/null", {"x"}, fds, pid));
}

TEST(SpawnTest, ClosedSourceLeavesDescriptorClosedInChild) {
    Platform::UniqueFd readEnd, writeEnd;
    ASSERT_EQ(0, Platform::CreatePipe(readEnd, writeEnd));
    int const fds[3] = {-1, writeEnd.Get(), -1};
    pid_t pid = -1;
    ASSERT_EQ(0, Platform::SpawnWithMappedFds(
                     "/bin/sh",
                     {"/bin/sh", "-c", "[ -e /proc/$$/fd/0 ] || [ -e /proc/$$/fd/2 ] || echo ok"},
                     fds, pid));
    writeEnd.Close();
    char buffer[16] = {};
    ssize_t got = read(readEnd.Get(), buffer, sizeof buffer - 1);
    int status = 0;
    ASSERT_EQ(0, Platform::WaitForChild(pid, status));
    EXPECT_EQ("ok\n", std::string(buffer, got > 0 ? got : 0));
    EXPECT_EQ(ECHILD, Platform::WaitForChild(pid, status));
}

TEST(SigpipeGuardTest, WriteToGoneReaderFailsInsteadOfKilling) {
    Platform::UniqueFd readEnd, writeEnd;
    ASSERT_EQ(0, Platform::CreatePipe(readEnd, writeEnd));
    readEnd.Close();
    {
        Platform::SigpipeGuard guard;
        errno = 0;
        EXPECT_EQ(-1, write(writeEnd.Get(), "x", 1));
        EXPECT_EQ(EPIPE, errno);
    }
    sigset_t pending;
    sigpending(&pending);
    EXPECT_FALSE(sigismember(&pending, SIGPIPE));
    sigset_t mask;
    pthread_sigmask(SIG_BLOCK, nullptr, &mask);
    EXPECT_FALSE(sigismember(&mask, SIGPIPE));
}

}  // namespace
