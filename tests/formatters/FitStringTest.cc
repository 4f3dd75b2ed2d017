#include <gtest/gtest.h>

#include <sstream>

#include "tindra/autocli/formatters/FieldHelpers.h"

namespace {

using Tindra::AutoCli::AutoCli_FitString;

std::string Fit(int indent, int width, std::string const& text, bool indented, bool endLine,
                char breakChar, bool splitLines) {
    std::ostringstream out;
    AutoCli_FitString(indent, width, text, indented, out, endLine, breakChar, splitLines);
    return out.str();
}

TEST(FitString, WrapsAtBlanksLeavingTheBreakBlankAtLineEnd) {
    EXPECT_EQ(Fit(4, 20, "alpha beta gamma delta epsilon", false, true, 0, false),
              "    alpha beta \n    gamma delta \n    epsilon\n");
    EXPECT_EQ(Fit(4, 20, "alpha beta gamma delta", false, false, '\\', false),
              "    alpha beta\\\n    gamma delta");
}

TEST(FitString, FirstWordTooLongBreaksBeforeIt) {
    EXPECT_EQ(Fit(4, 10, "abcdefghijkl", false, true, 0, false), "     \n    abcdefghijkl\n");
    EXPECT_EQ(Fit(4, 10, "abcdefghijkl", true, false, '+', false), "+\n    abcdefghijkl");
}

TEST(FitString, TextThatFitsKeepsEveryBlank) {
    EXPECT_EQ(Fit(2, 20, "a  b ", false, true, 0, false), "  a  b \n");
    // Too long: consecutive blanks give empty words, each costing a column.
    EXPECT_EQ(Fit(0, 5, "aaa  bbb", true, false, 0, false), "aaa  \n bbb");
}

TEST(FitString, IndentationUsesTheFieldWidthTrick) {
    EXPECT_EQ(Fit(0, 80, "x", false, false, 0, false), " x");
    EXPECT_EQ(Fit(1, 80, "x", false, false, 0, false), " x");
    std::ostringstream left;
    left << std::left;
    AutoCli_FitString(3, 80, "x", false, left, false, 0, false);
    EXPECT_EQ(left.str(), "   x");
}

TEST(FitString, NoWrappingWhenWidthIsNotBeyondIndent) {
    std::string const text = "a long text that would wrap";
    EXPECT_EQ(Fit(4, 0, text, false, true, 0, false), "    " + text + "\n");
    EXPECT_EQ(Fit(4, 4, text, true, false, 0, false), text);
    EXPECT_EQ(Fit(10, -3, text, true, false, 0, true), text);
}

TEST(FitString, SplitLinesStartsEveryLineAtTheIndent) {
    EXPECT_EQ(Fit(2, 80, "", false, true, 0, true), "");
    EXPECT_EQ(Fit(2, 80, "a\nb\n", true, true, 0, true), "a\n  b\n");
    EXPECT_EQ(Fit(2, 80, "a\n\nb", true, false, 0, true), "a\n  \n  b");
    EXPECT_EQ(Fit(2, 8, "one two\nthree four", false, true, 0, true),
              "  one \n  two\n  three \n  four\n");
}

}  // namespace
