#include "platform/ProcessorCount.h"

#include <sched.h>

#include <thread>

namespace Tindra {
namespace Platform {

unsigned UsableProcessorCount() {
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    if (::sched_getaffinity(0, sizeof allowed, &allowed) == 0) {
        int const count = CPU_COUNT(&allowed);
        return count > 0 ? static_cast<unsigned>(count) : 1;
    }
    unsigned const count = std::thread::hardware_concurrency();
    return count > 0 ? count : 1;
}

}  // namespace Platform
}  // namespace Tindra
