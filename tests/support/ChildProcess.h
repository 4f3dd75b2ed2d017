#ifndef TINDRA_TESTS_SUPPORT_CHILDPROCESS_H
#define TINDRA_TESTS_SUPPORT_CHILDPROCESS_H

// Runs code or a program in a child whose standard streams are anonymous files, so that no
// amount of output can block it. Header only.
#include <errno.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/Pipe.h"

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

// Compared at once so a failure shows all three.
inline void ExpectRun(ChildResult const& run, int status, std::string const& out,
                      std::string const& err) {
    EXPECT_EQ(out, run.out);
    EXPECT_EQ(err, run.err);
    EXPECT_EQ(status, run.status);
}

inline int WaitForChild(pid_t pid) {
    int status = 0;
    while (waitpid(pid, &status, 0) < 0)
        if (errno != EINTR)
            throw std::runtime_error("waitpid failed");
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// Runs body in a forked child, which exits 0 afterwards. A minute of processor time ends it, so
// a child that spins fails its test instead of stalling the suite.
inline ChildResult RunInChild(std::function<void()> const& body, std::string const& input = "") {
    signal(SIGPIPE, SIG_IGN);  // inherited: a reader that left shows as EPIPE
    OwnedFd const files[3] = {OwnedFd(memfd_create("in", MFD_CLOEXEC)),
                              OwnedFd(memfd_create("out", MFD_CLOEXEC)),
                              OwnedFd(memfd_create("err", MFD_CLOEXEC))};
    if (files[2].Get() < 0 || pwrite(files[0].Get(), input.data(), input.size(), 0) < 0)
        throw std::runtime_error("memfd failed");
    std::cout.flush();  // std::cerr is unit-buffered
    pid_t const pid = fork();
    if (pid == 0) {
        rlimit const cpu = {60, 60};
        setrlimit(RLIMIT_CPU, &cpu);
        for (int fd : {0, 1, 2})
            dup2(files[fd].Get(), fd);
        body();
        std::cout.flush();
        _exit(0);
    }
    if (pid < 0)
        throw std::runtime_error("fork failed");
    int const status = WaitForChild(pid);
    auto readAll = [](OwnedFd const& file) {
        std::string text;
        char buffer[65536];
        for (ssize_t n; (n = pread(file.Get(), buffer, sizeof buffer, off_t(text.size()))) > 0;)
            text.append(buffer, size_t(n));
        return text;
    };
    return {readAll(files[1]), readAll(files[2]), status};
}

// For outputFd: the program starts with its standard output closed.
constexpr int kClosedOutput = -2;

// Starts a program (argv[0] included) with NAME=value entries replacing inherited ones (a bare
// NAME removes one, as glibc's putenv does); with outputFd given, standard output goes there.
inline ChildResult RunProgram(std::string const& path, std::vector<std::string> argv,
                              std::string const& input = "",
                              std::vector<std::string> environment = {}, int outputFd = -1) {
    return RunInChild(
        [&] {
            if (outputFd != -1 && (outputFd == kClosedOutput ? close(1) : dup2(outputFd, 1)) < 0)
                _exit(126);
            for (auto& entry : environment)
                putenv(entry.data());
            std::vector<char*> args;
            for (auto& word : argv)
                args.push_back(word.data());
            args.push_back(nullptr);
            execv(path.c_str(), args.data());
            std::cerr << "cannot run " << path << "\n";
            _exit(127);
        },
        input);
}

}  // namespace TestSupport

#endif
