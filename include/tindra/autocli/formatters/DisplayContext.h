#ifndef TINDRA_AUTOCLI_FORMATTERS_DISPLAYCONTEXT_H
#define TINDRA_AUTOCLI_FORMATTERS_DISPLAYCONTEXT_H

#include <cstdint>
#include <string>

#include "tindra/Export.h"

namespace Tindra {
namespace AutoCli {

// The screen a formatter writes to; 0 means unknown.
struct TINDRA_EXPORT DisplayContext {
    uint16_t width = 0;
    uint16_t height = 0;
    std::string text;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
