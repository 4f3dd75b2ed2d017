#include <gtest/gtest.h>
#include <stdlib.h>

#include <string>

#include "extension/CommandBuilder.h"
#include "tindra/callspec/Output.h"
#include "tindra/metaobj/MetaString.h"

using namespace Tindra::AutoCli;
using Kind = Tindra::CallSpec::ParameterType;
using Tindra::CallSpec::Output;

namespace {

// Runs with a known LANG setting and restores the caller's.
class ExtensionCommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        char const* lang = getenv("LANG");
        hadLang = lang != nullptr;
        savedLang = hadLang ? lang : "";
        setenv("LANG", "C", 1);
        builder.Parameter("xx", Kind::ParamString);
    }
    void TearDown() override {
        if (hadLang) {
            setenv("LANG", savedLang.c_str(), 1);
        } else {
            unsetenv("LANG");
        }
    }

    std::shared_ptr<Output> Run(std::string const& execute, std::string const& stdinText = "",
                                std::string const& value = "v") {
        auto output = Output::New();
        builder.Build(execute, stdinText)->ExecuteInternal(builder.Input({{"xx", value}}), output);
        return output;
    }

    std::string RootText(std::shared_ptr<Output> const& output) {
        auto root = output->GetRootObject();
        return root ? root->ToString() : "<none>";
    }

    CommandBuilder builder;
    bool hadLang = false;
    std::string savedLang;
};

TEST_F(ExtensionCommandTest, LeadingErrorLinesAreTheResult) {
    auto output = Run("printf 'ERROR:disk busy\\nERROR: retry later\\n<o><string>x</string></o>'");
    EXPECT_EQ((std::vector<std::string>{"disk busy", " retry later"}), output->GetErrors());
    EXPECT_EQ("<none>", RootText(output));

    EXPECT_EQ((std::vector<std::string>{"no newline"}),
              Run("printf 'ERROR:no newline'")->GetErrors());
    output = Run("printf 'fine\\nERROR:not leading'");
    EXPECT_TRUE(output->GetErrors().empty());
    EXPECT_EQ("<none>", RootText(output));  // not a document: no value, no error
}

TEST_F(ExtensionCommandTest, NoOutputIsReportedWithTheCommandLine) {
    EXPECT_EQ((std::vector<std::string>{"Got no data from process: true"}),
              Run("true")->GetErrors());
    unsetenv("LANG");
    EXPECT_EQ((std::vector<std::string>{"Got no data from process: LANG=en_US.UTF-8 true"}),
              Run("true")->GetErrors());
    // The prefix sets the language for the program.
    EXPECT_EQ("en_US.UTF-8",
              RootText(Run("sh -c 'printf \"<o><string>%s</string></o>\" \"$LANG\"'")));
}

TEST_F(ExtensionCommandTest, DocumentBecomesTheRootValue) {
    auto output = Run("printf '<o><string>%s</string></o>' $val{xx}", "", "a;b");
    EXPECT_TRUE(output->GetErrors().empty());
    EXPECT_EQ("a;b", RootText(output));
    // The stdin template reaches the program unchanged.
    output = Run("printf '<o><string>'; cat; printf '</string></o>'", "[$val{xx}]", "a;b $HOME");
    EXPECT_EQ("[a;b $HOME]", RootText(output));
}

TEST_F(ExtensionCommandTest, DocumentThatCannotBeBuiltIsOneError) {
    auto output =
        Run("printf '<o><list type=\"structure\"><structure typeName=\"R\"><field name=\"a\"><int>1"
            "</int></field></structure><structure typeName=\"R\"/></list></o>'");
    ASSERT_EQ(1u, output->GetErrors().size());
    std::string const start =
        "Unable to parse output of Extension Command: Error parsing command output.  Unable to "
        "build a proper metaobject from output tag.";
    EXPECT_EQ(start, output->GetErrors()[0].substr(0, start.size()));
    EXPECT_NE(std::string::npos, output->GetErrors()[0].find("Invalid structure detected"));
    EXPECT_EQ("<none>", RootText(output));
}

TEST_F(ExtensionCommandTest, UserContextReachesTheProgram) {
    builder.spec->SetContextSupported("user");
    auto command = builder.Build("sh -c 'printf \"<o><string>%s</string></o>\" \"$LUM_USERNAME\"'");
    auto input = builder.Input({});
    input->SetContext("user", "O'Brien $(id)");
    auto output = Output::New();
    command->ExecuteInternal(input, output);
    EXPECT_EQ("O'Brien $(id)", RootText(output));
}

}  // namespace
