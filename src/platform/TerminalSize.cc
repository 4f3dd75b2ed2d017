#include "platform/TerminalSize.h"

#include <sys/ioctl.h>

namespace Tindra {
namespace Platform {

bool GetTerminalSize(int fd, uint16_t& columns, uint16_t& rows) {
    winsize size{};
    if (ioctl(fd, TIOCGWINSZ, &size) != 0) {
        return false;
    }
    columns = size.ws_col;
    rows = size.ws_row;
    return true;
}

}  // namespace Platform
}  // namespace Tindra
