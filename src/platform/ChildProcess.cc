#include "platform/ChildProcess.h"

#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace Tindra {
namespace Platform {

namespace {

int const kStandardDescriptors = 3;

bool IsOpenDescriptor(int fd) {
    return fd >= 0 && ::fcntl(fd, F_GETFD) >= 0;
}

// The spawn attribute and file-action objects, released on every path.
class SpawnSetup {
public:
    SpawnSetup() {
        attrError = ::posix_spawnattr_init(&attributes);
        actionsError = ::posix_spawn_file_actions_init(&actions);
    }
    ~SpawnSetup() {
        if (actionsError == 0) {
            ::posix_spawn_file_actions_destroy(&actions);
        }
        if (attrError == 0) {
            ::posix_spawnattr_destroy(&attributes);
        }
    }
    SpawnSetup(SpawnSetup const&) = delete;
    SpawnSetup& operator=(SpawnSetup const&) = delete;

    int Prepare(int const (&childFds)[3]) {
        if (attrError != 0) {
            return attrError;
        }
        if (actionsError != 0) {
            return actionsError;
        }
        int error = MapDescriptors(childFds);
        return error != 0 ? error : ResetSignals();
    }

    posix_spawnattr_t attributes;
    posix_spawn_file_actions_t actions;

private:
    int MapDescriptors(int const (&childFds)[3]) {
        for (int target = 0; target < kStandardDescriptors; ++target) {
            int source = childFds[target];
            int error = IsOpenDescriptor(source)
                            ? ::posix_spawn_file_actions_adddup2(&actions, source, target)
                            : ::posix_spawn_file_actions_addclose(&actions, target);
            if (error != 0) {
                return error;
            }
        }
        return ::posix_spawn_file_actions_addclosefrom_np(&actions, kStandardDescriptors);
    }

    // The child must not inherit the runner's temporary handling of SIGPIPE.
    int ResetSignals() {
        sigset_t none;
        sigset_t pipeSignal;
        sigemptyset(&none);
        sigemptyset(&pipeSignal);
        sigaddset(&pipeSignal, SIGPIPE);
        int error = ::posix_spawnattr_setsigmask(&attributes, &none);
        if (error == 0) {
            error = ::posix_spawnattr_setsigdefault(&attributes, &pipeSignal);
        }
        if (error == 0) {
            error = ::posix_spawnattr_setflags(&attributes,
                                               POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        }
        return error;
    }

    int attrError;
    int actionsError;
};

std::vector<char*> ArgumentPointers(std::vector<std::string> const& arguments) {
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string const& argument : arguments) {
        pointers.push_back(const_cast<char*>(argument.c_str()));
    }
    pointers.push_back(nullptr);
    return pointers;
}

}  // namespace

int SpawnWithMappedFds(std::string const& program, std::vector<std::string> const& arguments,
                       int const (&childFds)[3], pid_t& pid) {
    SpawnSetup setup;
    int error = setup.Prepare(childFds);
    if (error != 0) {
        return error;
    }
    std::vector<char*> argv = ArgumentPointers(arguments);
    return ::posix_spawn(&pid, program.c_str(), &setup.actions, &setup.attributes, argv.data(),
                         environ);
}

int WaitForChild(pid_t pid, int& status) {
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

}  // namespace Platform
}  // namespace Tindra
