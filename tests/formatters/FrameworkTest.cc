#include <gtest/gtest.h>

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

TEST(FormatParameters, LookupAndOverride) {
    FormatParameters base = Params({{"keep", "1"}, {"both", "old"}, {"empty", ""}});
    base.SetFormatter("table");
    EXPECT_TRUE(base.HasParameter("empty"));
    EXPECT_EQ(base.GetParameter("absent"), "");
    EXPECT_FALSE(base.HasParameter("absent"));

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
    EXPECT_EQ(GetSubField(outer, "a"), inner);
    EXPECT_EQ(GetSubField(nullptr, "a"), nullptr);
    EXPECT_EQ(GetStringField(outer, "b"), "outer b");
    EXPECT_EQ(GetStringField(outer, "n"), "");
    EXPECT_EQ(GetStringField(outer, "missing"), "");
    EXPECT_EQ(GetIndent(0), "");
    EXPECT_EQ(GetIndent(-1), "");
    EXPECT_EQ(GetIndent(2), "      ");
}

std::string FormatWith(char const* printf, std::shared_ptr<MetaObject> const& value,
                       char const* units = nullptr) {
    FormatParameters params = Params({{"printf:T.F", printf}});
    if (units != nullptr) {
        params.SetParameter("units:T.F", units);
    }
    return AutoCli_FormatField("T", "F", value, params);
}

TEST(FormatField, OneMatchingConversionIsApplied) {
    EXPECT_EQ(FormatWith("%05ld", MetaInt::New(42)), "00042");
    EXPECT_EQ(FormatWith("%05ld", MetaInt::New(42), "MB"), "00042 MB");
    EXPECT_EQ(FormatWith("%d", MetaBool::New(true)), "1");
    EXPECT_EQ(FormatWith("%x", MetaBool::New(false)), "0");
    // A plain conversion still receives all 64 bits.
    EXPECT_EQ(FormatWith("%d", MetaInt::New(1L << 40)), "1099511627776");
    EXPECT_EQ(FormatWith("[%+lld]", MetaInt::New(-5)), "[-5]");
    EXPECT_EQ(FormatWith("%#lx", MetaInt::New(255)), "0xff");
    EXPECT_EQ(FormatWith("%c", MetaInt::New(65)), "A");
    EXPECT_EQ(FormatWith("%%%d%%", MetaInt::New(5)), "%5%");
    EXPECT_EQ(FormatWith("%-5.2s|", MetaString::New("abc")), "ab   |");
    EXPECT_EQ(FormatWith("%d", MetaStruct::New("S"), "MB"), " MB");
    EXPECT_EQ(FormatWith("%d", MetaList::New(MetaType::Int)), "");
    FormatParameters none;
    EXPECT_EQ(AutoCli_FormatField("T", "F", nullptr, none), "NULL Object");
}

TEST(FormatField, ResultIsCutToTheBuffer) {
    // Buffer: 4 (format) + 1 (default text) + 65 bytes, one kept for the terminator.
    EXPECT_EQ(FormatWith("%99d", MetaInt::New(7)), std::string(69, ' '));
    EXPECT_EQ(FormatWith("%-65535d", MetaInt::New(7)).size(), 8u + 1 + 65 - 1);
}

TEST(FormatField, FormatsThatCouldReadMissingArgumentsAreRefused) {
    std::string const refused =
        "Error while handling formatting parameter printf:T.F.  Unable to format field: "
        "Invalid argument";
    auto const number = MetaInt::New(3);
    for (char const* format :
         {"%s", "%d %d", "%*d", "%.*d", "%n", "%f", "%p", "%hd", "%jd", "%1$d", "%", "%5",
          "no conversion", "%%", "%ls", "%Lf", "%65536d", "%.100000d", "%-00001000000d"}) {
        EXPECT_EQ(FormatWith(format, number, "MB"), refused) << format;
    }
    EXPECT_EQ(FormatWith("%d", MetaString::New("x")), refused);
    EXPECT_EQ(FormatWith("%s", MetaBool::New(true)), refused);
    EXPECT_EQ(FormatWith("%ld", MetaBool::New(true)), refused);
}

}  // namespace
}  // namespace FormatterTest
