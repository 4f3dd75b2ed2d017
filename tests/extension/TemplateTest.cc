#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "extension/CommandBuilder.h"
#include "support/ThrownMessage.h"

using namespace Tindra::AutoCli;
using Kind = Tindra::CallSpec::ParameterType;

namespace {

// The command line (or, with onStdin, the standard input) the template gives for the values.
struct Filler : CommandBuilder {
    Filler(Kind kind, std::vector<std::pair<std::string, std::string>> const& values) {
        Parameter("xx", kind).Parameter("yy", Kind::ParamString);
        input = Input(values);
    }
    std::string operator()(std::string const& text, bool onStdin = false) {
        return Build(onStdin ? "" : text, onStdin ? text : "")->SubstituteInput(input, onStdin);
    }
    std::shared_ptr<Tindra::CallSpec::Input> input;
};

TEST(TemplateTest, ValuesAreEscapedByPlace) {
    Filler fill(Kind::ParamString, {{"xx", "it's a;b"}});
    EXPECT_EQ("", fill(""));
    EXPECT_EQ("plain {text} %s", fill("plain {text} %s", true));
    EXPECT_EQ("p 'its a;b'", fill("p '$val{xx}'"));
    EXPECT_EQ("p it\\'s a\\;b", fill("p $val{xx}"));
    EXPECT_EQ("p \"it\\'s a\\;b\"", fill("p \"$val{xx}\""));
    // Each occurrence is escaped for its own place, not for the last one's.
    EXPECT_EQ("p it\\'s a\\;b 'its a;b' it\\'s a\\;b", fill("p $val{xx} '$val{xx}' $val{xx}"));
    EXPECT_EQ("it's a;b\n'it's a;b'", fill("$val{xx}\n'$val{xx}'", true));
    // Quotes beside a placeholder are not enough: the whole line is read as the shell reads it.
    EXPECT_EQ("''it\\'s a\\;b'' 'a'it\\'s a\\;b'b'", fill("''$val{xx}'' 'a'$val{xx}'b'"));
    EXPECT_EQ("\"'it\\'s a\\;b'\" 'x'\\''its a;b'", fill("\"'$val{xx}'\" 'x'\\''$val{xx}'"));
    // The template's backslash escapes the value's first byte; a '#' would start a comment.
    EXPECT_EQ("\\'s a\\;b \"\\'s a\\;b\\#\"",
              Filler(Kind::ParamString, {{"xx", "'s a;b"}})("\\$val{xx} \"\\$val{xx}\\#\""));
    // An empty value leaves the backslash nothing: it must not take the quote or ';' after it.
    EXPECT_EQ("e 'a;b' \"\";x",
              Filler(Kind::ParamString, {{"xx", ""}})("e \\$val{xx}'a;b' \"\\$val{xx}\";x"));
    EXPECT_EQ("$(e ')';x # \\$qb",
              Filler(Kind::ParamString, {{"xx", ""}})("$(e \\$val{xx}')';x # \\$val{xx}\\$qb"));
    EXPECT_EQ("p a \\#\\\n#\t\\#", Filler(Kind::ParamString, {{"xx", "a #\n#\t#"}})("p $val{xx}"));
    // Where the quoting is not followed, the value loses every shell character.
    EXPECT_EQ("$(echo 'its ab') its ab", fill("$(echo '$val{xx}') $val{xx}"));
    // After a bare '$' the value can only go on to name a variable.
    EXPECT_EQ("echo $HOME_2x \"$HOME_2x\"",
              Filler(Kind::ParamString, {{"xx", "{HOME}_2;(x)"}})("echo $$val{xx} \"$$val{xx}\""));
    EXPECT_EQ("${x:-} x}; done",
              Filler(Kind::ParamString, {{"xx", "} #x"}})("${x:-$val{xx}}; done"));
    // Lines of a template are one text: a placeholder on a later line is found.
    EXPECT_EQ("p\nit\\'s a\\;b\n", fill("p\n$val{xx}\n"));
}

TEST(TemplateTest, ConditionalSections) {
    Filler none(Kind::ParamFlag, {}), both(Kind::ParamFlag, {{"xx", ""}, {"yy", "v"}});
    std::string const text = "p $if{xx,--x} $if{yy,{a} -y $val{yy}}|$if{xx,{n{e}s}t}|${HOME}";
    EXPECT_EQ("p  ||${HOME}", none(text));
    // A section's text ends at its first closing brace.
    EXPECT_EQ("p --x {a -y v}|{n{es}t}|${HOME}", both(text));
    // Placeholders of values not given stay as written; only sections go.
    EXPECT_EQ("'$val{yy}'  $multilist{yy,-o,true}",
              none("'$val{yy}' $if{xx,-x} $multilist{yy,-o,true}"));
    // An unpaired brace is passed over; sections after it still go.
    EXPECT_EQ("p { ", none("p { $if{xx,a}"));
}

TEST(TemplateTest, JoinedLists) {
    Filler fill(Kind::ParamStringList, {{"xx", "p"}, {"xx", "q;r"}});
    CommandBuilder& builder = fill;
    auto command = builder.Build("c $list{xx,',',true} $list{xx,'-',false}", "$list{xx,',',true}");
    // The last occurrence chooses the separator and quoting for all of them.
    EXPECT_EQ("c p-q\\;r p-q\\;r", command->SubstituteInput(fill.input, false));
    EXPECT_EQ("\"p,q;r\"", command->SubstituteInput(fill.input, true));
    EXPECT_EQ("c pq\\;r", fill("c $list{xx,'',false}"));
    EXPECT_EQ(std::string("p\0q;r", 5), fill("$list{xx,'',false}", true));
}

TEST(TemplateTest, RepeatedOptions) {
    Filler empty(Kind::ParamStringList, {});
    empty.input->GetParameters()["xx"];  // given, without items
    EXPECT_EQ("c ", empty("c $multilist{xx,-o,false}"));
    Filler fill(Kind::ParamStringList, {{"xx", "a\"$HOME`id`\\"}, {"xx", "b c"}});
    EXPECT_EQ("c  -o \"a\\$HOME\\`id\\`\\\\\" -o \"b c\"", fill("c $multilist{xx,-o,true}"));
    EXPECT_EQ("c  -o a\\\"\\$HOME\\`id\\`\\\\ -o b c", fill("c $multilist{xx,-o,false}"));
    EXPECT_EQ(" -o \"a\"$HOME`id`\\\" -o \"b c\"", fill("$multilist{xx,-o,true}", true));
}

TEST(TemplateTest, MissingSpecificationsFailOnUse) {
    auto command = ExtensionCommand::New();
    EXPECT_EQ("Request for NULL InputSpec.  Extension command is incomplete and will not work",
              ThrownMessage([&] { command->GetInputSpecInternal(); }));
    EXPECT_EQ("Request for NULL OutputSpec.  Extension command is incomplete and will not work",
              ThrownMessage([&] { command->GetOutputSpecInternal(); }));
}

TEST(SanitizeTest, EscapesExactlyTheShellCharacters) {
    std::string escaped;
    for (int c = 0; c < 256; ++c) {
        escaped += isBadChar(static_cast<char>(c)) ? std::string(1, static_cast<char>(c)) : "";
    }
    EXPECT_EQ("\n!\"$&'()*;<>\\^`|", escaped);
    EXPECT_EQ("a\\;b c#\\$\\\\", SanitizeInput("a;b c#$\\"));
    EXPECT_EQ("ab", SanitizeChar("'a'b'", '\''));
}

TEST(FindPairedTokenSizeTest, SkipsNestedPairsAndFailsFastWhenUnpaired) {
    auto paired = [](std::string const& text, size_t start) {
        auto found = FindPairedTokenSize(text.c_str(), start, text.size(), '{', '}');
        return std::to_string(found.first) + "+" + std::to_string(found.second);
    };
    EXPECT_EQ("2+7", paired("a {b{c}d} e", 2));
    EXPECT_EQ("0+0", paired("{{x}", 0));
    EXPECT_EQ("1+3", paired("{{x}", 1));
    EXPECT_EQ("0+0", paired("{x}", 5));
    EXPECT_EQ("3+2", paired("{{}{}", 3));
    // A recursive scan would take exponential time over unpaired openings.
    EXPECT_EQ("0+0", paired(std::string(200000, '{'), 0));
}

}  // namespace
