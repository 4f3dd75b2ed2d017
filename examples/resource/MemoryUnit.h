#ifndef RESOURCE_EXAMPLE_MEMORYUNIT_H
#define RESOURCE_EXAMPLE_MEMORYUNIT_H

#include <string>
#include <vector>

namespace ResourceExample {

// A unit that memory amounts can be reported in.
struct MemoryUnit {
    char const* name;
    unsigned long long bytes;
    char const* description;
};

// Every unit the command accepts, smallest first.
std::vector<MemoryUnit> const& MemoryUnits();

// The unit used when the caller names none.
MemoryUnit const& DefaultMemoryUnit();

// The unit of that name; throws std::invalid_argument for a name not in MemoryUnits().
MemoryUnit const& FindMemoryUnit(std::string const& name);

// Whole units, rounded down.
long InUnits(unsigned long long bytes, MemoryUnit const& unit);

}  // namespace ResourceExample

#endif
