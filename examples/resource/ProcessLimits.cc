#include "ProcessLimits.h"

#include <sys/resource.h>

#include <cerrno>
#include <system_error>

namespace ResourceExample {

namespace {

struct LimitKind {
    int resource;
    char const* name;
    char const* unit;
};

// Named as the shell's ulimit and /proc/<pid>/limits do, so administrators recognise them.
LimitKind const kLimitKinds[] = {
    {RLIMIT_CPU, "cpu", "seconds"},         {RLIMIT_FSIZE, "fsize", "bytes"},
    {RLIMIT_DATA, "data", "bytes"},         {RLIMIT_STACK, "stack", "bytes"},
    {RLIMIT_CORE, "core", "bytes"},         {RLIMIT_RSS, "rss", "bytes"},
    {RLIMIT_NPROC, "nproc", "processes"},   {RLIMIT_NOFILE, "nofile", "files"},
    {RLIMIT_MEMLOCK, "memlock", "bytes"},   {RLIMIT_AS, "as", "bytes"},
    {RLIMIT_LOCKS, "locks", "locks"},       {RLIMIT_SIGPENDING, "sigpending", "signals"},
    {RLIMIT_MSGQUEUE, "msgqueue", "bytes"}, {RLIMIT_NICE, "nice", "priority"},
    {RLIMIT_RTPRIO, "rtprio", "priority"},  {RLIMIT_RTTIME, "rttime", "microseconds"},
};

std::string LimitText(rlim_t value) {
    return value == RLIM_INFINITY ? "unlimited" : std::to_string(value);
}

}  // namespace

std::vector<ProcessLimit> ReadProcessLimits() {
    std::vector<ProcessLimit> limits;
    for (auto const& kind : kLimitKinds) {
        struct rlimit limit {};
        if (getrlimit(kind.resource, &limit) != 0) {
            throw std::system_error(errno, std::generic_category(),
                                    std::string("getrlimit ") + kind.name);
        }
        limits.push_back(
            {kind.name, LimitText(limit.rlim_cur), LimitText(limit.rlim_max), kind.unit});
    }
    return limits;
}

}  // namespace ResourceExample
