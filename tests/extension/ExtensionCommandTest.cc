#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <optional>
#include <string>
#include <vector>

#include "extension/CommandBuilder.h"
#include "tindra/callspec/Output.h"

using Tindra::CallSpec::Output;
using Errors = std::vector<std::string>;

namespace {

// Runs with LANG=C and restores the caller's setting.
class ExtensionCommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (char const* lang = getenv("LANG")) {
            savedLang = lang;
        }
        setenv("LANG", "C", 1);
        builder.Parameter("xx", Tindra::CallSpec::ParameterType::ParamString);
    }
    void TearDown() override {
        savedLang ? setenv("LANG", savedLang->c_str(), 1) : unsetenv("LANG");
    }

    std::shared_ptr<Output> Run(std::string const& execute, std::string const& stdinText = "",
                                std::string const& value = "v") {
        auto output = Output::New();
        builder.Build(execute, stdinText)->ExecuteInternal(builder.Input({{"xx", value}}), output);
        return output;
    }

    static std::string Root(std::shared_ptr<Output> const& output) {
        return output->GetRootObject() ? output->GetRootObject()->ToString() : "<none>";
    }

    CommandBuilder builder;
    std::optional<std::string> savedLang;
};

TEST_F(ExtensionCommandTest, LeadingErrorLinesAreTheResult) {
    auto output = Run("printf 'ERROR:disk busy\\nERROR: retry later\\n<o><string>x</string></o>'");
    EXPECT_EQ((Errors{"disk busy", " retry later"}), output->GetErrors());
    EXPECT_EQ("<none>", Root(output));
    EXPECT_EQ((Errors{"no newline"}), Run("printf 'ERROR:no newline'")->GetErrors());
    output = Run("printf 'fine\\nERROR:not leading'");
    EXPECT_TRUE(output->GetErrors().empty());
    EXPECT_EQ("<none>", Root(output));  // not a document: no value, no error
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
    for (size_t i = 0; i + 1 < errors.size(); ++i) {
        shownBytes += errors[i].size();
    }
    EXPECT_EQ(std::string(993, '0'), errors[0]);
    EXPECT_EQ("...", errors[errors.size() - 2].substr(errors[errors.size() - 2].size() - 3));
    EXPECT_EQ(256u * 1024 + 3, shownBytes);
    EXPECT_EQ("... " + std::to_string(200000 - (errors.size() - 1)) + " more error lines not shown",
              errors.back());
}

// The output is read as the program writes it: a leading "ERROR:" split across writes and
// outputs shorter than that word are still told apart from documents.
TEST_F(ExtensionCommandTest, OutputWrittenInPiecesIsReadAsAWhole) {
    EXPECT_EQ((Errors{"late"}), Run("printf ERR; sleep 0.1; printf 'OR:late'")->GetErrors());
    auto output =
        Run("printf '<o'; sleep 0.1; printf '><string>x'; sleep 0.1; printf '</string></o>'");
    EXPECT_TRUE(output->GetErrors().empty());
    EXPECT_EQ("x", Root(output));
    output = Run("printf '<o/>'");
    EXPECT_TRUE(output->GetErrors().empty());
    EXPECT_EQ("<none>", Root(output));
}

TEST_F(ExtensionCommandTest, NoOutputIsReportedWithTheCommandLine) {
    EXPECT_EQ((Errors{"Got no data from process: true"}), Run("true")->GetErrors());
    unsetenv("LANG");
    EXPECT_EQ((Errors{"Got no data from process: LANG=en_US.UTF-8 true"}),
              Run("true")->GetErrors());
    // The prefix sets the language for the program.
    EXPECT_EQ("en_US.UTF-8", Root(Run("sh -c 'printf \"<o><string>%s</string></o>\" \"$LANG\"'")));
}

// The shell would see the line cut at the zero byte: here `touch /tmp/...` instead of `touch
// /tmp/...-x`. Nothing is run.
TEST_F(ExtensionCommandTest, ZeroByteInTheCommandLineIsRefused) {
    std::string const target = ::testing::TempDir() + "zero-byte-target";
    std::string const value = target + std::string(1, '\0');
    auto output = Run("touch $val{xx}-x", "", value);
    EXPECT_EQ((Errors{"Unable to run the command: the value of xx holds a zero byte, which "
                      "cannot be passed on a command line."}),
              output->GetErrors());
    EXPECT_NE(0, access(target.c_str(), F_OK));
    EXPECT_EQ((Errors{"Unable to run the command: its command template holds a zero byte."}),
              Run(std::string("true\0x", 6))->GetErrors());
    // The stdin template is written through a pipe, where a zero byte is only a byte.
    EXPECT_EQ("a", Root(Run("printf '<o><string>'; tr -d '\\000'; printf '</string></o>'",
                            std::string("a\0", 2))));
}

TEST_F(ExtensionCommandTest, DocumentBecomesTheRootValue) {
    auto output = Run("printf '<o><string>%s</string></o>' $val{xx}", "", "a;b");
    EXPECT_TRUE(output->GetErrors().empty());
    EXPECT_EQ("a;b", Root(output));
    // The stdin template reaches the program unchanged.
    output = Run("printf '<o><string>'; cat; printf '</string></o>'", "[$val{xx}]", "a;b $HOME");
    EXPECT_EQ("[a;b $HOME]", Root(output));
}

TEST_F(ExtensionCommandTest, DocumentThatCannotBeBuiltIsOneError) {
    auto output =
        Run("printf '<o><list type=\"structure\"><structure typeName=\"R\"><field name=\"a\"><int>1"
            "</int></field></structure><structure typeName=\"R\"/></list></o>'");
    ASSERT_EQ(1u, output->GetErrors().size());
    EXPECT_EQ(0u, output->GetErrors()[0].find(
                      "Unable to parse output of Extension Command: Error parsing command "
                      "output.  Unable to build a proper metaobject from output tag."));
    EXPECT_NE(std::string::npos, output->GetErrors()[0].find("Invalid structure detected"));
    EXPECT_EQ("<none>", Root(output));
}

TEST_F(ExtensionCommandTest, UserContextReachesTheProgram) {
    builder.spec->SetContextSupported("user");
    auto input = builder.Input({});
    input->SetContext("user", "O'Brien $(id)");
    auto output = Output::New();
    builder.Build("sh -c 'printf \"<o><string>%s</string></o>\" \"$LUM_USERNAME\"'")
        ->ExecuteInternal(input, output);
    EXPECT_EQ("O'Brien $(id)", Root(output));
}

}  // namespace
