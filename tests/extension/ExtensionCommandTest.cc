#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "extension/CommandBuilder.h"

namespace {

using Errors = std::vector<std::string>;
using OutputPtr = std::shared_ptr<Tindra::CallSpec::Output>;

class ExtensionCommandTest : public ::testing::Test {
protected:
    void SetUp() override { builder.Parameter("xx", CommandBuilder::Kind::ParamString); }
    OutputPtr Run(std::string const& execute, std::string const& stdinText = "",
                  std::string const& value = "v") {
        return builder.Run(execute, stdinText, {{"xx", value}});
    }
    static std::string Root(OutputPtr const& output) {
        return output->GetRootObject() ? output->GetRootObject()->ToString() : "<none>";
    }

    CommandBuilder builder;
};

TEST_F(ExtensionCommandTest, WhatTheProgramsOutputBecomes) {
    std::string const zero(1, '\0');
    std::string const untouched = ::testing::TempDir() + "zero-byte-target";
    struct Row {
        std::string execute, stdinText, value;
        Errors errors;
        std::string root = "<none>";
    } const rows[] = {
        // clang-format off
        // Leading error lines are the result, also when the first is split across writes.
        {"printf 'ERROR:busy\\nERROR: later\\n<o><string>x</string></o>'", "", "", {"busy", " later"}},
        {"printf ERR; sleep 0.1; printf 'OR:late'", "", "", {"late"}},
        // The stdin template reaches the program unchanged, through a pipe where a zero byte is
        // only a byte.
        {"printf '<o><string>'; tr -d '\\000'; printf '</string></o>'", "[$val{xx}]" + zero, "a;b $HOME", {}, "[a;b $HOME]"},
        // The shell would see the line cut at the zero byte, and touch the file: nothing runs.
        {"touch " + untouched + "$val{xx}-x", "", zero, {"Unable to run the command: the value of "
            "xx holds a zero byte, which cannot be passed on a command line."}},
        {"true" + zero + "x", "", "", {"Unable to run the command: its command template holds a zero byte."}},
        // clang-format on
    };
    for (Row const& row : rows) {
        auto const output = Run(row.execute, row.stdinText, row.value);
        EXPECT_EQ(row.errors, output->GetErrors()) << row.execute;
        EXPECT_EQ(row.root, Root(output)) << row.execute;
    }
    EXPECT_NE(0, access(untouched.c_str(), F_OK));
    auto const output =
        Run("printf '<o><list type=\"structure\"><structure typeName=\"R\"><field name=\"a\"><int>"
            "1</int></field></structure><structure typeName=\"R\"/></list></o>'");
    ASSERT_EQ(1u, output->GetErrors().size());
    EXPECT_EQ(0u, output->GetErrors()[0].find(
                      "Unable to parse output of Extension Command: Error parsing command "
                      "output.  Unable to build a proper metaobject from output tag."));
}

// The command line in a message names the language only when the caller has none.
TEST_F(ExtensionCommandTest, LanguageAndUserReachTheProgram) {
    unsetenv("LANG");
    EXPECT_EQ((Errors{"Got no data from process: LANG=en_US.UTF-8 true"}),
              Run("true")->GetErrors());
    builder.spec->SetContextSupported("user");
    auto input = builder.Input({});
    input->SetContext("user", "O'Brien $(id)");
    auto output = Tindra::CallSpec::Output::New();
    builder.Build("sh -c 'printf \"<o><string>%s</string></o>\" \"$LUM_USERNAME\"'")
        ->ExecuteInternal(input, output);
    EXPECT_EQ("O'Brien $(id)", Root(output));
}

// A program may flood its output with error lines: the first ones are shown, the others
// counted, and the flood is drained to its end without being held.
TEST_F(ExtensionCommandTest, ErrorFloodShowsABoundedPart) {
    Errors errors =
        Run("yes ERROR:x | head -n 5000; echo '<o><string>x</string></o>'")->GetErrors();
    Errors expected(1000, "x");
    expected.push_back("... 4000 more error lines not shown");
    EXPECT_EQ(expected, errors);
    // 200 MB of long lines: the byte bound cuts the last shown line.
    errors = Run("yes ERROR:$(printf %0993d 0) | head -n 200000")->GetErrors();
    ASSERT_LT(2u, errors.size());
    size_t shownBytes = 0;
    for (size_t i = 0; i + 1 < errors.size(); ++i)
        shownBytes += errors[i].size();
    EXPECT_EQ(std::string(993, '0'), errors[0]);
    EXPECT_EQ("...", errors[errors.size() - 2].substr(errors[errors.size() - 2].size() - 3));
    EXPECT_EQ(256u * 1024 + 3, shownBytes);
    EXPECT_EQ("... " + std::to_string(200000 - (errors.size() - 1)) + " more error lines not shown",
              errors.back());
}

}  // namespace
