// The tool run from a private prefix, and its installed shell completions offering what the
// live command tree holds.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "support/DescriptorFiles.h"
#include "support/PrivateInstall.h"

namespace {

using TestSupport::Installed;
using Installation = TestSupport::PrivateInstall;
using Rows = std::vector<std::pair<std::string, std::string>>;  // a line, its sorted candidates

// Bash is handed the words it would split (at blanks and at "=", a word break); the zsh
// function is driven with compadd and _files standing in for the completion system.
char const kBash[] = R"sh([ -f /usr/share/bash-completion/bash_completion ] &&
  . /usr/share/bash-completion/bash_completion
. "$PREFIX/share/bash-completion/completions/ostrel"
complete_line() {
  COMP_LINE=$1; COMP_POINT=${#1}
  local spaced=${1//=/ = }; read -ra COMP_WORDS <<<"$spaced"
  [[ $1 == *[\ =] ]] && COMP_WORDS+=('')
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); COMPREPLY=()
  _ostrel
  printf '%s\n' "${COMPREPLY[@]}" | sort | paste -sd ' '
}
)sh";
char const kZsh[] = R"sh(fpath=("$PREFIX/share/zsh/vendor-completions" $fpath)
autoload -Uz _ostrel
compadd() { [[ $1 == -- ]] && shift; print -rl -- "$@" }
_files() { print -r -- "(files $*)" }
complete_line() {
  local -a words; local CURRENT
  words=(${(z)1}); [[ $1 == *' ' ]] && words+=('')
  CURRENT=$#words
  _ostrel | sort | paste -sd ' '
}
)sh";

void ExpectCandidates(Installation const& installed, Rows const& rows,
                      std::string const& shell = TINDRA_BASH) {
    std::string script =
        "PREFIX='" + installed.prefix + "'\n" + (shell == TINDRA_BASH ? kBash : kZsh);
    std::string expected;
    for (auto const& [line, candidates] : rows) {
        script += "complete_line '" + line + "'\n";
        expected += candidates + "\n";
    }
    TestSupport::ExpectRun(installed.Shell(shell, script), 0, expected, "");
}

// Descriptors call their helpers under the prefix.
TEST(PrivateInstall, ToolRunsFromItsPrefixWithItsBundledHelpers) {
    auto const list =
        Installed().Shell(TINDRA_BASH, "ostrel --formatter json storage filesystem list");
    EXPECT_EQ(std::make_pair(0, std::string()), std::make_pair(list.status, list.err));
    EXPECT_NE(std::string::npos, list.out.find("\"Mount\": \"\\/\"")) << list.out;
}

TEST(Completion, BashOffersTreeOptionsValuesAndFiles) {
    auto const& installed = Installed();
    installed.work.Write("a.so", "");
    std::filesystem::create_directories(installed.work.path + "/plugdir");
    // Every kind of value the completions offer, from a descriptor loaded with --plugin.
    using namespace DescriptorTest;
    CommandParts command;
    std::string const levels =
        "<constraint type=\"intenum\"><enum><enum-value value=\"1\">one"
        "</enum-value><enum-value value=\"2\">two</enum-value></enum>"
        "</constraint>";
    command.inputSpec = "<input-spec>" +
                        OptionalParameter("verbose", "bool", "", " shortname=\"v\"") +
                        OptionalParameter("level", "int", levels, " shortname=\"l\"") +
                        OptionalParameter("quiet", "flag", "", " shortname=\"q\"") +
                        OptionalParameter("tag", "string-list") + "</input-spec>";
    std::string const kinds = "ostrel --plugin " +
                              DemoPlugin(installed.work, "kinds.xml", command.Element()) +
                              " demo run ";
    ExpectCandidates(installed,
                     {{"ostrel ", "hardware network ostrel storage system"},
                      {"ostrel nosuch ", ""},
                      {"ostrel storage filesystem list --all -", "--help --type -h -t"},
                      {"ostrel system resource get --units=K", "KiB"},
                      {"ostrel --formatter ", "commandhelp json python simple table xml"},
                      {"ostrel --screen-width 80 -",
                       "--format-param --formatter --help --input --plugin --plugin-dir -h"},
                      {"ostrel --plugin ", "a.so kinds.xml plugdir prefix"},
                      {"ostrel --plugin-dir ", "plugdir prefix"},
                      {kinds + "--verbose ", "false true"},
                      {kinds + "-l ", "1 2"},
                      {kinds + "--quiet ", "--help --level --tag --verbose -h -l -v"},
                      {kinds + "--tag a -v 1 ", "--help --level --quiet --tag -h -l -q"}});
}

// The candidates are the helper's, pinned in bash; here only what the zsh function adds.
TEST(Completion, ZshOffersTheSameFromTheSameTree) {
    if (std::string(TINDRA_ZSH).empty())
        GTEST_SKIP() << "zsh is not installed";
    ExpectCandidates(Installed(),
                     {{"ostrel ", "hardware network ostrel storage system"},
                      {"ostrel system resource get --units=K", "--units=KiB"},
                      {"ostrel --input ", "(files )"},
                      {"ostrel --plugin-dir ", "(files -/)"}},
                     TINDRA_ZSH);
}

// Broken plug-ins in the installed directory cost their own commands and nothing is printed;
// the tool itself reports them, as its own tests pin.
TEST(Completion, BrokenPluginsLeaveTheRestAndSayNothing) {
    Installation const installed;
    installed.work.Write("prefix/" TINDRA_PLUGIN_DIR "/broken.xml", "<plugin><version>");
    installed.work.Write("prefix/" TINDRA_PLUGIN_DIR "/broken.so", "not a library");
    std::string const helper = installed.prefix + "/libexec/ostrel/ostrel-complete";
    TestSupport::ExpectRun(installed.Shell(TINDRA_BASH, "'" + helper + "' ostrel storage ''"), 0,
                           "words\ndisk\nfilesystem\n", "");
    TestSupport::ExpectRun(installed.Shell(TINDRA_BASH, "'" + helper + "' ostrel"), 2, "",
                           "Usage: " + helper + " PROGRAM [WORD...] CURRENT\n");
}

}  // namespace
