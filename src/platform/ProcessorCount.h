#ifndef TINDRA_PLATFORM_PROCESSORCOUNT_H
#define TINDRA_PLATFORM_PROCESSORCOUNT_H

namespace Tindra {
namespace Platform {

// The processors this process may run on (its affinity mask, which taskset and cgroups set),
// at least 1.
unsigned UsableProcessorCount();

}  // namespace Platform
}  // namespace Tindra

#endif
