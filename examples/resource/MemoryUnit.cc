#include "MemoryUnit.h"

#include <limits>
#include <stdexcept>

namespace ResourceExample {

std::vector<MemoryUnit> const& MemoryUnits() {
    static std::vector<MemoryUnit> const units = {
        {"B", 1ULL, "bytes"},
        {"KiB", 1ULL << 10, "kibibytes (1024 bytes)"},
        {"MiB", 1ULL << 20, "mebibytes (1024 KiB)"},
        {"GiB", 1ULL << 30, "gibibytes (1024 MiB)"},
    };
    return units;
}

MemoryUnit const& DefaultMemoryUnit() {
    return FindMemoryUnit("MiB");
}

MemoryUnit const& FindMemoryUnit(std::string const& name) {
    for (auto const& unit : MemoryUnits()) {
        if (name == unit.name) {
            return unit;
        }
    }
    throw std::invalid_argument("unknown memory unit " + name);
}

long InUnits(unsigned long long bytes, MemoryUnit const& unit) {
    unsigned long long const amount = bytes / unit.bytes;
    unsigned long long const largest = std::numeric_limits<long>::max();
    return static_cast<long>(amount < largest ? amount : largest);
}

}  // namespace ResourceExample
