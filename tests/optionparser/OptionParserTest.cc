#include "tindra/autocli/cli/OptionParser.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using Tindra::AutoCli::OptionParser;
using namespace Tindra::CallSpec;
using Pairs = std::vector<OptionParser::Pair>;
using Words = std::vector<std::string>;

std::shared_ptr<InputSpec> SampleSpec() {
    auto spec = InputSpec::New();
    std::pair<char const*, ParameterType> const declared[] = {
        {"name", ParamString}, {"verbose", ParamFlag}, {"help", ParamBool}};
    for (auto const& [name, type] : declared) {
        auto parameter = ParameterSpec::New(name, type);
        parameter->SetShortName(std::string(1, name[0]));
        parameter->SetRequired(type != ParamBool);
        spec->AddParameter(parameter);
    }
    return spec;
}

Words PathOf(OptionParser& parser) {
    return Words(parser.GetCommandPath().begin(), parser.GetCommandPath().end());
}

TEST(OptionShapeTest, OnlyLettersAndLongNamesAreOptions) {
    OptionParser parser;
    for (char const* word : {"-a", "-Z", "--ab", "--a1", "--a-b", "--ab=c", "--ab==", "--a-=x"}) {
        EXPECT_TRUE(parser.IsParameter(word)) << word;
    }
    for (char const* word : {"-", "--", "-5", "-ab", "--x", "--ab=", "--1a", "---ab", "--a_b", "a",
                             "-é", " -a", "-a "}) {
        EXPECT_FALSE(parser.IsParameter(word)) << word;
    }
}

TEST(OptionShapeTest, ParseParameterTellsWhetherTheValueCameAttached) {
    OptionParser parser;
    std::tuple<char const*, bool, char const*> const cases[] = {{"-n", false, "n|untouched"},
                                                                {"--name", false, "name|untouched"},
                                                                {"--name=a=b", true, "name|a=b"}};
    for (auto const& [word, attached, parsed] : cases) {
        std::string name, value = "untouched";
        EXPECT_EQ(attached, parser.ParseParameter(word, name, value)) << word;
        EXPECT_EQ(parsed, name + "|" + value) << word;
    }
    EXPECT_TRUE(parser.GetParseErrors().empty());

    std::string name, value;
    EXPECT_FALSE(parser.ParseParameter("-ab", name, value) ||
                 parser.ParseParameter("--x=", name, value));
    EXPECT_EQ((Words{"Attempt to parse option failed.  Input was : -ab",
                     "Attempt to parse option failed.  Input was : --x="}),
              parser.GetParseErrors());
}

TEST(OptionParserTest, AnyOptionTakesTheNextOrdinaryWordAsItsValue) {
    OptionParser parser;
    parser.ParseVector({"demo", "widget", "--verbose", "list"});
    EXPECT_EQ((Words{"demo", "widget"}), PathOf(parser));
    EXPECT_EQ((Pairs{{"verbose", "list"}}), parser.GetCommandParameters());

    OptionParser shapes;
    shapes.ParseVector({"--n", "x", "-n", "item0", "--count", "-5", "--name=a=b", "-v", "-w"});
    EXPECT_EQ((Words{"--n", "x"}), PathOf(shapes));
    EXPECT_EQ((Pairs{{"n", "item0"}, {"count", "-5"}, {"name", "a=b"}, {"v", ""}, {"w", ""}}),
              shapes.GetCommandParameters());
    EXPECT_TRUE(shapes.GetParseErrors().empty()) << "no declaration, so no missing-value check";
}

