#ifndef RESOURCE_EXAMPLE_HOSTRESOURCES_H
#define RESOURCE_EXAMPLE_HOSTRESOURCES_H

#include <string>

namespace ResourceExample {

// What the kernel reports about the whole host, memory in bytes.
struct HostResources {
    long uptimeSeconds = 0;
    unsigned long loads[3] = {0, 0, 0};  // 1, 5 and 15 minute averages, fixed point
    long processes = 0;
    unsigned long long totalMemory = 0;
    unsigned long long freeMemory = 0;
    unsigned long long sharedMemory = 0;
    unsigned long long bufferMemory = 0;
    unsigned long long totalSwap = 0;
    unsigned long long freeSwap = 0;
};

// Throws std::system_error when the kernel refuses.
HostResources ReadHostResources();

// The three load averages as "0.52 0.40 0.31", rounded to hundredths.
std::string FormatLoadAverage(unsigned long const (&loads)[3]);

}  // namespace ResourceExample

#endif
