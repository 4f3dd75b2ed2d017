// Whatever a user gives as parameter values, the shell runs only the descriptor's command:
// hostile values through every kind of placeholder, quoted and not, on the command line and on
// standard input, run by the real /bin/sh, must never create the marker file.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "extension/CommandBuilder.h"
#include "tindra/callspec/Output.h"

using Kind = Tindra::CallSpec::ParameterType;

namespace {

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
        builder.Parameter("aa", Kind::ParamString)
            .Parameter("bb", Kind::ParamString)
            .Parameter("ll", Kind::ParamStringList);
    }
    void TearDown() override {
        unlink(marker.c_str());
        EXPECT_EQ(0, chdir(previousDirectory.c_str()));
        EXPECT_EQ(0, rmdir(directory.c_str())) << "files were created in " << directory;
    }

    std::vector<std::string> HostileValues() const {
        std::string const touch = "touch " + marker;
        std::vector<std::string> values = {
            "$(" + touch + ")",
            "`" + touch + "`",
            ";" + touch,
            "; " + touch,
            "|" + touch,
            "&&" + touch,
            "||" + touch,
            "&" + touch,
            ">" + marker,
            ">>" + marker,
            "</dev/null;" + touch,
            "\n" + touch,
            "\r\n" + touch,
            "\\\n" + touch,
            "\t;" + touch,
            "'; " + touch + "; '",
            "' ; " + touch + " #",
            "\"; " + touch + "; \"",
            "\\'; " + touch + " #",
            "\\\"; " + touch + " #",
            "x' $(" + touch + ") '",
            "\" $(" + touch + ") \"",
            "$(touch${IFS}" + marker + ")",
            "${IFS}`" + touch + "`",
            "*",
            "/*",
            "?",
            "[a-z]*",
            "~",
            "#;" + touch,
            "a b;c",
            "\\",
            "\\\\",
            "'",
            "\"",
            "`",
            "$",
            "$((1+1))",
            "\xff\xfe;" + touch,
            "$val{bb}",
            "'$val{bb}'",
            "$if{zz,x",
            "}",
            "{",
            "}$if{zz,",
            "$list{ll,',',false}",
            "$multilist{ll,-x,true}",
            "\x01"
            "0\x02",
            "\x01"
            "1\x02;" +
                touch,
            std::string(100000, '{') + ";" + touch,
        };
        std::string longValue;
        for (int i = 0; i < 2000; ++i) {
            longValue += "$(" + touch + ");'\"`";
        }
        values.push_back(longValue);
        return values;
    }

    // Runs the command with the value in every parameter, or with first in aa and the value in
    // the others; true when the marker appeared.
    bool RunsSomethingElse(std::string const& execute, std::string const& stdinText,
                           std::string const& value, std::string const* first = nullptr) {
        auto command = builder.Build(execute, stdinText);
        auto input = builder.Input(
            {{"aa", first != nullptr ? *first : value}, {"bb", value}, {"ll", value}, {"ll", "p"}});
        auto output = Tindra::CallSpec::Output::New();
        try {
            command->ExecuteInternal(input, output);
        } catch (std::exception const&) {
            // Refusing to run is fine; running something else is not.
        }
        bool created = access(marker.c_str(), F_OK) == 0;
        unlink(marker.c_str());
        return created;
    }

    CommandBuilder builder;
    std::string directory;
    std::string previousDirectory;
    std::string marker;
};

TEST_F(CommandInjectionTest, CommandLinePlaceholders) {
    std::vector<std::string> const templates = {
        "true $val{aa}",
        "true '$val{aa}'",
        "true \"$val{aa}\"",
        "true --a=$val{aa} '$val{aa}' $val{aa}",
        "true $if{aa,--a $val{aa}} $if{zz,--z}",
        "true $if{aa,'$val{aa}'}",
        "true $list{ll,',',false}",
        "true $list{ll,',',true}",
        "true $list{ll,'',false}",
        "true $multilist{ll,--item,false}",
        "true $multilist{ll,--item,true}",
        "true $val{aa} $val{bb}",
        "true $val{aa} '$val{aa}'",
        "true '$val{aa}' $val{bb} '$val{bb}'",
        "true $val{aa}'$val{bb}'",
        "true $if{zz,unused} $val{aa} $if{yy,{x}} '$val{bb}' $if{zz,{$val{bb}}}",
    };
    for (auto const& execute : templates) {
        for (auto const& value : HostileValues()) {
            EXPECT_FALSE(RunsSomethingElse("printf x; " + execute, "", value))
                << "template: " << execute << "\nvalue: " << value.substr(0, 80);
        }
    }
}

TEST_F(CommandInjectionTest, ValuesAreNeverReadAsPlaceholders) {
    // Parameters are filled in name order: aa's value is in the text when bb's turn comes.
    std::vector<std::string> const placeholders = {"$val{bb}",
                                                   "'$val{bb}'",
                                                   "x$val{bb}x",
                                                   "$list{ll,',',false}",
                                                   "$multilist{ll,-x,false}",
                                                   "$if{zz,",
                                                   "$if{zz,x}",
                                                   "{$if{zz,",
                                                   "'"};
    std::vector<std::string> const templates = {"true $val{aa} $val{bb}",
                                                "true '$val{aa}' '$val{bb}'",
                                                "true $val{aa} $list{ll,',',true}",
                                                "true $val{aa} $multilist{ll,-x,true}",
                                                "true $val{aa} $if{zz,x} '$val{bb}' $if{zz,x}",
                                                "true '$val{aa}' $if{zz,x} $val{bb} $if{zz,{y}}"};
    for (auto const& execute : templates) {
        for (auto const& placeholder : placeholders) {
            for (auto const& value : HostileValues()) {
                EXPECT_FALSE(RunsSomethingElse("printf x; " + execute, "", value, &placeholder))
                    << "template: " << execute << "\naa: " << placeholder
                    << "\nvalue: " << value.substr(0, 80);
            }
        }
    }
}

TEST_F(CommandInjectionTest, StandardInputPlaceholders) {
    std::string const stdinTemplate =
        "$val{aa} '$val{aa}' $if{aa,$val{bb}} $list{ll,',',true} $multilist{ll,-x,true}";
    for (auto const& value : HostileValues()) {
        EXPECT_FALSE(RunsSomethingElse("cat >/dev/null; printf x", stdinTemplate, value))
            << "value: " << value.substr(0, 80);
    }
}

TEST_F(CommandInjectionTest, TheMarkerCanBeCreated) {
    // The check above would prove nothing if the marker could not appear at all.
    EXPECT_TRUE(RunsSomethingElse("printf x; touch " + marker, "", "v"));
}

}  // namespace
