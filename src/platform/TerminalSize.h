#ifndef TINDRA_SRC_PLATFORM_TERMINALSIZE_H
#define TINDRA_SRC_PLATFORM_TERMINALSIZE_H

#include <cstdint>

namespace Tindra {
namespace Platform {

// The window size of the terminal behind a descriptor; false (and nothing set) when the
// descriptor is not a terminal.
bool GetTerminalSize(int fd, uint16_t& columns, uint16_t& rows);

}  // namespace Platform
}  // namespace Tindra

#endif
