#include "autocli/formatters/OutputBuffer.h"

#include <algorithm>
#include <charconv>

namespace Tindra {
namespace AutoCli {

namespace {

// Room for the longest signed 64-bit decimal, "-9223372036854775808".
constexpr size_t kLongestInteger = 20;

}  // namespace

OutputBuffer::OutputBuffer(std::ostream& out) : out(out) {
    block.reserve(kBlockSize);
}

// A formatter that leaves by an exception has still written what came before, as a stream
// would have; a stream set to throw must not end the process while that happens.
OutputBuffer::~OutputBuffer() {
    try {
        Flush();
    } catch (...) {
    }
}

void OutputBuffer::AppendInteger(long value) {
    char digits[kLongestInteger];
    char* const end = std::to_chars(digits, digits + kLongestInteger, value).ptr;
    Append(std::string_view(digits, static_cast<size_t>(end - digits)));
}

void OutputBuffer::AppendManySpaces(size_t count) {
    while (count > 0) {
        if (block.size() == kBlockSize) {
            Flush();
        }
        size_t const run = std::min(count, kBlockSize - block.size());
        block.append(run, ' ');
        count -= run;
    }
}

void OutputBuffer::Flush() {
    if (!block.empty()) {
        out.write(block.data(), static_cast<std::streamsize>(block.size()));
        block.clear();
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
    size_t const head = kBlockSize - block.size();
    block.append(text.substr(0, head));
    Flush();
    block.append(text.substr(head));
}

}  // namespace AutoCli
}  // namespace Tindra
