#include "tindra/autocli/cli/OptionParser.h"

#include <gtest/gtest.h>

#include <string>
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

TEST(OptionShapeTest, OnlyLettersAndLongNamesAreOptionsAndAttachedValuesAreTold) {
    OptionParser parser;
    for (char const* word : {"-a", "-Z", "--ab", "--a1", "--a-b", "--ab=c", "--ab==", "--a-=x"}) {
        EXPECT_TRUE(parser.IsParameter(word)) << word;
    }
    for (char const* word : {"-", "--", "-5", "-ab", "--x", "--ab=", "--1a", "---ab", "--a_b", "a",
                             "-é", " -a", "-a "}) {
        EXPECT_FALSE(parser.IsParameter(word)) << word;
    }
    std::string name, value = "untouched";
    EXPECT_FALSE(parser.ParseParameter("-n", name, value));
    EXPECT_EQ("n|untouched", name + "|" + value);
    EXPECT_TRUE(parser.ParseParameter("--name=a=b", name, value));
    EXPECT_EQ("name|a=b", name + "|" + value);
    EXPECT_FALSE(parser.ParseParameter("-ab", name, value) ||
                 parser.ParseParameter("--x=", name, value));
    EXPECT_EQ((Words{"Attempt to parse option failed.  Input was : -ab",
                     "Attempt to parse option failed.  Input was : --x="}),
              parser.GetParseErrors());
}

TEST(OptionParserTest, SplitsDispatcherOptionsPathAndCommandOptionsKeepingRepeats) {
    OptionParser parser;
    parser.ParseVector({"--plugin", "a.xml", "--screen-width", "80", "--plugin", "b.so", "ns",
                        "cmd", "-x", "1", "--other", "2", "-x", "3"});
    EXPECT_EQ("ostrel", parser.GetDispatcher());
    EXPECT_EQ((Words{"ns", "cmd"}), PathOf(parser));
    EXPECT_EQ((Pairs{{"x", "1"}, {"other", "2"}, {"x", "3"}}), parser.GetCommandParameters());
    EXPECT_EQ((Words{"a.xml", "b.so"}), parser.GetDispatcherParameter("plugin"));
    EXPECT_EQ((Words{"1", "3"}), parser.GetCommandParameter("x"));

    // Without a declaration any option takes the next ordinary word as its value.
    OptionParser shapes;
    shapes.ParseVector({"--n", "x", "-n", "item0", "--count", "-5", "--name=a=b", "-v", "-w"});
    EXPECT_EQ((Words{"--n", "x"}), PathOf(shapes));
    EXPECT_EQ((Pairs{{"n", "item0"}, {"count", "-5"}, {"name", "a=b"}, {"v", ""}, {"w", ""}}),
              shapes.GetCommandParameters());
    EXPECT_TRUE(shapes.GetParseErrors().empty());

    // Parsing again keeps earlier errors and already processed command options.
    OptionParser again("tool");
    again.ParseVector({"a", "-x", "1", "stray"});
    again.ProcessCommandArguments();
    again.ParseVector({"--formatter", "xml", "ns", "cmd"});
    EXPECT_EQ(
        "Parsed: 0\nDispatcher: tool\nErrors: \n"
        "   Found Extra non-parameter arguments at the end of input: 'stray' \n"
        "Path: 'ns''cmd'\nDispatch Params: \n   --formatter = 'xml'\n"
        "Command Params: \n   --x = '1'\n",
        again.ToString());
    EXPECT_EQ((Pairs{{"x", "1"}}), again.GetCommandParameters());
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
    OptionParser comment;
    EXPECT_TRUE(comment.ParseString("\"#quoted\" a"));
    std::pair<char const*, Words> const cases[] = {
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
