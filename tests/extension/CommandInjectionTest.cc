// Whatever a user gives as parameter values, the shell runs only the descriptor's command:
// hostile values through every kind of placeholder, quoted and not, run by the real /bin/sh,
// must never create the marker file.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "extension/CommandBuilder.h"
#include "support/tree/TempDirectory.h"

namespace {

using Texts = std::vector<std::string>;

// The parts after "true " of the templates that get the hostile value in every parameter: each
// placeholder kind, quoted and not, and quoting that only a reading of the whole line tells. In
// one run the last list and multilist forms fill all of them, so each form stands once.
// clang-format off
Texts const kTemplates({"$val{aa}", "'$val{aa}'", "\"$val{aa}\"", "--a=$val{aa} '$val{aa}' $val{aa}",
    "$if{aa,--a $val{aa}} $if{zz,--z}", "$if{aa,'$val{aa}'}", "$list{ll,',',false}",
    "'$list{ll,' ',true}'", "$multilist{ll,--item,true}", "'$multilist{ll,-o,true}'",
    "\"$multilist{ll,-o,false}\"", "'$val{aa}' $val{bb} '$val{bb}'", "$val{aa}'$val{bb}'",
    "'a'$val{aa}'b'", "\\''$val{aa}'", "'x'\\''$val{aa}'", "\"'$val{aa}'\"",
    "\"\\\"'$val{aa}'\\\"\"", "\"a\\\\\"'$val{aa}'", "\\$val{aa}", "\"\\$val{aa}\"", "\\\\$val{aa}",
    "x\\\n$val{aa}", "# '$val{aa}'\ntrue '$val{bb}'", "x#'$val{aa}'", "$(echo '$val{aa}')",
    "`echo '$val{aa}'`", "${HOME:-'$val{aa}'}", "\"${HOME}'$val{aa}'\"", "$'$val{aa}'",
    "<<E\n'$val{aa}'\nE\n", "$if{zz,unused} $val{aa} $if{yy,{x}} '$val{bb}' $if{zz,{$val{bb}}}",
    "$if{zz,'} $val{aa} $if{zz,'}"});

// Parameters are filled in name order: aa's value is in the text when bb's turn comes, and
// must not be read as a placeholder. These templates get one of these values in aa.
Texts const kPlaceholderValues({"$val{bb}", "'$val{bb}'", "$list{ll,',',false}",
    "$multilist{ll,-x,false}", "$if{zz,", "{$if{zz,", "'"});
Texts const kTemplatesAfterPlaceholder({"$val{aa} $val{bb}", "'$val{aa}' '$val{bb}'",
    "$val{aa} $list{ll,',',true}", "$val{aa} $multilist{ll,-x,true}",
    "'$val{aa}' $if{zz,x} $val{bb} $if{zz,{y}}"});

// "touch m" creates the marker in the scratch directory that the commands run in.
Texts const kHostileValues({"$(touch m)", "`touch m`", ";touch m", "|touch m", "&touch m", ">m",
    "\ntouch m", "\\\ntouch m", "'; touch m; '", "\"; touch m; \"", "\\'; touch m #",
    "\\\"; touch m #", "$(touch${IFS}m)", "*", "~", "#;touch m", "\\", "'", "\"", "`", "$",
    "\xff\xfe;touch m", "$val{bb}", "$if{zz,x", "}$if{zz,", "$list{ll,',',false}",
    "$multilist{ll,-x,true}", "\0010\002", "\0011\002;touch m", "x #\ntouch m", "#\ntouch m",
    "\t#\\\ntouch m\n", "a'\ntouch m\n'", "E\ntouch m\nE"});
// clang-format on

class CommandInjectionTest : public ::testing::Test {
protected:
    // Commands run in an empty directory, so that a stray redirection to a relative name shows.
    void SetUp() override {
        ASSERT_EQ(0, chdir(directory.path.c_str()));
        builder.Parameter("aa", CommandBuilder::Kind::ParamString)
            .Parameter("bb", CommandBuilder::Kind::ParamString)
            .Parameter("ll", CommandBuilder::Kind::ParamStringList);
    }
    void TearDown() override {
        EXPECT_TRUE(std::filesystem::is_empty(directory.path))
            << "files created in " << directory.path;
        std::filesystem::current_path(previousDirectory);
    }

    // Whether the marker appeared, and the string the command printed. Refusing to run is fine;
    // running something else is not.
    std::pair<bool, std::string> Run(std::string const& execute, std::string const& first,
                                     std::string const& value) {
        std::shared_ptr<Tindra::CallSpec::Output> output;
        try {
            output = builder.Run(execute, "",
                                 {{"aa", first}, {"bb", value}, {"ll", value}, {"ll", "p"}});
        } catch (std::exception const&) {
        }
        bool const created = std::filesystem::remove(directory.path + "/m");
        return {created,
                output && output->GetRootObject() ? output->GetRootObject()->ToString() : ""};
    }

    // The templates in one shell run that prints each one's index after it, so that a value
    // which swallowed the templates after its own shows as a missing index; should anything be
    // amiss (a line too long for one argument, say), each runs alone.
    void ExpectNothingElseRuns(Texts const& templates, std::string const& first,
                               std::string const& value) {
        std::string execute = "printf '<o><string>'", indices;
        for (size_t i = 0; i < templates.size(); ++i) {
            execute += "\ntrue " + templates[i] + "\nprintf " + std::to_string(i) + ",";
            indices += std::to_string(i) + ",";
        }
        auto const batch = Run(execute + "\nprintf '</string></o>'", first, value);
        std::string const shown =
            "\naa: " + first.substr(0, 80) + "\nvalue: " + value.substr(0, 80);
        EXPECT_FALSE(batch.first) << "templates in one run" << shown;
        if (batch.second == indices)
            return;
        for (auto const& execute : templates)
            EXPECT_FALSE(Run("printf x; true " + execute, first, value).first) << execute << shown;
    }

    Tindra::Testing::TempDirectory directory;
    std::filesystem::path const previousDirectory = std::filesystem::current_path();
    CommandBuilder builder;
};

TEST_F(CommandInjectionTest, HostileValuesRunNothingElse) {
    // The check would prove nothing if the marker could not appear at all.
    ASSERT_TRUE(Run("touch m", "v", "v").first);
    Texts values = kHostileValues;
    values.push_back(std::string(100000, '{') + ";touch m");
    values.emplace_back();
    for (int i = 0; i < 2000; ++i)
        values.back() += "$(touch m);'\"`";
    for (auto const& value : values) {
        ExpectNothingElseRuns(kTemplates, value, value);
        for (auto const& first : kPlaceholderValues)
            ExpectNothingElseRuns(kTemplatesAfterPlaceholder, first, value);
    }
}

}  // namespace
