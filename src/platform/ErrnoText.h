#ifndef TINDRA_SRC_PLATFORM_ERRNOTEXT_H
#define TINDRA_SRC_PLATFORM_ERRNOTEXT_H

#include <string>

namespace Tindra {
namespace Platform {

// The system's text for an error number.
std::string ErrnoText(int error);

}  // namespace Platform
}  // namespace Tindra

#endif
