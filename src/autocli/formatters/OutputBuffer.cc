#include "autocli/formatters/OutputBuffer.h"

#include <algorithm>
#include <charconv>

namespace Tindra {
namespace AutoCli {

namespace {

// Room for the longest signed 64-bit decimal, "-9223372036854775808".
constexpr size_t kLongestInteger = 20;

}  // namespace

OutputBuffer::OutputBuffer(std::ostream& out) : out(out), block(kBlockSize, '\0') {}

// A formatter that leaves by an exception has still written what came before, as a stream
// would have; a stream set to throw must not end the process while that happens.
OutputBuffer::~OutputBuffer() {
    try {
        Flush();
    } catch (...) {
    }
}

void OutputBuffer::AppendInteger(long value) {
    if (kBlockSize - used < kLongestInteger) {
        Flush();
    }
    char* const start = &block[used];
    used += static_cast<size_t>(std::to_chars(start, start + kLongestInteger, value).ptr - start);
}

void OutputBuffer::AppendManySpaces(size_t count) {
    while (count > 0) {
        if (used == kBlockSize) {
            Flush();
        }
        size_t const run = std::min(count, kBlockSize - used);
        std::memset(&block[used], ' ', run);
        used += run;
        count -= run;
    }
}

void OutputBuffer::Flush() {
    if (used > 0) {
        out.write(block.data(), static_cast<std::streamsize>(used));
        used = 0;
    }
}

// Tops the block up first so that the stream still receives whole blocks; a text longer than a
// block goes to the stream as it is, without a copy.
void OutputBuffer::AppendLarge(std::string_view text) {
    if (text.size() >= kBlockSize) {
        Flush();
        out.write(text.data(), static_cast<std::streamsize>(text.size()));
        return;
    }
    size_t const head = kBlockSize - used;
    std::memcpy(&block[used], text.data(), head);
    used = kBlockSize;
    Flush();
    std::memcpy(&block[0], text.data() + head, text.size() - head);
    used = text.size() - head;
}

}  // namespace AutoCli
}  // namespace Tindra
