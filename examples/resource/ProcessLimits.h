#ifndef RESOURCE_EXAMPLE_PROCESSLIMITS_H
#define RESOURCE_EXAMPLE_PROCESSLIMITS_H

#include <string>
#include <vector>

namespace ResourceExample {

// One resource limit of the calling process, values as decimal text or "unlimited".
struct ProcessLimit {
    std::string resource;
    std::string soft;
    std::string hard;
    std::string unit;
};

// Every limit getrlimit(2) knows, in the kernel's order. Throws std::system_error when one
// cannot be read.
std::vector<ProcessLimit> ReadProcessLimits();

}  // namespace ResourceExample

#endif
