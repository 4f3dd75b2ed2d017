#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_ESCAPERUNS_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_ESCAPERUNS_H

#include <array>
#include <cstddef>
#include <string_view>

namespace Tindra {
namespace AutoCli {

using PlainBytes = std::array<bool, 256>;

// The bytes that an escape rule leaves as they are, computed at compile time from the rule
// itself, so that scanning text costs one lookup per byte.
template <typename IsPlain>
constexpr PlainBytes MakePlainBytes(IsPlain isPlain) {
    PlainBytes plain{};
    for (size_t byte = 0; byte < plain.size(); ++byte) {
        plain[byte] = isPlain(static_cast<unsigned char>(byte));
    }
    return plain;
}

// Calls run(text) for every stretch of plain bytes, and escape(byte) for every other byte, in
// order. A run may be empty.
template <typename Run, typename Escape>
void ForEachEscapeRun(std::string_view text, PlainBytes const& plain, Run&& run, Escape&& escape) {
    char const* const data = text.data();
    size_t const size = text.size();
    size_t i = 0;
    while (true) {
        size_t const runStart = i;
        while (i < size && plain[static_cast<unsigned char>(data[i])]) {
            ++i;
        }
        run(std::string_view(data + runStart, i - runStart));
        if (i == size) {
            return;
        }
        escape(static_cast<unsigned char>(data[i]));
        ++i;
    }
}

}  // namespace AutoCli
}  // namespace Tindra

#endif
