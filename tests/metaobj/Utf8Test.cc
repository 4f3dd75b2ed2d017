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

TEST(Utf8Validity, AcceptsEachSequenceLengthAtItsLimits) {
    EXPECT_TRUE(IsValid(""));
    EXPECT_TRUE(IsValid("\x7F"));
    EXPECT_TRUE(IsValid("\xC2\x80"));
    EXPECT_TRUE(IsValid("\xDF\xBF"));
    EXPECT_TRUE(IsValid("\xE0\xA0\x80"));
    EXPECT_TRUE(IsValid("\xED\x9F\xBF"));  // U+D7FF, just below the surrogates
    EXPECT_TRUE(IsValid("\xEF\xBF\xBF"));
    EXPECT_TRUE(IsValid("\xF0\x90\x80\x80"));
    EXPECT_TRUE(IsValid("\xF4\x8F\xBF\xBF"));  // U+10FFFF
}

TEST(Utf8Validity, RejectsOverlongsSurrogatesAndOutOfRange) {
    EXPECT_FALSE(IsValid("\xC0\xAF"));
    EXPECT_FALSE(IsValid("\xC1\xBF"));
    EXPECT_FALSE(IsValid("\xE0\x9F\xBF"));
    EXPECT_FALSE(IsValid("\xF0\x8F\xBF\xBF"));
    EXPECT_FALSE(IsValid("\xED\xA0\x80"));      // U+D800
    EXPECT_FALSE(IsValid("\xF4\x90\x80\x80"));  // U+110000
    EXPECT_FALSE(IsValid("\xF5\x80\x80\x80"));
    EXPECT_FALSE(IsValid("\x80"));
    EXPECT_FALSE(IsValid("\xE2\x82"));  // truncated
    EXPECT_FALSE(
        IsValid("\xE2\x82"
                "A"));
}

TEST(Utf8Validity, NegativeLengthStopsAtTheTerminator) {
    EXPECT_TRUE(Utf8_IsBufferValid("abc\0\xFF", -1, kEncodingUtf8));
    EXPECT_FALSE(Utf8_IsBufferValid("abc\0\xFF", 5, kEncodingUtf8));
}

TEST(Utf8Escape, EscapesEachStrayByteAndKeepsValidNeighbours) {
    EXPECT_EQ("abc", Escaped("abc"));
    EXPECT_EQ("\\xE2\\x82A", Escaped("\xE2\x82"
                                     "A"));
    EXPECT_EQ("\\xED\\xA0\\x80", Escaped("\xED\xA0\x80"));
    EXPECT_EQ("\\xC0\\xAF", Escaped("\xC0\xAF"));
    EXPECT_EQ("\xE2\x82\xAC\\x80\xE2\x82\xAC", Escaped("\xE2\x82\xAC\x80\xE2\x82\xAC"));
    EXPECT_EQ("\\xF0\\x9F\\x98", Escaped("\xF0\x9F\x98"));
}

TEST(Utf8Escape, ResultIsAlwaysValid) {
    std::string everyByte;
    for (int b = 1; b < 256; ++b) {
        everyByte += static_cast<char>(b);
    }
    std::string const escaped = Escaped(everyByte);
    EXPECT_TRUE(IsValid(escaped));
    EXPECT_EQ(127u + 128u * 4u, escaped.size());
}
