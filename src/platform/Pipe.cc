#include "platform/Pipe.h"

#include <errno.h>
#include <fcntl.h>
#include <unistd.h>

namespace Tindra {
namespace Platform {

namespace {

int const kFirstFreeDescriptor = 3;

// A caller that closed a standard descriptor makes pipe2 hand out 0, 1 or 2; move such an end.
int MoveAboveStandardDescriptors(UniqueFd& end) {
    if (end.Get() >= kFirstFreeDescriptor) {
        return 0;
    }
    int moved = ::fcntl(end.Get(), F_DUPFD_CLOEXEC, kFirstFreeDescriptor);
    if (moved < 0) {
        return errno;
    }
    end.Reset(moved);
    return 0;
}

}  // namespace

int CreatePipe(UniqueFd& readEnd, UniqueFd& writeEnd) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        return errno;
    }
    readEnd.Reset(ends[0]);
    writeEnd.Reset(ends[1]);
    int error = MoveAboveStandardDescriptors(readEnd);
    if (error == 0) {
        error = MoveAboveStandardDescriptors(writeEnd);
    }
    if (error != 0) {
        readEnd.Close();
        writeEnd.Close();
    }
    return error;
}

}  // namespace Platform
}  // namespace Tindra
