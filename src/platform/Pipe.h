#ifndef TINDRA_SRC_PLATFORM_PIPE_H
#define TINDRA_SRC_PLATFORM_PIPE_H

#include "platform/Fd.h"

namespace Tindra {
namespace Platform {

// Creates a pipe whose ends are close-on-exec and numbered 3 or above, so that they can be
// mapped onto a child's standard descriptors without clobbering each other and never leak
// into any child. Returns 0, or the errno of the failure (the ends are then closed).
int CreatePipe(UniqueFd& readEnd, UniqueFd& writeEnd);

}  // namespace Platform
}  // namespace Tindra

#endif
