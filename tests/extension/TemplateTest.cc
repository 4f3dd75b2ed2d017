#include <gtest/gtest.h>

#include <random>
#include <string>

#include "extension/CommandBuilder.h"
#include "support/ThrownMessage.h"

using namespace Tindra::AutoCli;
using Kind = Tindra::CallSpec::ParameterType;

namespace {

TEST(TemplateTest, WorkedExampleByteForByte) {
    CommandBuilder builder;
    builder.Parameter("name", Kind::ParamString)
        .Parameter("force", Kind::ParamFlag)
        .Parameter("limit", Kind::ParamInt)
        .Parameter("path", Kind::ParamStringList);
    auto command = builder.Build(
        "/usr/bin/prog -n '$val{name}' $if{force,-f} $if{limit,-l $val{limit}} "
        "$multilist{path,--path,true}");
    auto input = builder.Input({{"name", "O'Neil"}, {"force", ""}, {"path", "a b"}, {"path", "c"}});
    EXPECT_EQ("/usr/bin/prog -n 'ONeil' -f   --path \"a b\" --path \"c\"",
              command->SubstituteInput(input, false));
}

TEST(TemplateTest, TemplatesWithoutPlaceholdersAreKept) {
    CommandBuilder builder;
    builder.Parameter("xx", Kind::ParamString);
    auto input = builder.Input({{"xx", "v"}});
    EXPECT_EQ("", builder.Build("")->SubstituteInput(input, false));
    EXPECT_EQ("plain {text} %s",
              builder.Build("", "plain {text} %s")->SubstituteInput(input, true));
}

TEST(TemplateTest, ValuesAreEscapedByPlace) {
    CommandBuilder builder;
    builder.Parameter("xx", Kind::ParamString);
    auto input = builder.Input({{"xx", "it's a;b"}});
    EXPECT_EQ("p 'its a;b'", builder.Build("p '$val{xx}'")->SubstituteInput(input, false));
    EXPECT_EQ("p it\\'s a\\;b", builder.Build("p $val{xx}")->SubstituteInput(input, false));
    EXPECT_EQ("p \"it\\'s a\\;b\"", builder.Build("p \"$val{xx}\"")->SubstituteInput(input, false));
    // Each occurrence is escaped for its own place, not for the last one's.
    EXPECT_EQ("p it\\'s a\\;b 'its a;b' it\\'s a\\;b",
              builder.Build("p $val{xx} '$val{xx}' $val{xx}")->SubstituteInput(input, false));
    EXPECT_EQ("it's a;b\n'it's a;b'",
              builder.Build("", "$val{xx}\n'$val{xx}'")->SubstituteInput(input, true));
    // Lines of a template are one text: a placeholder on a later line is found.
    EXPECT_EQ("p\nit\\'s a\\;b\n", builder.Build("p\n$val{xx}\n")->SubstituteInput(input, false));
}

TEST(TemplateTest, ConditionalSections) {
    CommandBuilder builder;
    builder.Parameter("xx", Kind::ParamFlag).Parameter("yy", Kind::ParamString);
    auto none = builder.Input({});
    auto both = builder.Input({{"xx", ""}, {"yy", "v"}});
    auto command = builder.Build("p $if{xx,--x} $if{yy,{a} -y $val{yy}}|$if{xx,{n{e}s}t}|${HOME}");
    EXPECT_EQ("p  ||${HOME}", command->SubstituteInput(none, false));
    // A section's text ends at its first closing brace.
    EXPECT_EQ("p --x {a -y v}|{n{es}t}|${HOME}", command->SubstituteInput(both, false));
    // An unpaired brace is passed over; sections after it still go.
    EXPECT_EQ("p { ", builder.Build("p { $if{xx,a}")->SubstituteInput(none, false));
}

TEST(TemplateTest, JoinedLists) {
    CommandBuilder builder;
    builder.Parameter("xx", Kind::ParamStringList);
    auto input = builder.Input({{"xx", "p"}, {"xx", "q;r"}});
    auto command = builder.Build("c $list{xx,',',true} $list{xx,'-',false}", "$list{xx,',',true}");
    // The last occurrence chooses the separator and quoting for all of them.
    EXPECT_EQ("c p-q\\;r p-q\\;r", command->SubstituteInput(input, false));
    EXPECT_EQ("\"p,q;r\"", command->SubstituteInput(input, true));
    auto joined = builder.Build("c $list{xx,'',false}", "$list{xx,'',false}");
    EXPECT_EQ("c pq\\;r", joined->SubstituteInput(input, false));
    EXPECT_EQ(std::string("p\0q;r", 5), joined->SubstituteInput(input, true));
}

TEST(TemplateTest, RepeatedOptions) {
    CommandBuilder builder;
    builder.Parameter("xx", Kind::ParamStringList);
    auto empty = builder.Input({});
    empty->GetParameters()["xx"];  // given, without items
    EXPECT_EQ("c ", builder.Build("c $multilist{xx,-o,false}")->SubstituteInput(empty, false));
    auto input = builder.Input({{"xx", "a\"$HOME`id`\\"}, {"xx", "b c"}});
    EXPECT_EQ("c  -o \"a\\$HOME\\`id\\`\\\\\" -o \"b c\"",
              builder.Build("c $multilist{xx,-o,true}")->SubstituteInput(input, false));
    EXPECT_EQ("c  -o a\\\"\\$HOME\\`id\\`\\\\ -o b c",
              builder.Build("c $multilist{xx,-o,false}")->SubstituteInput(input, false));
    EXPECT_EQ(" -o \"a\"$HOME`id`\\\" -o \"b c\"",
              builder.Build("", "$multilist{xx,-o,true}")->SubstituteInput(input, true));
}

TEST(TemplateTest, MissingSpecificationsFailOnUse) {
    auto command = ExtensionCommand::New();
    EXPECT_EQ("Request for NULL InputSpec.  Extension command is incomplete and will not work",
              ThrownMessage([&] { command->GetInputSpecInternal(); }));
    EXPECT_EQ("Request for NULL OutputSpec.  Extension command is incomplete and will not work",
              ThrownMessage([&] { command->GetOutputSpecInternal(); }));
}

TEST(SanitizeTest, EscapesExactlyTheShellCharacters) {
    std::string const bad = "\n!\"$&'()*;<>\\^`|";
    int count = 0;
    for (int c = 0; c < 256; ++c) {
        bool expected = bad.find(static_cast<char>(c)) != std::string::npos && c != 0;
        EXPECT_EQ(expected, isBadChar(static_cast<char>(c))) << c;
        count += isBadChar(static_cast<char>(c)) ? 1 : 0;
    }
    EXPECT_EQ(16, count);
    EXPECT_EQ("a\\;b c#\\$\\\\", SanitizeInput("a;b c#$\\"));
    EXPECT_EQ("ab", SanitizeChar("'a'b'", '\''));
}

// The pairing as first described: recursive, skipping nested pairs.
std::pair<size_t, size_t> PairedByRecursion(std::string const& text, size_t start) {
    size_t i = text[start] == '{' ? start + 1 : start;
    while (i < text.size()) {
        if (text[i] == '{') {
            auto nested = PairedByRecursion(text, i);
            i = nested.second != 0 ? nested.first + nested.second : i + 1;
        } else if (text[i] == '}') {
            return {start, i - start + 1};
        } else {
            ++i;
        }
    }
    return {0, 0};
}

TEST(FindPairedTokenSizeTest, AgreesWithRecursiveScan) {
    EXPECT_EQ(std::make_pair(size_t(2), size_t(7)),
              FindPairedTokenSize("a {b{c}d} e", 2, 11, '{', '}'));
    EXPECT_EQ(std::make_pair(size_t(0), size_t(0)), FindPairedTokenSize("{{x}", 0, 4, '{', '}'));
    EXPECT_EQ(std::make_pair(size_t(0), size_t(0)), FindPairedTokenSize("{x}", 5, 3, '{', '}'));
    std::mt19937 random(3);
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (size_t n = random() % 14; n > 0; --n) {
            text += "{}x"[random() % 3];
        }
        for (size_t start = 0; start < text.size(); ++start) {
            ASSERT_EQ(PairedByRecursion(text, start),
                      FindPairedTokenSize(text.c_str(), start, text.size(), '{', '}'))
                << text << " from " << start;
        }
    }
    // Unpaired openings cost the recursive scan exponential time; this must return at once.
    std::string opening(200000, '{');
    EXPECT_EQ(size_t(0), FindPairedTokenSize(opening.c_str(), 0, opening.size(), '{', '}').second);
}

}  // namespace
