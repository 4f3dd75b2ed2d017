#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "extension/CommandBuilder.h"
#include "support/ThrownMessage.h"

using namespace Tindra::AutoCli;
using Kind = Tindra::CallSpec::ParameterType;

namespace {

// What a template gives on the command line, or on standard input, for xx (of the row's kind)
// and the string yy.
struct Row {
    Kind kind;
    CommandBuilder::Values values;
    std::string text, expected;
    bool onStdin = false;
};

void ExpectFilled(std::vector<Row> const& rows) {
    for (Row const& row : rows) {
        CommandBuilder builder;
        builder.Parameter("xx", row.kind).Parameter("yy", Kind::ParamString);
        auto command = builder.Build(row.onStdin ? "" : row.text, row.onStdin ? row.text : "");
        EXPECT_EQ(row.expected, command->SubstituteInput(builder.Input(row.values), row.onStdin))
            << row.text;
    }
}

TEST(TemplateTest, ValuesAreEscapedForTheQuotingTheyLandIn) {
    std::string escaped;
    for (int c = 0; c < 256; ++c)
        escaped += isBadChar(static_cast<char>(c)) ? std::string(1, static_cast<char>(c)) : "";
    EXPECT_EQ("\n!\"$&'()*;<>\\^`|", escaped);
    CommandBuilder::Values const semi = {{"xx", "it's a;b"}};
    Kind const s = Kind::ParamString;
    ExpectFilled({
        {s, semi, "plain {text} %s", "plain {text} %s", true},
        // Each occurrence is escaped for its own place, also on a later line.
        {s, semi, "p $val{xx} '$val{xx}' \"$val{xx}\"\n$val{xx}",
         "p it\\'s a\\;b 'its a;b' \"it\\'s a\\;b\"\nit\\'s a\\;b"},
        // Quotes beside a placeholder are not enough: the whole line is read as the shell reads it.
        {s, semi, "''$val{xx}'' 'a'$val{xx}'b'", "''it\\'s a\\;b'' 'a'it\\'s a\\;b'b'"},
        {s, semi, "\"'$val{xx}'\" 'x'\\''$val{xx}'", "\"'it\\'s a\\;b'\" 'x'\\''its a;b'"},
        // The template's backslash escapes the value's first byte; a '#' would start a comment.
        {s, {{"xx", "'s a;b"}}, "\\$val{xx} \"\\$val{xx}\\#\"", "\\'s a\\;b \"\\'s a\\;b\\#\""},
        {s, {{"xx", "a #\n#\t#"}}, "p $val{xx}", "p a \\#\\\n#\t\\#"},
        // An empty value leaves the backslash nothing: it must not take the quote or ';' after
        // it, nor, in a comment, become a line feed that ends it.
        {s, {{"xx", ""}}, "e \\$val{xx}'a;b' \"\\$val{xx}\";x", "e 'a;b' \"\";x"},
        {s, {{"xx", ""}}, "$(e \\$val{xx}')';x # \\$val{xx}\\$qb", "$(e ')';x # \\$qb"},
        // Where the quoting is not followed, the value loses every shell character.
        {s, semi, "$(echo '$val{xx}') $val{xx}", "$(echo 'its ab') its ab"},
        {s, {{"xx", "} #x"}}, "${x:-$val{xx}}; done", "${x:-} x}; done"},
        // After a bare '$' the value can only go on to name a variable.
        {s, {{"xx", "{HOME}_2;(x)"}}, "echo $$val{xx} \"$$val{xx}\"", "echo $HOME_2x \"$HOME_2x\""},
    });
}

TEST(TemplateTest, SectionsListsAndRepeatedOptions) {
    Kind const flag = Kind::ParamFlag, list = Kind::ParamStringList;
    std::string const sections = "p $if{xx,--x} $if{yy,{a} -y $val{yy}}|$if{xx,{n{e}s}t}|${HOME}";
    CommandBuilder::Values const pq = {{"xx", "p"}, {"xx", "q;r"}};
    CommandBuilder::Values const odd = {{"xx", "a\"$HOME`id`\\"}, {"xx", "b c"}};
    ExpectFilled({
        {flag, {}, sections, "p  ||${HOME}"},
        // A section's text ends at its first closing brace.
        {flag, {{"xx", ""}, {"yy", "v"}}, sections, "p --x {a -y v}|{n{es}t}|${HOME}"},
        // Placeholders of values not given stay as written; only sections go.
        {flag,
         {},
         "'$val{yy}' $if{xx,-x} $multilist{yy,-o,true}",
         "'$val{yy}'  $multilist{yy,-o,true}"},
        // An unpaired brace is passed over; sections after it still go. A recursive pairing
        // scan would take exponential time over the unpaired openings.
        {flag, {}, std::string(3000, '{') + "$if{xx,a}", std::string(3000, '{')},
        // The last occurrence chooses the separator and quoting for all of them.
        {list, pq, "c $list{xx,',',true} $list{xx,'-',false}", "c p-q\\;r p-q\\;r"},
        {list, pq, "$list{xx,',',true}", "\"p,q;r\"", true},
        {list, pq, "c $list{xx,'',false}", "c pq\\;r"},
        {list, pq, "$list{xx,'',false}", std::string("p\0q;r", 5), true},
        {list, odd, "c $multilist{xx,-o,true}", "c  -o \"a\\$HOME\\`id\\`\\\\\" -o \"b c\""},
        {list, odd, "$multilist{xx,-o,true}", " -o \"a\"$HOME`id`\\\" -o \"b c\"", true},
    });
    EXPECT_EQ(std::make_pair(size_t{0}, size_t{0}), FindPairedTokenSize("{x}", 5, 3, '{', '}'));
    // A command without its specifications fails when they are used.
    EXPECT_EQ("Request for NULL InputSpec.  Extension command is incomplete and will not work",
              ThrownMessage([] { ExtensionCommand::New()->GetInputSpecInternal(); }));
    EXPECT_EQ("Request for NULL OutputSpec.  Extension command is incomplete and will not work",
              ThrownMessage([] { ExtensionCommand::New()->GetOutputSpecInternal(); }));
}

}  // namespace
