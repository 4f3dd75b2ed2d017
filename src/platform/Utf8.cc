#include "platform/Utf8.h"

#include <cstring>
#include <string>

namespace Tindra {
namespace Platform {

namespace {

size_t ResolveLength(char const* buffer, int length) {
    return length < 0 ? std::strlen(buffer) : static_cast<size_t>(length);
}

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// Length of the well-formed sequence starting at text[0], or 0 when that byte does not start
// one. The second-byte ranges exclude overlong forms, surrogates and code points past U+10FFFF.
size_t SequenceLength(unsigned char const* text, size_t available) {
    unsigned char const lead = text[0];
    if (lead < 0x80) {
        return 1;
    }
    size_t length = 0;
    unsigned char secondLow = 0x80;
    unsigned char secondHigh = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        secondLow = lead == 0xE0 ? 0xA0 : 0x80;
        secondHigh = lead == 0xED ? 0x9F : 0xBF;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        secondLow = lead == 0xF0 ? 0x90 : 0x80;
        secondHigh = lead == 0xF4 ? 0x8F : 0xBF;
    } else {
        return 0;
    }
    if (available < length || text[1] < secondLow || text[1] > secondHigh) {
        return 0;
    }
    for (size_t i = 2; i < length; ++i) {
        if (!IsContinuation(text[i])) {
            return 0;
        }
    }
    return length;
}

void AppendEscape(std::string& out, unsigned char byte) {
    static char const hexDigits[] = "0123456789ABCDEF";
    out += "\\x";
    out += hexDigits[byte >> 4];
    out += hexDigits[byte & 0x0F];
}

}  // namespace

bool Utf8_IsBufferValid(char const* buffer, int length, int) {
    auto const* text = reinterpret_cast<unsigned char const*>(buffer);
    size_t const size = ResolveLength(buffer, length);
    for (size_t pos = 0; pos < size;) {
        size_t const step = SequenceLength(text + pos, size - pos);
        if (step == 0) {
            return false;
        }
        pos += step;
    }
    return true;
}

char* Utf8_EscapeBuffer(char const* buffer, int length, int) {
    auto const* text = reinterpret_cast<unsigned char const*>(buffer);
    size_t const size = ResolveLength(buffer, length);
    std::string escaped;
    escaped.reserve(size + size / 4);
    for (size_t pos = 0; pos < size;) {
        size_t const step = SequenceLength(text + pos, size - pos);
        if (step == 0) {
            AppendEscape(escaped, text[pos]);
            ++pos;
        } else {
            escaped.append(buffer + pos, step);
            pos += step;
        }
    }
    auto* copy = static_cast<char*>(std::malloc(escaped.size() + 1));
    if (copy != nullptr) {
        std::memcpy(copy, escaped.c_str(), escaped.size() + 1);
    }
    return copy;
}

}  // namespace Platform
}  // namespace Tindra