TEST(OptionParserTest, SplitsDispatcherOptionsPathAndCommandOptionsKeepingRepeats) {
    OptionParser parser;
    parser.ParseVector({"--plugin", "a.xml", "--screen-width", "80", "--plugin", "b.so", "ns",
                        "cmd", "-x", "1", "--other", "2", "-x", "3"});
    EXPECT_EQ("ostrel", parser.GetDispatcher());
    EXPECT_EQ((Words{"ns", "cmd"}), PathOf(parser));
    EXPECT_EQ((Pairs{{"x", "1"}, {"other", "2"}, {"x", "3"}}), parser.GetCommandParameters());
    EXPECT_TRUE(parser.GetParseErrors().empty());
    EXPECT_EQ((Words{"a.xml", "b.so"}), parser.GetDispatcherParameter("plugin"));
    EXPECT_FALSE(parser.HasDispatcherParameter("x"));
    EXPECT_EQ((Words{"1", "3"}), parser.GetCommandParameter("x"));

    // Parsing again keeps earlier errors and already processed command options.
    OptionParser again;
    again.ParseVector({"a", "-x", "1", "stray"});
    again.ProcessCommandArguments();
    again.ParseVector({"--fmt", "json", "b", "c"});
    EXPECT_EQ((Pairs{{"fmt", "json"}}), again.GetDispatcherParameters());
    EXPECT_EQ((Words{"b", "c"}), PathOf(again));
    EXPECT_EQ((Pairs{{"x", "1"}}), again.GetCommandParameters());
    EXPECT_EQ(1u, again.GetParseErrors().size());

    OptionParser dumped("tool");
    dumped.ParseVector({"--formatter", "xml", "ns", "cmd", "-v", "--name", "a b", "extra"});
    EXPECT_EQ(
        "Parsed: 0\nDispatcher: tool\nErrors: \n"
        "   Found Extra non-parameter arguments at the end of input: 'extra' \n"
        "Path: 'ns''cmd'\nDispatch Params: \n   --formatter = 'xml'\n"
        "Command Params: \n   --v = ''\n   --name = 'a b'\n",
        dumped.ToString());
}

TEST(OptionParserTest, MissingValuesAreCheckedAgainstTheDeclarationSetBeforeProcessing) {
    OptionParser parser;
    parser.ParseVector({"ns", "cmd", "--verbose", "-h", "--undeclared", "-n"});
    parser.SetInputSpec(SampleSpec());
    EXPECT_EQ((Pairs{{"verbose", ""}, {"h", ""}, {"undeclared", ""}, {"n", ""}}),
              parser.GetCommandParameters());
    EXPECT_EQ((Words{"-n must have value"}), parser.GetParseErrors());

    OptionParser late;
    late.ParseVector({"ns", "--name"});
    late.GetCommandParameters();
    late.SetInputSpec(SampleSpec());
    late.GetCommandParameters();
    EXPECT_TRUE(late.GetParseErrors().empty());
}

TEST(ParseStringTest, QuotesGroupBlanksAndAreRemoved) {
    for (char const* line : {"", "   ", " \t ", "# comment", "  #x --a", "\"#quoted\" a"}) {
        OptionParser parser;
        EXPECT_TRUE(parser.ParseString(line)) << line;
        EXPECT_TRUE(parser.GetCommandPath().empty()) << line;
    }
    std::pair<char const*, Words> const cases[] = {
        {"a \"b c\"", {"a", "b c"}},
        {"a\"b c\"d", {"ab cd"}},
        {"  lead\tand  trail \t", {"lead", "and", "trail"}},
        {"a #b c#", {"a", "#b", "c#"}},
        {"a \"\" b", {"a", "", "b"}},
        {"back\\slash \"open end", {"back\\slash", "open end"}},
        {"x\"", {"x"}},
    };
    for (auto const& [line, path] : cases) {
        OptionParser parser;
        EXPECT_FALSE(parser.ParseString(line)) << line;
        EXPECT_EQ(path, PathOf(parser)) << line;
    }
    OptionParser parser;
    EXPECT_FALSE(parser.ParseString("--format-param \"a=b c\" ns cmd --name \"\" -v"));
    EXPECT_EQ((Pairs{{"format-param", "a=b c"}}), parser.GetDispatcherParameters());
    EXPECT_EQ((Pairs{{"name", ""}, {"v", ""}}), parser.GetCommandParameters());
}

}  // namespace
