#ifndef TINDRA_TESTS_SUPPORT_CHILDPROCESS_H
#define TINDRA_TESTS_SUPPORT_CHILDPROCESS_H

// Runs code or a program in a child with standard streams on pipes. Header only.
#include <errno.h>
#include <gtest/gtest.h>
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

#include "platform/Pipe.h"

extern char** environ;

namespace TestSupport {

struct OwnedFd : Tindra::Platform::UniqueFd {
    using UniqueFd::Reset;
    using UniqueFd::UniqueFd;
    void Reset() { Close(); }
};

struct Pipe {
    OwnedFd read, write;
    static Pipe Open() {
        Pipe pipe;
        if (Tindra::Platform::CreatePipe(pipe.read, pipe.write) != 0)
            throw std::runtime_error("pipe failed");
        return pipe;
    }
};

struct ChildResult {
    std::string out, err;
    int status = -1;  // exit status, or 128 + signal number
};

// The three things a run is judged by, compared at once so a failure shows all of them.
inline void ExpectRun(ChildResult const& run, int status, std::string const& out,
                      std::string const& err) {
    EXPECT_EQ(out, run.out);
    EXPECT_EQ(err, run.err);
    EXPECT_EQ(status, run.status);
}

inline int WaitForChild(pid_t pid) {
    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            throw std::runtime_error("waitpid failed");
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// Feeds the input while reading both outputs, so a child blocked on a full pipe cannot
// deadlock the test. pipes[0..2] are the child's in, out, err; the child's ends go here.
inline ChildResult CollectFromChild(pid_t pid, Pipe (&pipes)[3], std::string const& input) {
    for (OwnedFd* childEnd : {&pipes[0].read, &pipes[1].write, &pipes[2].write})
        childEnd->Close();
    if (input.empty())
        pipes[0].write.Close();
    ChildResult result;
    std::string* sinks[2] = {&result.out, &result.err};
    std::size_t written = 0;
    while (pipes[1].read.Get() >= 0 || pipes[2].read.Get() >= 0) {
        pollfd fds[3] = {{pipes[1].read.Get(), POLLIN, 0},
                         {pipes[2].read.Get(), POLLIN, 0},
                         {pipes[0].write.Get(), POLLOUT, 0}};
        if (poll(fds, 3, -1) < 0 && errno != EINTR)
            throw std::runtime_error("poll failed");
        if (fds[2].revents) {
            ssize_t n = write(pipes[0].write.Get(), input.data() + written, input.size() - written);
            written += n > 0 ? static_cast<std::size_t>(n) : 0;
            if (n < 0 || written == input.size())
                pipes[0].write.Close();
        }
        for (int i = 0; i < 2; ++i) {
            char buffer[65536];
            ssize_t n = fds[i].revents ? read(fds[i].fd, buffer, sizeof buffer) : 1;
            if (n <= 0)
                pipes[i + 1].read.Close();
            else if (fds[i].revents)
                sinks[i]->append(buffer, static_cast<std::size_t>(n));
        }
    }
    pipes[0].write.Close();
    result.status = WaitForChild(pid);
    return result;
}

// Runs body in a forked child whose standard streams are the pipes; it exits 0 afterwards.
inline ChildResult RunInChild(std::function<void()> const& body, std::string const& input = "") {
    signal(SIGPIPE, SIG_IGN);  // a child that left must not kill the test program
    Pipe pipes[3] = {Pipe::Open(), Pipe::Open(), Pipe::Open()};
    std::cout.flush();
    std::cerr.flush();
    pid_t pid = fork();
    if (pid < 0)
        throw std::runtime_error("fork failed");
    if (pid == 0) {
        for (int fd : {0, 1, 2})
            dup2(fd == 0 ? pipes[0].read.Get() : pipes[fd].write.Get(), fd);
        for (auto& pipe : pipes)
            pipe = Pipe{};  // else the child never sees its input end
        body();
        std::cout.flush();
        std::cerr.flush();
        _exit(0);
    }
    return CollectFromChild(pid, pipes, input);
}

// For outputFd: the program starts with its standard output closed.
constexpr int kClosedOutput = -2;

// Starts a program (argv[0] included) with NAME=value entries taking precedence over the
// inherited environment; with outputFd given, standard output goes there (a terminal, say).
inline ChildResult RunProgram(std::string const& path, std::vector<std::string> const& argv,
                              std::string const& input = "",
                              std::vector<std::string> const& extraEnvironment = {},
                              int outputFd = -1) {
    signal(SIGPIPE, SIG_IGN);
    Pipe pipes[3] = {Pipe::Open(), Pipe::Open(), Pipe::Open()};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipes[0].read.Get(), 0);
    if (outputFd == kClosedOutput)
        posix_spawn_file_actions_addclose(&actions, 1);
    else
        posix_spawn_file_actions_adddup2(&actions, outputFd >= 0 ? outputFd : pipes[1].write.Get(),
                                         1);
    posix_spawn_file_actions_adddup2(&actions, pipes[2].write.Get(), 2);
    std::vector<char*> args, environment;
    for (auto const& word : argv)
        args.push_back(const_cast<char*>(word.c_str()));
    for (auto const& entry : extraEnvironment)
        environment.push_back(const_cast<char*>(entry.c_str()));
    for (char** entry = environ; *entry != nullptr; ++entry)
        environment.push_back(*entry);
    args.push_back(nullptr);
    environment.push_back(nullptr);
    pid_t pid = 0;
    int rc = posix_spawn(&pid, path.c_str(), &actions, nullptr, args.data(), environment.data());
    posix_spawn_file_actions_destroy(&actions);
    if (rc != 0)
        throw std::runtime_error("posix_spawn of " + path + " failed");
    return CollectFromChild(pid, pipes, input);
}

}  // namespace TestSupport

#endif
