#include "platform/ErrnoText.h"

#include <string.h>

namespace Tindra {
namespace Platform {

namespace {

// strerror_r comes in two flavours; both are handled so the choice of C library does not matter.
[[maybe_unused]] char const* Pick(char const* gnuResult, char const*) {
    return gnuResult;
}
[[maybe_unused]] char const* Pick(int xsiResult, char const* buffer) {
    return xsiResult == 0 ? buffer : "Unknown error";
}

}  // namespace

std::string ErrnoText(int error) {
    char buffer[256] = {};
    return Pick(::strerror_r(error, buffer, sizeof buffer), buffer);
}

}  // namespace Platform
}  // namespace Tindra
