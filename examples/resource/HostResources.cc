#include "HostResources.h"

#include <sys/sysinfo.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace ResourceExample {

namespace {

// sysinfo counts memory in blocks of mem_unit bytes.
unsigned long long InBytes(unsigned long blocks, unsigned int blockSize) {
    return static_cast<unsigned long long>(blocks) * blockSize;
}

}  // namespace

HostResources ReadHostResources() {
    struct sysinfo info {};
    if (sysinfo(&info) != 0) {
        throw std::system_error(errno, std::generic_category(), "sysinfo");
    }
    HostResources host;
    host.uptimeSeconds = info.uptime;
    for (int i = 0; i < 3; ++i) {
        host.loads[i] = info.loads[i];
    }
    host.processes = info.procs;
    host.totalMemory = InBytes(info.totalram, info.mem_unit);
    host.freeMemory = InBytes(info.freeram, info.mem_unit);
    host.sharedMemory = InBytes(info.sharedram, info.mem_unit);
    host.bufferMemory = InBytes(info.bufferram, info.mem_unit);
    host.totalSwap = InBytes(info.totalswap, info.mem_unit);
    host.freeSwap = InBytes(info.freeswap, info.mem_unit);
    return host;
}

std::string FormatLoadAverage(unsigned long const (&loads)[3]) {
    std::string text;
    for (unsigned long load : loads) {
        // Loads carry SI_LOAD_SHIFT fractional bits; add half a hundredth before cutting.
        unsigned long long const hundredths =
            (static_cast<unsigned long long>(load) * 100 + (1ULL << (SI_LOAD_SHIFT - 1))) >>
            SI_LOAD_SHIFT;
        char number[32];
        std::snprintf(number, sizeof number, "%llu.%02llu", hundredths / 100, hundredths % 100);
        text += text.empty() ? "" : " ";
        text += number;
    }
    return text;
}

}  // namespace ResourceExample
