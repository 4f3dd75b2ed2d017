#ifndef TINDRA_TESTS_SUPPORT_CHILDPROCESS_H
#define TINDRA_TESTS_SUPPORT_CHILDPROCESS_H

// Runs code or a program in a child process with standard input, output and error on pipes,
// feeds the input and collects both outputs. Header only: tests/support builds no program.

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

extern char** environ;

namespace TestSupport {

class OwnedFd {
public:
    OwnedFd() = default;
    explicit OwnedFd(int fd) : fd(fd) {}
    OwnedFd(OwnedFd&& other) noexcept : fd(other.Release()) {}
    OwnedFd& operator=(OwnedFd&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    ~OwnedFd() { Reset(); }

    int Get() const { return fd; }
    int Release() { return std::exchange(fd, -1); }
    void Reset(int newFd = -1) {
        if (fd >= 0) {
            close(fd);
        }
        fd = newFd;
    }

private:
    int fd = -1;
};

struct Pipe {
    OwnedFd read;
    OwnedFd write;

    static Pipe Open() {
        int fds[2];
        if (pipe2(fds, O_CLOEXEC) != 0) {
            throw std::runtime_error("pipe failed");
        }
        return Pipe{OwnedFd(fds[0]), OwnedFd(fds[1])};
    }
};

struct ChildResult {
    std::string out;
    std::string err;
    int status = -1;  // exit status, or 128 + signal number
};

// The three pipes of a child; the parent keeps one end of each.
struct StandardPipes {
    Pipe in = Pipe::Open();
    Pipe out = Pipe::Open();
    Pipe err = Pipe::Open();

    void CloseAll() { *this = StandardPipes{Pipe{}, Pipe{}, Pipe{}}; }
};

inline int DecodeWaitStatus(int status) {
    if (WIFEXITED(status)) {
        return WEXITSTATUS(status);
    }
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : -1;
}

// Writes the input and reads both outputs at once, so a child that fills one pipe while
// the parent waits on another cannot deadlock the test.
inline void ExchangeWithChild(StandardPipes& pipes, std::string const& input, ChildResult& result) {
    pipes.in.read.Reset();
    pipes.out.write.Reset();
    pipes.err.write.Reset();
    std::size_t written = 0;
    if (input.empty()) {
        pipes.in.write.Reset();
    }
    OwnedFd* readers[2] = {&pipes.out.read, &pipes.err.read};
    std::string* sinks[2] = {&result.out, &result.err};
    while (readers[0]->Get() >= 0 || readers[1]->Get() >= 0) {
        pollfd fds[3] = {{readers[0]->Get(), POLLIN, 0},
                         {readers[1]->Get(), POLLIN, 0},
                         {pipes.in.write.Get(), POLLOUT, 0}};
        if (poll(fds, 3, -1) < 0) {
            if (errno == EINTR) {
                continue;
            }
            throw std::runtime_error("poll failed");
        }
        if (fds[2].revents & (POLLOUT | POLLERR | POLLHUP)) {
            ssize_t n = write(pipes.in.write.Get(), input.data() + written, input.size() - written);
            written += n > 0 ? static_cast<std::size_t>(n) : 0;
            if (n < 0 || written == input.size()) {
                pipes.in.write.Reset();
            }
        }
        for (int i = 0; i < 2; ++i) {
            if (fds[i].revents & (POLLIN | POLLHUP | POLLERR)) {
                char buffer[65536];
                ssize_t n = read(readers[i]->Get(), buffer, sizeof buffer);
                if (n > 0) {
                    sinks[i]->append(buffer, static_cast<std::size_t>(n));
                } else {
                    readers[i]->Reset();
                }
            }
        }
    }
    pipes.in.write.Reset();
}

inline int WaitForChild(pid_t pid) {
    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR) {
            throw std::runtime_error("waitpid failed");
        }
    }
    return DecodeWaitStatus(status);
}

inline ChildResult CollectFromChild(pid_t pid, StandardPipes& pipes, std::string const& input) {
    ChildResult result;
    ExchangeWithChild(pipes, input, result);
    result.status = WaitForChild(pid);
    return result;
}

// Runs body in a forked child whose standard streams are the pipes; the child ends with
// status 0 after body returns.
inline ChildResult RunInChild(std::function<void()> const& body, std::string const& input = "") {
    // A write to a child that already left must fail, not kill the test program.
    signal(SIGPIPE, SIG_IGN);
    StandardPipes pipes;
    std::cout.flush();
    std::cerr.flush();
    pid_t pid = fork();
    if (pid < 0) {
        throw std::runtime_error("fork failed");
    }
    if (pid == 0) {
        dup2(pipes.in.read.Get(), 0);
        dup2(pipes.out.write.Get(), 1);
        dup2(pipes.err.write.Get(), 2);
        // Only the duplicates may stay open, or the child would never see the end of its input.
        pipes.CloseAll();
        body();
        std::cout.flush();
        std::cerr.flush();
        _exit(0);
    }
    return CollectFromChild(pid, pipes, input);
}

// Starts a program with an explicit argument vector (argv[0] included) and extra environment
// entries of the form NAME=value. With an output descriptor given, the program writes its
// standard output there (a terminal, say) instead of into the result.
inline ChildResult RunProgram(std::string const& path, std::vector<std::string> const& argv,
                              std::string const& input = "",
                              std::vector<std::string> const& extraEnvironment = {},
                              int outputFd = -1) {
    signal(SIGPIPE, SIG_IGN);
    StandardPipes pipes;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipes.in.read.Get(), 0);
    posix_spawn_file_actions_adddup2(&actions, outputFd >= 0 ? outputFd : pipes.out.write.Get(), 1);
    posix_spawn_file_actions_adddup2(&actions, pipes.err.write.Get(), 2);

    std::vector<char*> args;
    for (auto const& word : argv) {
        args.push_back(const_cast<char*>(word.c_str()));
    }
    args.push_back(nullptr);
    // The extra entries come first: the first of two equal names is the one a program sees.
    std::vector<char*> environment;
    for (auto const& entry : extraEnvironment) {
        environment.push_back(const_cast<char*>(entry.c_str()));
    }
    for (char** entry = environ; *entry != nullptr; ++entry) {
        environment.push_back(*entry);
    }
    environment.push_back(nullptr);

    pid_t pid = 0;
    int rc = posix_spawn(&pid, path.c_str(), &actions, nullptr, args.data(), environment.data());
    posix_spawn_file_actions_destroy(&actions);
    if (rc != 0) {
        throw std::runtime_error("posix_spawn of " + path + " failed");
    }
    return CollectFromChild(pid, pipes, input);
}

}  // namespace TestSupport

#endif
