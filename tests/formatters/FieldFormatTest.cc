#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include <boost/regex.hpp>

#include "FormatterTestSupport.h"
#include "autocli/formatters/OutputBuffer.h"
#include "tindra/autocli/formatters/FieldHelpers.h"
#include "tindra/autocli/formatters/JsonFormatter.h"

namespace FormatterTest {
namespace {

// Field lists split as a regular expression's token iterator splits them: empty fields kept,
// one trailing empty field dropped.
TEST(FormatParameters, ListsSplitAsRegexTokens) {
    static boost::regex const comma(",");
    for (std::string text : {"", "a", "a,b", ",a", "a,", "a,,b,", ",", ",,", "a, b", ",,x,,"}) {
        std::vector<std::string> expected(
            boost::sregex_token_iterator(text.begin(), text.end(), comma, -1), {});
        EXPECT_EQ(Params({{"k", text.c_str()}}).GetParameterAsList("k"), expected) << text;
    }
}

std::string FormatField(char const* printf, std::shared_ptr<MetaObject> const& value,
                        char const* units = nullptr) {
    FormatParameters params = Params({{"printf:T.F", printf}});
    if (units != nullptr) {
        params.SetParameter("units:T.F", units);
    }
    return AutoCli_FormatField("T", "F", value, params);
}

TEST(FormatField, EveryFormatThatTakesTheValueIsApplied) {
    struct Case {
        char const* printf;
        std::shared_ptr<MetaObject> value;
        std::string expected;
        char const* units = nullptr;
    } const cases[] = {
        {"%d", MetaBool::New(true), "1"},
        {"%d", MetaInt::New(1L << 40), "1099511627776"},  // all 64 bits
        {"%hd", MetaInt::New(70000), "4464"},
        {"%c", MetaInt::New(65), "A"},
        {"%05ld", MetaInt::New(42), "00042 MB", "MB"},
        {"%d", MetaStruct::New("S"), " MB", "MB"},
        {"disk", MetaInt::New(3), "disk MB", "MB"},
        // No conversion at all, or one the C library prints as text.
        {"100%% %y", MetaString::New("x"), "100% %y"},
        {"%05%|%-3%%d", MetaInt::New(4), "%|%4"},  // flags before '%' print one '%'
        {"%4s|", MetaInt::New(7), "   7|"},        // a number asked for as text is its printed form
        // Buffer: format + default text + 65 bytes, one kept for the terminator; any width or
        // precision is cut to it, however large.
        {"%.100000s", MetaString::New("abc"), "abc"},
        {"%-1000000000d|", MetaInt::New(7), "7" + std::string(78, ' ')},
        {"%#-150.100x", MetaInt::New(7), "0x" + std::string(74, '0')},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(FormatField(c.printf, c.value, c.units), c.expected) << c.printf;
    }
    EXPECT_EQ(FormatField("%d", nullptr), "NULL Object");

    // Formats that could read missing arguments, or a value of the wrong kind, are refused.
    std::string const refused =
        "Error while handling formatting parameter printf:T.F.  Unable to format field: ";
    for (char const* format : {"%d %d", "%*d", "%", "%n", "%ls"}) {
        EXPECT_EQ(FormatField(format, MetaInt::New(3)), refused + "Invalid argument") << format;
    }
    EXPECT_EQ(FormatField("%d", MetaString::New("x")), refused + "Invalid argument");
    // Results longer than an int, as the C library reports them.
    EXPECT_EQ(FormatField("%2147483648d", MetaInt::New(3)), refused + std::strerror(EOVERFLOW));
    EXPECT_EQ(FormatField("ab%2147483647d", MetaInt::New(3)), refused + std::strerror(EOVERFLOW));
}

TEST(FitString, WrappingRules) {
    struct Case {
        int indent, width;
        char const* text;
        bool indented, endLine;
        char breakChar;
        bool splitLines;
        char const* expected;
    } const cases[] = {
        // Wraps at blanks, leaving the break character at the line end.
        {4, 20, "alpha beta gamma delta", false, false, '\\', false,
         "    alpha beta\\\n    gamma delta"},
        {0, 80, "x", false, false, 0, false, " x"},  // the indent is a field width: one blank
        {4, 0, "a long text", false, true, 0, false, "    a long text\n"},  // no width, no wrap
        // Split lines start every line at the indent.
        {2, 80, "a\nb\n", true, true, 0, true, "a\n  b\n"},
        {2, 8, "one two\nthree four", false, true, 0, true, "  one \n  two\n  three \n  four\n"},
    };
    for (auto const& c : cases) {
        std::ostringstream out;
        out << std::left;  // the caller's alignment must not move the indent
        AutoCli_FitString(c.indent, c.width, c.text, c.indented, out, c.endLine, c.breakChar,
                          c.splitLines);
        EXPECT_EQ(out.str(), c.expected) << c.text << " at width " << c.width;
    }
}

constexpr size_t kBlock = OutputBuffer::kBlockSize;

// Texts are megabytes long: compared without printing them on failure.
TEST(OutputBuffer, PiecesCrossBlockEdgesWholeAndInOrder) {
    std::ostringstream out;
    std::string expected;
    {
        OutputBuffer buffer(out);
        for (size_t length : {size_t{1}, kBlock - 3, kBlock, kBlock + 5, 3 * kBlock}) {
            std::string const text(length, static_cast<char>('a' + length % 26));
            buffer.Append(text);
            buffer.AppendSpaces(length);
            buffer.AppendInteger(-static_cast<long>(length));
            buffer.Append('|');
            expected += text + std::string(length, ' ') + "-" + std::to_string(length) + "|";
        }
        for (size_t i = 0; i <= kBlock; ++i) {
            buffer.Append('x');  // one of them meets a full block
        }
        expected += std::string(kBlock + 1, 'x');
    }
    EXPECT_TRUE(out.str() == expected);
    // Escaped text longer than a block, with an escape on every other byte.
    std::string text, escaped;
    for (size_t i = 0; i < kBlock / 2 + 100; ++i) {
        text += "a/";
        escaped += "a\\/";
    }
    std::ostringstream json;
    JsonFormatter().Format(MetaString::New(text), json, 0);
    EXPECT_TRUE(json.str() == "\"" + escaped + "\"");
}

}  // namespace
}  // namespace FormatterTest
