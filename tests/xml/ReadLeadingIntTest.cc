#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>

#include "xml/ValueGrammar.h"

using namespace Tindra::AutoCli;

namespace {

// The integer reader agrees with stream extraction, which gives "fail" where it fails.
TEST(ReadLeadingIntTest, AgreesWithStreamExtraction) {
    auto expectSame = [](std::string const& text) {
        std::istringstream in(text);
        long byStream = 0, byGrammar = 0;
        in >> byStream;
        std::string stream = in.fail() ? "fail" : std::to_string(byStream);
        bool read = ReadLeadingInt(text, byGrammar);
        ASSERT_EQ(stream, read ? std::to_string(byGrammar) : "fail") << "text: [" << text << "]";
    };
    // clang-format off
    for (std::string text : {"0", "12abc", " 7", "\t\n\v\f\r-3", "+5", "-", "+", "+-5", "- 5",
                             "0x10", "007", "9223372036854775807", "9223372036854775808",
                             "-9223372036854775808", "-9223372036854775809",
                             "99999999999999999999999", "000000000000000000000000001", "1 2",
                             "\xa0" "5", "abc", " ", "", "1e5", "-0"}) {
        // clang-format on
        expectSame(text);
    }
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (size_t length = random() % 24; length > 0; --length) {
            text += "0123456789+- \tx9"[random() % 16];
        }
        expectSame(text);
    }
}

}  // namespace
