#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <cstring>

#include <boost/regex.hpp>

#include "FormatterTestSupport.h"
#include "autocli/formatters/OutputBuffer.h"
#include "tindra/autocli/formatters/FieldHelpers.h"
#include "tindra/autocli/formatters/JsonFormatter.h"
#include "tindra/autocli/formatters/XmlFormatter.h"

namespace FormatterTest {
namespace {

using List = std::vector<std::string>;

// Field lists split as a regular expression's token iterator splits them: empty fields kept,
// one trailing empty field dropped.
TEST(FormatParameters, ListsSplitAsRegexTokens) {
    static boost::regex const comma(",");
    for (std::string text : {"", "a", "a,b", ",a", "a,", "a,,b,", ",", ",,", "a, b", ",,x,,"}) {
        List expected(boost::sregex_token_iterator(text.begin(), text.end(), comma, -1), {});
        EXPECT_EQ(Params({{"k", text.c_str()}}).GetParameterAsList("k"), expected) << text;
    }
    EXPECT_TRUE(FormatParameters().GetParameterAsList("absent").empty());
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
    } const cases[] = {
        {"%d", MetaBool::New(true), "1"},
        {"%d", MetaInt::New(1L << 40), "1099511627776"},  // all 64 bits
        {"[%+lld]", MetaInt::New(-5), "[-5]"},
        {"%#jx", MetaInt::New(255), "0xff"},
        {"%hd", MetaInt::New(70000), "4464"},
        {"%c", MetaInt::New(65), "A"},
        {"%%%d%%", MetaInt::New(5), "%5%"},
        {"%-5.2s|", MetaString::New("abc"), "ab   |"},
        {"%d %d", MetaList::New(MetaType::Int), ""},
        // No conversion at all, or one the C library prints as text.
        {"100%% %y", MetaString::New("x"), "100% %y"},
        {"%05%|%-3%%d", MetaInt::New(4), "%|%4"},  // flags before '%' print one '%'
        // A number or a truth value asked for as text is its printed form.
        {"%4s|", MetaInt::New(7), "   7|"},
        {"%s", MetaBool::New(true), MetaBool::New(true)->ToString()},
        // Buffer: format + default text + 65 bytes, one kept for the terminator; any width or
        // precision is cut to it, however large.
        {"%99d", MetaInt::New(7), std::string(69, ' ')},
        {"%.100000s", MetaString::New("abc"), "abc"},
        {"%-1000000000d|", MetaInt::New(7), "7" + std::string(78, ' ')},
        {"%#-150.100x", MetaInt::New(7), "0x" + std::string(74, '0')},
        {"%2147483647d", MetaInt::New(7), std::string(77, ' ')},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(FormatField(c.printf, c.value), c.expected) << c.printf;
    }
    EXPECT_EQ(FormatField("%05ld", MetaInt::New(42), "MB"), "00042 MB");
    EXPECT_EQ(FormatField("%d", MetaStruct::New("S"), "MB"), " MB");
    EXPECT_EQ(FormatField("disk", MetaInt::New(3), "MB"), "disk MB");
    FormatParameters none;
    EXPECT_EQ(AutoCli_FormatField("T", "F", nullptr, none), "NULL Object");
}

TEST(FormatField, FormatsThatCouldReadMissingArgumentsAreRefused) {
    std::string const refused =
        "Error while handling formatting parameter printf:T.F.  Unable to format field: ";
    std::string const invalid = refused + "Invalid argument";
    for (char const* format : {"%d %d", "%s%s", "%*d", "%.*d", "%n", "%f", "%p", "%m", "%1$d", "%",
                               "%5", "50%", "%ls", "%lc", "%Lf", "%S"}) {
        EXPECT_EQ(FormatField(format, MetaInt::New(3), "MB"), invalid) << format;
    }
    EXPECT_EQ(FormatField("%d", MetaString::New("x")), invalid);
    EXPECT_EQ(FormatField("%c", MetaString::New("x")), invalid);
    // Results longer than an int, as the C library reports them.
    std::string const tooLarge = refused + std::strerror(EOVERFLOW);
    EXPECT_EQ(FormatField("%2147483648d", MetaInt::New(3)), tooLarge);
    EXPECT_EQ(FormatField("%.99999999999999s", MetaString::New("x")), tooLarge);
    EXPECT_EQ(FormatField("ab%2147483647d", MetaInt::New(3)), tooLarge);
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
        // Wraps at blanks, leaving the break blank (or the break character) at the line end.
        {4, 20, "alpha beta gamma delta epsilon", false, true, 0, false,
         "    alpha beta \n    gamma delta \n    epsilon\n"},
        {4, 20, "alpha beta gamma delta", false, false, '\\', false,
         "    alpha beta\\\n    gamma delta"},
        {4, 10, "abcdefghijkl", true, false, '+', false, "+\n    abcdefghijkl"},  // first word
        // Text that fits keeps every blank; too long, each empty word costs a column.
        {2, 20, "a  b ", false, true, 0, false, "  a  b \n"},
        {0, 5, "aaa  bbb", true, false, 0, false, "aaa  \n bbb"},
        // The indent is a field width, so 0 and 1 both give one blank.
        {0, 80, "x", false, false, 0, false, " x"},
        {1, 80, "x", false, false, 0, false, " x"},
        // No wrapping when the width is not beyond the indent.
        {4, 0, "a long text", false, true, 0, false, "    a long text\n"},
        {4, 4, "a long text", true, false, 0, false, "a long text"},
        // Split lines start every line at the indent.
        {2, 80, "", false, true, 0, true, ""},
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

std::string Repeat(std::string const& piece, size_t count) {
    std::string result;
    while (count-- > 0) {
        result += piece;
    }
    return result;
}

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
    out.str("");
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
    std::ostringstream json, xml;
    JsonFormatter().Format(MetaString::New(Repeat("a/", count)), json, 0);
    EXPECT_TRUE(json.str() == "\"" + Repeat("a\\/", count) + "\"");
    XmlFormatter().Format(MetaString::New(Repeat("<&", count)), xml, 0);
    EXPECT_TRUE(xml.str() == "<string>" + Repeat("&lt;&amp;", count) + "</string>\n");
}

}  // namespace
}  // namespace FormatterTest
