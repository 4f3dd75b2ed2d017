// Whatever a user gives as parameter values, the shell runs only the descriptor's command:
// hostile values through every kind of placeholder, quoted and not, on the command line and on
// standard input, run by the real /bin/sh, must never create the marker file.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

#include "extension/CommandBuilder.h"
#include "tindra/callspec/Output.h"

namespace {

using Texts = std::vector<std::string>;

// The parts after "true " of the templates that get the hostile value in every parameter:
// each placeholder kind, quoted and not, alone and mixed, and quoting that only a reading of the
// whole line tells: doubled and interleaved quotes, escaped quotes, single quotes inside double
// quotes, backslashes before placeholders, comments, substitutions and here-documents.
// clang-format off
Texts const kTemplates({"$val{aa}", "'$val{aa}'", "\"$val{aa}\"",
    "--a=$val{aa} '$val{aa}' $val{aa}", "$if{aa,--a $val{aa}} $if{zz,--z}", "$if{aa,'$val{aa}'}",
    "$list{ll,',',false}", "$list{ll,',',true}", "$list{ll,'',false}", "'$list{ll,' ',true}'",
    "$multilist{ll,--item,false}", "$multilist{ll,--item,true}", "$val{aa} $val{bb}",
    "'$multilist{ll,-o,true}'", "\"$multilist{ll,-o,true}\"", "\"$multilist{ll,-o,false}\"",
    "'$val{aa}' $val{bb} '$val{bb}'", "$val{aa}'$val{bb}'", "''$val{aa}''", "'a'$val{aa}'b'",
    "\\'$val{aa}\\'", "\\''$val{aa}'", "'x'\\''$val{aa}'", "'x' $val{aa} 'y'",
    "\"'$val{aa}'\"", "\"\\\"'$val{aa}'\\\"\"", "\"a\\\\\"'$val{aa}'", "\\$val{aa}",
    "\"\\$val{aa}\"", "\\\\$val{aa}", "x\\\n$val{aa}", "# '$val{aa}'\ntrue '$val{bb}'",
    "#$val{aa}\ntrue", "x#'$val{aa}'", "$(echo '$val{aa}')", "\"$(echo '$val{aa}')\"",
    "`echo '$val{aa}'`", "${HOME:-'$val{aa}'}", "\"${HOME}'$val{aa}'\"", "$'$val{aa}'",
    "<<E\n'$val{aa}'\nE\n", "$if{zz,unused} $val{aa} $if{yy,{x}} '$val{bb}' $if{zz,{$val{bb}}}",
    "$if{zz,'} $val{aa} $if{zz,'}"});

// Parameters are filled in name order: aa's value is in the text when bb's turn comes, and
// must not be read as a placeholder. These templates get one of these values in aa.
Texts const kPlaceholderValues({"$val{bb}", "'$val{bb}'", "x$val{bb}x", "$list{ll,',',false}",
    "$multilist{ll,-x,false}", "$if{zz,", "$if{zz,x}", "{$if{zz,", "'"});
Texts const kTemplatesAfterPlaceholder({"$val{aa} $val{bb}", "'$val{aa}' '$val{bb}'",
    "$val{aa} $list{ll,',',true}", "$val{aa} $multilist{ll,-x,true}",
    "$val{aa} $if{zz,x} '$val{bb}' $if{zz,x}", "'$val{aa}' $if{zz,x} $val{bb} $if{zz,{y}}"});
// clang-format on

std::string const kStdinTemplate =
    "$val{aa} '$val{aa}' $if{aa,$val{bb}} $list{ll,',',true} $multilist{ll,-x,true}";

class CommandInjectionTest : public ::testing::Test {
protected:
    void SetUp() override {
        char pattern[] = "/tmp/injection-XXXXXX";
        ASSERT_NE(nullptr, mkdtemp(pattern));
        directory = pattern;
        marker = directory + "/marker";
        // Commands run there, so that a stray redirection to a relative name shows too.
        char previous[4096];
        ASSERT_NE(nullptr, getcwd(previous, sizeof previous));
        previousDirectory = previous;
        ASSERT_EQ(0, chdir(directory.c_str()));
        builder.Parameter("aa", CommandBuilder::Kind::ParamString)
            .Parameter("bb", CommandBuilder::Kind::ParamString)
            .Parameter("ll", CommandBuilder::Kind::ParamStringList);
    }
    void TearDown() override {
        unlink(marker.c_str());
        EXPECT_EQ(0, chdir(previousDirectory.c_str()));
        EXPECT_EQ(0, rmdir(directory.c_str())) << "files were created in " << directory;
    }

