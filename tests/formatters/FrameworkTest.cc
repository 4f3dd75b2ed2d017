#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <sstream>

#include <boost/regex.hpp>

#include "FormatterTestSupport.h"
#include "autocli/formatters/Tokens.h"
#include "tindra/autocli/formatters/FieldHelpers.h"

namespace FormatterTest {
namespace {

using List = std::vector<std::string>;

TEST(FormatParameters, ListSplittingFollowsRegexTokenMode) {
    static boost::regex const comma(",");
    for (std::string text : {"", "a", "a,b", ",a", "a,", "a,,b,", ",", ",,", "a, b", ",,x,,"}) {
        List expected(boost::sregex_token_iterator(text.begin(), text.end(), comma, -1),
                      boost::sregex_token_iterator());
        EXPECT_EQ(SplitTokens(text, ','), expected) << "text: '" << text << "'";
        EXPECT_EQ(Params({{"k", text.c_str()}}).GetParameterAsList("k"), expected);
    }
    EXPECT_EQ(Params({{"k", "a,,b,"}}).GetParameterAsList("k"), (List{"a", "", "b"}));
    EXPECT_TRUE(FormatParameters().GetParameterAsList("absent").empty());
}

TEST(FormatParameters, OverrideKeepsAnEmptyFormatterNameAndMergesKeys) {
    FormatParameters base = Params({{"keep", "1"}, {"both", "old"}, {"empty", ""}});
    base.SetFormatter("table");
    EXPECT_TRUE(base.HasParameter("empty"));
    EXPECT_EQ(base.GetParameter("absent"), "");
    FormatParameters other = Params({{"both", "new"}, {"added", "2"}});
    base.OverrideValues(other);
    EXPECT_EQ(base.GetFormatter(), "table");
    EXPECT_EQ(base.GetParameters(),
              (std::map<std::string, std::string>{
                  {"added", "2"}, {"both", "new"}, {"empty", ""}, {"keep", "1"}}));
    other.SetFormatter("json");
    base.OverrideValues(other);
    EXPECT_EQ(base.GetFormatter(), "json");
}

TEST(FieldHelpers, SubFieldWalksNestedStructures) {
    auto inner = MetaStruct::New("Inner");
    inner->SetField("b", 7L);
    auto outer = MetaStruct::New("Outer");
    outer->SetField("a", inner);
    outer->SetField("b", "outer b");
    outer->SetField("n", 1L);
    EXPECT_EQ(GetSubField(outer, "a.b")->ToString(), "7");
    EXPECT_EQ(GetSubField(outer, "missing.b")->ToString(), "outer b");
    EXPECT_EQ(GetSubField(outer, "a.missing"), nullptr);
    EXPECT_EQ(GetSubField(outer, "n.b"), nullptr);
    EXPECT_EQ(GetSubField(nullptr, "a"), nullptr);
    EXPECT_EQ(GetStringField(outer, "b") + "|" + GetStringField(outer, "n"), "outer b|");
}

TEST(FormatField, EveryFormatThatTakesTheValueIsApplied) {
    struct Case {
        char const* printf;
        std::shared_ptr<MetaObject> value;
        char const* units;
        std::string expected;
    } const cases[] = {
        {"%05ld", MetaInt::New(42), "MB", "00042 MB"},
        {"%d", MetaBool::New(true), nullptr, "1"},
        {"%d", MetaInt::New(1L << 40), nullptr, "1099511627776"},  // all 64 bits
        {"[%+lld]", MetaInt::New(-5), nullptr, "[-5]"},
        {"%#jx", MetaInt::New(255), nullptr, "0xff"},
        {"%hd", MetaInt::New(70000), nullptr, "4464"},
        {"%c", MetaInt::New(65), nullptr, "A"},
        {"%%%d%%", MetaInt::New(5), nullptr, "%5%"},
        {"%-5.2s|", MetaString::New("abc"), nullptr, "ab   |"},
        {"%d", MetaStruct::New("S"), "MB", " MB"},
        {"%d %d", MetaList::New(MetaType::Int), nullptr, ""},
        // No conversion at all, or one the C library prints as text.
        {"disk", MetaInt::New(3), "MB", "disk MB"},
        {"100%% %y", MetaString::New("x"), nullptr, "100% %y"},
        {"%05%|%-3%%d", MetaInt::New(4), nullptr, "%|%4"},  // flags before '%' print one '%'
        // A number or a truth value asked for as text is its printed form.
        {"%4s|", MetaInt::New(7), nullptr, "   7|"},
        {"%s", MetaBool::New(true), nullptr, MetaBool::New(true)->ToString()},
        // Buffer: format + default text + 65 bytes, one kept for the terminator; any width or
        // precision is cut to it, however large.
        {"%99d", MetaInt::New(7), nullptr, std::string(69, ' ')},
        {"%.100000s", MetaString::New("abc"), nullptr, "abc"},
        {"%-1000000000d|", MetaInt::New(7), nullptr, "7" + std::string(78, ' ')},
        {"%#-150.100x", MetaInt::New(7), nullptr, "0x" + std::string(74, '0')},
        {"%2147483647d", MetaInt::New(7), nullptr, std::string(77, ' ')},
    };
    for (auto const& c : cases) {
        FormatParameters params = Params({{"printf:T.F", c.printf}});
        if (c.units != nullptr) {
            params.SetParameter("units:T.F", c.units);
        }
        EXPECT_EQ(AutoCli_FormatField("T", "F", c.value, params), c.expected) << c.printf;
    }
    FormatParameters none;
    EXPECT_EQ(AutoCli_FormatField("T", "F", nullptr, none), "NULL Object");
}

std::string FormatWith(char const* printf, std::shared_ptr<MetaObject> const& value) {
    FormatParameters params = Params({{"printf:T.F", printf}, {"units:T.F", "MB"}});
    return AutoCli_FormatField("T", "F", value, params);
}

TEST(FormatField, FormatsThatCouldReadMissingArgumentsAreRefused) {
    std::string const refused =
        "Error while handling formatting parameter printf:T.F.  Unable to format field: ";
    std::string const invalid = refused + "Invalid argument";
    for (char const* format : {"%d %d", "%s%s", "%*d", "%.*d", "%n", "%f", "%p", "%m", "%1$d", "%",
                               "%5", "50%", "%ls", "%lc", "%Lf", "%S"}) {
        EXPECT_EQ(FormatWith(format, MetaInt::New(3)), invalid) << format;
    }
    EXPECT_EQ(FormatWith("%d", MetaString::New("x")), invalid);
    EXPECT_EQ(FormatWith("%c", MetaString::New("x")), invalid);
    // Results longer than an int, as the C library reports them.
    std::string const tooLarge = refused + std::strerror(EOVERFLOW);
    EXPECT_EQ(FormatWith("%2147483648d", MetaInt::New(3)), tooLarge);
    EXPECT_EQ(FormatWith("%.99999999999999s", MetaString::New("x")), tooLarge);
    EXPECT_EQ(FormatWith("ab%2147483647d", MetaInt::New(3)), tooLarge);
}

struct FitCase {
    int indent, width;
    char const* text;
    bool indented, endLine;
    char breakChar;
    bool splitLines;
    char const* expected;
};

TEST(FitString, WrappingRules) {
    FitCase const cases[] = {
        // Wraps at blanks, leaving the break blank (or the break character) at the line end.
        {4, 20, "alpha beta gamma delta epsilon", false, true, 0, false,
         "    alpha beta \n    gamma delta \n    epsilon\n"},
        {4, 20, "alpha beta gamma delta", false, false, '\\', false,
         "    alpha beta\\\n    gamma delta"},
        // A first word too long breaks before it.
        {4, 10, "abcdefghijkl", true, false, '+', false, "+\n    abcdefghijkl"},
        // Text that fits keeps every blank; too long, each empty word costs a column.
        {2, 20, "a  b ", false, true, 0, false, "  a  b \n"},
        {0, 5, "aaa  bbb", true, false, 0, false, "aaa  \n bbb"},
        // The indent is a field width, so 0 and 1 both give one blank.
        {0, 80, "x", false, false, 0, false, " x"},
        {1, 80, "x", false, false, 0, false, " x"},
        // No wrapping when the width is not beyond the indent.
        {4, 0, "a long text that would wrap", false, true, 0, false,
         "    a long text that would wrap\n"},
        {4, 4, "a long text that would wrap", true, false, 0, false, "a long text that would wrap"},
        // Split lines start every line at the indent.
        {2, 80, "", false, true, 0, true, ""},
        {2, 80, "a\nb\n", true, true, 0, true, "a\n  b\n"},
        {2, 8, "one two\nthree four", false, true, 0, true, "  one \n  two\n  three \n  four\n"},
    };
    for (FitCase const& c : cases) {
        std::ostringstream out;
        AutoCli_FitString(c.indent, c.width, c.text, c.indented, out, c.endLine, c.breakChar,
                          c.splitLines);
        EXPECT_EQ(out.str(), c.expected) << c.text << " at width " << c.width;
    }
    std::ostringstream left;
    left << std::left;
    AutoCli_FitString(3, 80, "x", false, left, false, 0, false);
    EXPECT_EQ(left.str(), "   x");
}

}  // namespace
}  // namespace FormatterTest
