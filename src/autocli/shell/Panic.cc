// Exported for the host; nothing in the library calls it.
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "tindra/autocli/extension/ShellCmd.h"

namespace {

// Static, so that a panic caused by memory exhaustion can still report.
char panicBuffer[256];

}  // namespace

extern "C" void Panic(char const* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(panicBuffer, sizeof panicBuffer, format, arguments);
    va_end(arguments);
    panicBuffer[sizeof panicBuffer - 1] = '\0';
    std::fprintf(stderr, "panic: %s", panicBuffer);
    std::abort();
}
