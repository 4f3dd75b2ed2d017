#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "platform/ChildProcess.h"
#include "platform/Fd.h"
#include "platform/Pipe.h"

namespace Platform = Tindra::Platform;

namespace {

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
    EXPECT_TRUE(readEnd.Get() >= 3 && (fcntl(readEnd.Get(), F_GETFD) & FD_CLOEXEC));
    EXPECT_TRUE(writeEnd.Get() >= 3 && (fcntl(writeEnd.Get(), F_GETFD) & FD_CLOEXEC));
}

TEST(SpawnTest, ErrorNumbersAndClosedSources) {
    pid_t pid = -1;
    int const standard[3] = {0, 1, 2};
    EXPECT_EQ(ENOENT, Platform::SpawnWithMappedFds("/nonexistent/program", {"x"}, standard, pid));
    EXPECT_EQ(EACCES, Platform::SpawnWithMappedFds("/dev/null", {"x"}, standard, pid));
    // A closed source leaves that descriptor closed in the child.
    Platform::UniqueFd readEnd, writeEnd;
    ASSERT_EQ(0, Platform::CreatePipe(readEnd, writeEnd));
    int const fds[3] = {-1, writeEnd.Get(), -1};
    std::string const script = "[ -e /proc/$$/fd/0 ] || [ -e /proc/$$/fd/2 ] || echo ok";
    ASSERT_EQ(0, Platform::SpawnWithMappedFds("/bin/sh", {"/bin/sh", "-c", script}, fds, pid));
    writeEnd.Close();
    char buffer[16] = {};
    ssize_t got = read(readEnd.Get(), buffer, sizeof buffer - 1);
    int status = 0;
    ASSERT_EQ(0, Platform::WaitForChild(pid, status));
    EXPECT_EQ("ok\n", std::string(buffer, got > 0 ? got : 0));
    EXPECT_EQ(ECHILD, Platform::WaitForChild(pid, status));
}

}  // namespace
