#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

#include "Ostrel.h"

namespace {

using CliTest::BuiltInCommandTable;
using CliTest::ExpectRun;
using CliTest::Ostrel;

std::string const kFailingLine = "ostrel command list --bogus 1\n";
std::string const kFailingErrors = "Errors: \nUnknown parameter : bogus\n";

class InputFile {
public:
    explicit InputFile(std::string const& content)
        : path(std::string(TINDRA_TEST_BINARY_DIR) + "/input-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".txt") {
        std::ofstream(path, std::ios::binary) << content;
    }
    ~InputFile() { std::remove(path.c_str()); }
    std::string const path;
};

TEST(InputStreamTest, EveryLineRunsAndTheLastOneDecidesTheStatus) {
    std::string const lines = "# a comment\n\n   \nostrel command list\n" + kFailingLine;
    ExpectRun(Ostrel({"--input", "STDIN"}, lines), 1, BuiltInCommandTable(), kFailingErrors);
    ExpectRun(Ostrel({"--input", "STDIN"}, lines + "ostrel command list -c \"li\"\n"), 0,
              BuiltInCommandTable() + BuiltInCommandTable(), kFailingErrors);

    InputFile file(kFailingLine + "ostrel command list\n  # trailing comment");
    ExpectRun(Ostrel({"--input", file.path}), 0, BuiltInCommandTable(), kFailingErrors);
}

TEST(InputStreamTest, AStreamWithoutCommandsSucceeds) {
    ExpectRun(Ostrel({"--input", "STDIN"}, ""), 0, "", "");
    InputFile file("#only\n\t\n");
    ExpectRun(Ostrel({"--input", file.path}), 0, "", "");
}

TEST(InputStreamTest, LinesShareTheScreenWidthButCannotNestStreams) {
    std::string const lines =
        "--screen-width 40 ostrel command list -c nomatch\n"
        "ostrel command list\n"
        "--input STDIN ostrel command list\n";
    ExpectRun(Ostrel({"--input", "STDIN"}, lines), 1,
              "Namespace  Command  Description\n"
              "---------  -------  -----------\n"
              "Namespace       Command  Description\n"
              "--------------  -------  -----------\n"
              "ostrel.command  list     List all of \n"
              "                         the ostrel \n"
              "                         commands.\n",
              "Errors: \nUnknown dispatcher parameter: input\n");
}

TEST(InputStreamTest, ALineListingANamespaceFailsButTheStreamGoesOn) {
    auto run = Ostrel({"--input", "STDIN"}, "ostrel command\nostrel command list\n");
    EXPECT_EQ(0, run.status);
    EXPECT_EQ(0u, run.out.find("Usage: ostrel [disp options] ostrel command <namespaces>"));
    EXPECT_EQ(run.out.size() - BuiltInCommandTable().size(), run.out.rfind(BuiltInCommandTable()));
}

TEST(InputStreamTest, HelpOnAnyLineEndsTheWholeRun) {
    auto run = Ostrel({"--input", "STDIN"}, "ostrel command list\n--help\nostrel command list\n");
    EXPECT_EQ(1, run.status);
    EXPECT_EQ(0u, run.out.find(BuiltInCommandTable() + "ostrel [dispatcher options]")) << run.out;
    EXPECT_EQ(std::string::npos, run.out.find(BuiltInCommandTable(), 1));
}

TEST(InputStreamTest, AnUnknownWordEndsTheWholeStream) {
    ExpectRun(
        Ostrel({"--input", "STDIN"}, "ostrel command list\nostrel nosuch\nostrel command list\n"),
        1, BuiltInCommandTable(),
        "Errors: \nUnable to find a command or namespace with the name 'nosuch' in "
        "namespace ostrel\n");
}

TEST(InputStreamTest, BinaryGarbageIsJustAnUnknownWord) {
    std::string const garbage("\x01\xff\xfe\x7f\x80\r", 6);
    ExpectRun(Ostrel({"--input", "STDIN"}, garbage + " \"\x1b[2J\"\n"), 1, "",
              "Errors: \nUnable to find a command or namespace with the name '" + garbage +
                  "' in namespace \n");
    // The exception's text is a C string: what follows a NUL byte is not shown.
    ExpectRun(Ostrel({"--input", "STDIN"}, garbage + std::string(1, '\0') + "tail\n"), 1, "",
              "Errors: \nUnable to find a command or namespace with the name '" + garbage + "\n");
}

TEST(InputStreamTest, OverLongLinesAreReadWhole) {
    std::string const longValue(1 << 20, 'q');
    std::string lines = "ostrel command list -c " + longValue + "\n";
    lines += "  " + std::string(1 << 20, ' ') + "\nostrel command list -n\n";
    ExpectRun(Ostrel({"--input", "STDIN"}, lines), 1,
              "Namespace  Command  Description\n"
              "---------  -------  -----------\n",
              "Errors: \n-n must have value\n");

    std::string const longWord(1 << 20, 'w');
    ExpectRun(Ostrel({"--input", "STDIN"}, longWord + "\n"), 1, "",
              "Errors: \nUnable to find a command or namespace with the name '" + longWord +
                  "' in namespace \n");
}

}  // namespace
