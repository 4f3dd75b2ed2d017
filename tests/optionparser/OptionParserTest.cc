#include "tindra/autocli/cli/OptionParser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Tindra::AutoCli::OptionParser;
using namespace Tindra::CallSpec;
using Pairs = std::vector<OptionParser::Pair>;
using Words = std::vector<std::string>;

Words PathOf(OptionParser& parser) {
    return Words(parser.GetCommandPath().begin(), parser.GetCommandPath().end());
}

TEST(OptionShapeTest, OnlyLettersAndLongNamesAreOptionsAndAttachedValuesAreTold) {
    OptionParser parser;
    std::string shapes;
    for (char const* word : {"-Z", "--a1", "--a-b", "--ab==", "-", "-ab", "--x", "--ab=", "--1a",
                             "--x=y", "--ab.c", "--ab\n", "-a\n", "--ab=\n"}) {
        shapes += parser.IsParameter(word) ? '+' : '-';
    }
    EXPECT_EQ("++++---------+", shapes);
    std::string name, value;
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
    auto spec = InputSpec::New();
    std::pair<char const*, ParameterType> const declared[] = {
        {"name", ParamString}, {"verbose", ParamFlag}, {"help", ParamBool}};
    for (auto const& [name, type] : declared) {
        auto parameter = ParameterSpec::New(name, type);
        parameter->SetShortName(std::string(1, name[0]));
        spec->AddParameter(parameter);
    }
    parser.SetInputSpec(spec);
    EXPECT_EQ((Pairs{{"verbose", ""}, {"h", ""}, {"undeclared", ""}, {"n", ""}}),
              parser.GetCommandParameters());
    EXPECT_EQ((Words{"-n must have value"}), parser.GetParseErrors());
}

TEST(ParseStringTest, QuotesGroupBlanksAndAreRemoved) {
    OptionParser comment;
    EXPECT_TRUE(comment.ParseString("\"#quoted\" a"));
    OptionParser words;  // a blank inside quotes, a backslash as it is, a quote left open
    EXPECT_FALSE(words.ParseString("a\"b c\"d \tback\\slash \"open end"));
    EXPECT_EQ((Words{"ab cd", "back\\slash", "open end"}), PathOf(words));
    OptionParser parser;
    EXPECT_FALSE(parser.ParseString("--format-param \"a=b c\" ns cmd --name \"\" -v"));
    EXPECT_EQ((Pairs{{"format-param", "a=b c"}}), parser.GetDispatcherParameters());
    EXPECT_EQ((Pairs{{"name", ""}, {"v", ""}}), parser.GetCommandParameters());
}

}  // namespace
