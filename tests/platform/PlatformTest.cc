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
    Platform::UniqueFd savedInput(fcntl(0, F_DUPFD_CLOEXEC, 10));
    ASSERT_TRUE(savedInput.IsOpen());
    close(0);
    Platform::UniqueFd readEnd, writeEnd;
    int error = Platform::CreatePipe(readEnd, writeEnd);
    bool zeroStillFree = fcntl(0, F_GETFD) < 0;
    dup2(savedInput.Get(), 0);
    EXPECT_TRUE(zeroStillFree) << error;  // a failed call closes both ends, failing below
    EXPECT_TRUE(readEnd.Get() >= 3 && (fcntl(readEnd.Get(), F_GETFD) & FD_CLOEXEC));
    EXPECT_TRUE(writeEnd.Get() >= 3 && (fcntl(writeEnd.Get(), F_GETFD) & FD_CLOEXEC));
}

TEST(SpawnTest, ErrorNumbersAndClosedSources) {
    pid_t pid = -1;
    int const standard[3] = {0, 1, 2}, closed[3] = {-1, -1, -1};
    EXPECT_EQ(ENOENT, Platform::SpawnWithMappedFds("/nonexistent/program", {"x"}, standard, pid));
    // A closed source leaves that descriptor closed in the child.
    std::string const script = "! [ -e /proc/$$/fd/0 ] && ! [ -e /proc/$$/fd/2 ]";
    ASSERT_EQ(0, Platform::SpawnWithMappedFds("/bin/sh", {"/bin/sh", "-c", script}, closed, pid));
    int status = -1;
    ASSERT_EQ(0, Platform::WaitForChild(pid, status));
    EXPECT_EQ(0, status);
    EXPECT_EQ(ECHILD, Platform::WaitForChild(pid, status));
}

}  // namespace
