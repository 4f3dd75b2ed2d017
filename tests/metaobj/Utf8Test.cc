#include <gtest/gtest.h>

#include <string>

#include "platform/Utf8.h"

using namespace Tindra::Platform;

namespace {

bool IsValid(std::string const& text) {
    return Utf8_IsBufferValid(text.data(), static_cast<int>(text.size()), kEncodingUtf8);
}

std::string Escaped(std::string const& text) {
    MallocedText escaped(
        Utf8_EscapeBuffer(text.data(), static_cast<int>(text.size()), kEncodingUtf8));
    return escaped.get();
}

}  // namespace

TEST(Utf8, ValidityAtEachSequenceLimitAndEscapesOfStrayBytes) {
    for (char const* good : {"\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(IsValid(good)) << Escaped(good);
    }
    // Overlongs, surrogates, beyond U+10FFFF, stray continuation, truncation.
    for (char const* bad :
         {"\xC0\xAF", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\x80", "\xE2\x82"}) {
        EXPECT_FALSE(IsValid(bad)) << Escaped(bad);
    }
    EXPECT_TRUE(Utf8_IsBufferValid("abc\0\xFF", -1, kEncodingUtf8));
    // Each byte of a broken sequence is escaped; valid neighbours stay.
    EXPECT_EQ("\\xE2\\x82A", Escaped("\xE2\x82"
                                     "A"));
    EXPECT_EQ("\xE2\x82\xAC\\x80\xE2\x82\xAC", Escaped("\xE2\x82\xAC\x80\xE2\x82\xAC"));
}