    // The corpus, with @T standing for the command that creates the marker and @M for its path.
    Texts HostileValues() const {
        std::string const touch = "touch " + marker;
        Texts values;
        // clang-format off
        for (std::string text : {
                 "$(@T)", "`@T`", ";@T", "; @T", "|@T", "&&@T", "||@T", "&@T", ">@M", ">>@M",
                 "</dev/null;@T", "\n@T", "\r\n@T", "\\\n@T", "\t;@T", "'; @T; '", "' ; @T #",
                 "\"; @T; \"", "\\'; @T #", "\\\"; @T #", "x' $(@T) '", "\" $(@T) \"",
                 "$(touch${IFS}@M)", "${IFS}`@T`", "*", "/*", "?", "[a-z]*", "~", "#;@T", "a b;c",
                 "\\", "\\\\", "'", "\"", "`", "$", "$((1+1))", "\xff\xfe;@T", "$val{bb}",
                 "'$val{bb}'", "$if{zz,x", "}", "{", "}$if{zz,", "$list{ll,',',false}",
                 "$multilist{ll,-x,true}", "\0010\002", "\0011\002;@T", "x #\n@T", "#\n@T",
                 "\t#\\\n@T\n", "a'\n@T\n'", "E\n@T\nE"}) {
            // clang-format on
            for (size_t at; (at = text.find('@')) != std::string::npos;) {
                text.replace(at, 2, text[at + 1] == 'T' ? touch : marker);
            }
            values.push_back(text);
        }
        values.push_back(std::string(100000, '{') + ";" + touch);
        values.emplace_back();
        for (int i = 0; i < 2000; ++i) {
            values.back() += "$(" + touch + ");'\"`";
        }
        return values;
    }

    // Runs the command with first in aa and the value in the others: whether the marker
    // appeared, and the string the command printed.
    std::pair<bool, std::string> Run(std::string const& execute, std::string const& stdinText,
                                     std::string const& first, std::string const& value) {
        auto input = builder.Input({{"aa", first}, {"bb", value}, {"ll", value}, {"ll", "p"}});
        auto output = Tindra::CallSpec::Output::New();
        try {
            builder.Build(execute, stdinText)->ExecuteInternal(input, output);
        } catch (std::exception const&) {
            // Refusing to run is fine; running something else is not.
        }
        bool const created = unlink(marker.c_str()) == 0;
        return {created, output->GetRootObject() ? output->GetRootObject()->ToString() : ""};
    }

    // The templates after "true ", all in one shell run that prints each one's index after it,
    // so that a value which swallowed the templates after its own shows as a missing index.
    // Should anything be amiss (a line too long for one argument, say), each runs alone.
    void ExpectNothingElseRuns(Texts const& templates, std::string const& first,
                               std::string const& value) {
        std::string execute = "printf '<o><string>'", indices;
        for (size_t i = 0; i < templates.size(); ++i) {
            execute += "\ntrue " + templates[i] + "\nprintf " + std::to_string(i) + ",";
            indices += std::to_string(i) + ",";
        }
        auto const batch = Run(execute + "\nprintf '</string></o>'", "", first, value);
        std::string const shown =
            "\naa: " + first.substr(0, 80) + "\nvalue: " + value.substr(0, 80);
        EXPECT_FALSE(batch.first) << "templates in one run" << shown;
        if (batch.second == indices)
            return;
        ++separateRuns;
        for (auto const& execute : templates)
            EXPECT_FALSE(Run("printf x; true " + execute, "", first, value).first)
                << execute << shown;
    }

    CommandBuilder builder;
    std::string directory, previousDirectory, marker;
    int separateRuns = 0;
};

TEST_F(CommandInjectionTest, HostileValuesRunNothingElse) {
    // The check would prove nothing if the marker could not appear at all.
    ASSERT_TRUE(Run("touch " + marker, "", "v", "v").first);
    auto const values = HostileValues();
    for (auto const& value : values) {
        ExpectNothingElseRuns(kTemplates, value, value);
        for (auto const& first : kPlaceholderValues)
            ExpectNothingElseRuns(kTemplatesAfterPlaceholder, first, value);
        EXPECT_FALSE(Run("cat >/dev/null; true", kStdinTemplate, value, value).first)
            << "on standard input\nvalue: " << value.substr(0, 80);
    }
    // Only the over-long values need one run per template.
    EXPECT_GE(2 * (1 + kPlaceholderValues.size()), static_cast<size_t>(separateRuns));
}

}  // namespace
