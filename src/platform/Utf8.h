#ifndef TINDRA_SRC_PLATFORM_UTF8_H
#define TINDRA_SRC_PLATFORM_UTF8_H

#include <cstdlib>
#include <memory>

namespace Tindra {
namespace Platform {

// The only encoding these routines know; any other value is treated as UTF-8 too.
constexpr int kEncodingUtf8 = 0;

// True when the buffer is well-formed UTF-8: no overlong forms, no surrogates, nothing above
// U+10FFFF. A negative length means the buffer is zero-terminated.
bool Utf8_IsBufferValid(char const* buffer, int length, int encoding);

// A zero-terminated, well-formed UTF-8 copy of the buffer in which every byte that is not part
// of a valid sequence is written as \xHH (two upper-case hex digits). Allocated with malloc:
// the caller releases it with free. Null only when memory is exhausted.
char* Utf8_EscapeBuffer(char const* buffer, int length, int encoding);

struct FreeDeleter {
    void operator()(char* text) const { std::free(text); }
};
using MallocedText = std::unique_ptr<char, FreeDeleter>;

}  // namespace Platform
}  // namespace Tindra

#endif
