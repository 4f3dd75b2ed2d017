#ifndef TINDRA_SRC_PLATFORM_CHILDPROCESS_H
#define TINDRA_SRC_PLATFORM_CHILDPROCESS_H

#include <sys/types.h>

#include <string>
#include <vector>

namespace Tindra {
namespace Platform {

// Starts program with the given arguments (the first is the program's own name) and the
// caller's environment. The three descriptors become the child's 0, 1 and 2; a negative or
// closed descriptor leaves that number closed in the child. A descriptor mapped onto another
// number than its own must be 3 or above (CreatePipe gives such descriptors). No other descriptor
// of this process reaches the child, and it starts with no blocked signals and SIGPIPE at its
// default. Returns 0 and stores the process id, or returns the error number of the failure (a
// program that cannot be executed included).
int SpawnWithMappedFds(std::string const& program, std::vector<std::string> const& arguments,
                       int const (&childFds)[3], pid_t& pid);

// waitpid for that child, repeated after interruptions. Returns 0 and the raw wait status, or
// the error number of the failure.
int WaitForChild(pid_t pid, int& status);

}  // namespace Platform
}  // namespace Tindra

#endif
