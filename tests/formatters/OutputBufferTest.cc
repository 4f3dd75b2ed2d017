#include <gtest/gtest.h>

#include <climits>
#include <sstream>
#include <string>

#include "FormatterTestSupport.h"
#include "autocli/formatters/OutputBuffer.h"
#include "tindra/autocli/formatters/JsonFormatter.h"
#include "tindra/autocli/formatters/XmlFormatter.h"

namespace FormatterTest {
namespace {

constexpr size_t kBlock = OutputBuffer::kBlockSize;

std::string Repeat(std::string const& piece, size_t count) {
    std::string result;
    for (size_t i = 0; i < count; ++i) {
        result += piece;
    }
    return result;
}

// Texts are megabytes long: compared without printing them on failure.
TEST(OutputBuffer, EveryKindOfPieceCrossesBlockEdgesWhole) {
    std::ostringstream out;
    std::string expected;
    {
        OutputBuffer buffer(out);
        for (size_t length :
             {size_t{1}, size_t{1000}, kBlock - 3, kBlock, kBlock + 5, 3 * kBlock}) {
            std::string const text(length, static_cast<char>('a' + length % 26));
            buffer.Append(text);
            buffer.AppendSpaces(length);
            buffer.AppendInteger(-static_cast<long>(length));
            buffer.Append('|');
            expected += text + std::string(length, ' ') + "-" + std::to_string(length) + "|";
        }
    }
    EXPECT_TRUE(out.str() == expected);
    for (size_t filled = kBlock - 41; filled <= kBlock; ++filled) {
        std::ostringstream numbers;
        OutputBuffer buffer(numbers);
        buffer.AppendSpaces(filled);
        buffer.AppendInteger(LONG_MIN);
        buffer.AppendInteger(LONG_MAX);
        buffer.Flush();
        EXPECT_EQ(numbers.str().substr(filled), "-92233720368547758089223372036854775807")
            << "after " << filled << " bytes";
    }
}

TEST(OutputBuffer, HandsOverWholeBlocksThenTheRest) {
    std::ostringstream out;
    {
        OutputBuffer buffer(out);
        buffer.Append("held");
        EXPECT_EQ(out.str(), "");
        buffer.Flush();
        out << '+';  // what the stream got directly stays after what was flushed
        for (size_t i = 0; i <= kBlock; ++i) {
            buffer.Append('x');
        }
        EXPECT_EQ(out.str().size(), 5 + kBlock);
        buffer.Append("tail");
    }
    EXPECT_TRUE(out.str() == "held+" + std::string(kBlock + 1, 'x') + "tail");
    // Escaped text longer than a block, with an escape on every other byte.
    size_t const count = kBlock / 2 + 100;
    std::ostringstream json;
    JsonFormatter().Format(MetaString::New(Repeat("a/", count)), json, 0);
    EXPECT_TRUE(json.str() == "\"" + Repeat("a\\/", count) + "\"");
    std::ostringstream xml;
    XmlFormatter().Format(MetaString::New(Repeat("<&", count)), xml, 0);
    EXPECT_TRUE(xml.str() == "<string>" + Repeat("&lt;&amp;", count) + "</string>\n");
}

}  // namespace
}  // namespace FormatterTest
