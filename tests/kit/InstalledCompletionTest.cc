// The tool run from a private prefix, and its installed shell completions offering what the
// live command tree holds.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/DescriptorFiles.h"
#include "support/PrivateInstall.h"

namespace {

namespace fs = std::filesystem;
using TestSupport::Installed;
using Installation = TestSupport::PrivateInstall;
using Words = std::vector<std::string>;

// A descriptor with every kind of value the completions offer, loaded with --plugin.
std::string const& KindsDescriptor() {
    static std::string const path = [] {
        DescriptorTest::CommandParts command;
        command.path = "kinds.set";
        command.inputSpec =
            "<input-spec>"
            "<parameter name=\"verbose\" shortname=\"v\" type=\"bool\" required=\"false\">"
            "<description>v</description></parameter>"
            "<parameter name=\"level\" shortname=\"l\" type=\"int\" required=\"false\">"
            "<description>l</description><constraint type=\"intenum\"><enum>"
            "<enum-value value=\"1\">one</enum-value><enum-value value=\"2\">two</enum-value>"
            "</enum></constraint></parameter>"
            "<parameter name=\"quiet\" shortname=\"q\" type=\"flag\" required=\"false\">"
            "<description>q</description></parameter>"
            "<parameter name=\"tag\" type=\"string-list\" required=\"false\">"
            "<description>t</description></parameter>"
            "</input-spec>";
        return Installed().work.Write(
            "kinds.xml", DescriptorTest::Descriptor(
                             "<namespaces>" + DescriptorTest::NamespaceElement("kinds", "Kinds") +
                             "</namespaces><commands>" + command.Element() + "</commands>"));
    }();
    return path;
}

// Lines completed in one shell, the sorted candidates of each on one line. Bash is handed the
// words it would split (at blanks and at "=", a word break); the zsh function is driven with
// compadd and _files standing in for the completion system.
std::string Candidates(Installation const& installed, std::string const& shell,
                       Words const& lines) {
    std::string script =
        shell == TINDRA_BASH
            ? "[ -f /usr/share/bash-completion/bash_completion ] && "
              ". /usr/share/bash-completion/bash_completion\n"
              ". '" +
                  installed.prefix +
                  "/share/bash-completion/completions/ostrel'\n"
                  "complete_line() {\n"
                  "  COMP_LINE=$1; COMP_POINT=${#1}\n"
                  "  local spaced=${1//=/ = }; read -ra COMP_WORDS <<<\"$spaced\"\n"
                  "  [[ $1 == *[\\ =] ]] && COMP_WORDS+=('')\n"
                  "  COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); COMPREPLY=()\n"
                  "  _ostrel\n"
                  "  printf '%s\\n' \"${COMPREPLY[@]}\" | sort | paste -sd ' '\n"
                  "}\n"
            : "fpath=('" + installed.prefix +
                  "/share/zsh/vendor-completions' $fpath)\n"
                  "autoload -Uz _ostrel\n"
                  "compadd() { [[ $1 == -- ]] && shift; print -rl -- \"$@\" }\n"
                  "_files() { print -r -- \"(files $*)\" }\n"
                  "complete_line() {\n"
                  "  local -a words; local CURRENT\n"
                  "  words=(${(z)1}); [[ $1 == *' ' ]] && words+=('')\n"
                  "  CURRENT=$#words\n"
                  "  _ostrel | sort | paste -sd ' '\n"
                  "}\n";
    for (auto const& line : lines)
        script += "complete_line '" + line + "'\n";
    auto const run = installed.Shell(shell, script);
    EXPECT_EQ("", run.err);
    EXPECT_EQ(0, run.status);
    return run.out;
}

std::string JoinLines(Words const& lines) {
    std::string text;
    for (auto const& line : lines)
        text += line + "\n";
    return text;
}

// Descriptors call their helpers under the prefix. The run path and the compiled example
// loading from the prefix are checked with the kit.
TEST(PrivateInstall, ToolRunsFromItsPrefixWithItsBundledHelpers) {
    auto const& installed = Installed();
    auto const list =
        installed.Shell(TINDRA_BASH, "ostrel --formatter json storage filesystem list");
    EXPECT_EQ(0, list.status) << list.err;
    EXPECT_EQ("", list.err);
    EXPECT_NE(std::string::npos, list.out.find("\"Mount\": \"\\/\"")) << list.out;
}

TEST(Completion, BashOffersTreeOptionsValuesAndFiles) {
    auto const& installed = Installed();
    installed.work.Write("a.so", "");
    fs::create_directories(installed.work.path + "/plugdir");
    std::string const kinds = "ostrel --plugin " + KindsDescriptor() + " kinds set ";
    EXPECT_EQ(
        JoinLines({"hardware network ostrel storage system", "storage system", "",
                   "--all --help --type -a -h -t", "--help --type -h -t",
                   "--all --help --type -a -h -t", "B GiB KiB MiB", "KiB", "MiB",
                   "commandhelp json python simple table xml", "--format-param",
                   "--format-param --formatter --help --input --plugin --plugin-dir -h",
                   "a.so kinds.xml plugdir prefix", "plugdir prefix", "false true", "1 2",
                   "--help --level --tag --verbose -h -l -v",
                   "--help --level --quiet --tag -h -l -q", ""}),
        Candidates(
            installed, TINDRA_BASH,
            {"ostrel ", "ostrel s", "ostrel nosuch ", "ostrel storage filesystem list -",
             "ostrel storage filesystem list --all -", "ostrel storage filesystem list -t ext4 -",
             "ostrel system resource get --units ", "ostrel system resource get --units=K",
             "ostrel system resource get -u M", "ostrel --formatter ", "ostrel --formatter xml --f",
             "ostrel --screen-width 80 -", "ostrel --plugin ", "ostrel --plugin-dir ",
             kinds + "--verbose ", kinds + "-l ", kinds + "--quiet ", kinds + "--tag a -v 1 ",
             "ostrel ostrel command list -n "}));
}

// The candidates are the helper's, pinned in bash; here only what the zsh function adds.
TEST(Completion, ZshOffersTheSameFromTheSameTree) {
    if (std::string(TINDRA_ZSH).empty())
        GTEST_SKIP() << "zsh is not installed";
    EXPECT_EQ(JoinLines({"hardware network ostrel storage system", "B GiB KiB MiB", "--units=KiB",
                         "(files )", "(files -/)"}),
              Candidates(Installed(), TINDRA_ZSH,
                         {"ostrel ", "ostrel system resource get --units ",
                          "ostrel system resource get --units=K", "ostrel --input ",
                          "ostrel --plugin-dir "}));
}

// Broken plug-ins in the installed directory cost their own commands and nothing is printed;
// the tool itself reports them, as its own tests pin.
TEST(Completion, BrokenPluginsLeaveTheRestAndSayNothing) {
    Installation const installed;
    installed.work.Write("prefix/" TINDRA_PLUGIN_DIR "/broken.xml", "<plugin><version>");
    installed.work.Write("prefix/" TINDRA_PLUGIN_DIR "/broken.so", "not a library");
    std::string const helper = installed.prefix + "/libexec/ostrel/ostrel-complete";
    auto const direct = installed.Shell(TINDRA_BASH, "'" + helper + "' ostrel storage ''");
    TestSupport::ExpectRun(direct, 0, "words\ndisk\nfilesystem\n", "");
    EXPECT_EQ("hardware network ostrel storage system\n",
              Candidates(installed, TINDRA_BASH, {"ostrel "}));
    TestSupport::ExpectRun(installed.Shell(TINDRA_BASH, "'" + helper + "' ostrel"), 2, "",
                           "Usage: " + helper + " PROGRAM [WORD...] CURRENT\n");
}

}  // namespace
