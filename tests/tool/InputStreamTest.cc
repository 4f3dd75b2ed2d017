#include <gtest/gtest.h>

#include "Ostrel.h"
#include "support/tree/TempDirectory.h"

namespace {

using namespace CliTest;

std::string const kFailingLine = "ostrel command list --bogus 1\n";
std::string const kFailingErrors = "Errors: \nUnknown parameter : bogus\n";
std::string const kNoSuchPrefix = "Errors: \nUnable to find a command or namespace with the name '";

TEST(InputStreamTest, EveryLineRunsAndTheLastOneDecidesTheStatus) {
    std::string const lines = "# a comment\n\n   \nostrel command list\n" + kFailingLine;
    ExpectRun(Ostrel({"--input", "STDIN"}, lines), 1, kCommandTable, kFailingErrors);
    ExpectRun(Ostrel({"--input", "STDIN"}, lines + "ostrel command list -c \"li\"\n"), 0,
              kCommandTable + kCommandTable, kFailingErrors);

    Tindra::Testing::TempDirectory directory;
    auto file =
        directory.Write("lines", kFailingLine + "ostrel command list\n  # trailing comment");
    ExpectRun(Ostrel({"--input", file}), 0, kCommandTable, kFailingErrors);
    ExpectRun(Ostrel({"--input", directory.Write("empty", "#only\n\t\n")}), 0, "", "");
    ExpectRun(Ostrel({"--input", "STDIN"}, ""), 0, "", "");
}

struct StreamRow {
    char const* what;
    std::string lines;
    int status;
    std::string out;
    std::string err;
};

std::string const kGarbage("\x01\xff\xfe\x7f\x80\r", 6);

StreamRow const kStreams[] = {
    {"lines share the screen width but cannot nest streams",
     "--screen-width 40 ostrel command list -c nomatch\nostrel command list\n"
     "--input STDIN ostrel command list\n",
     1, kEmptyTable + kCommandTableAt40, "Errors: \nUnknown dispatcher parameter: input\n"},
    {"an unknown word ends the whole stream",
     "ostrel command list\nostrel nosuch\nostrel command list\n", 1, kCommandTable,
     kNoSuchPrefix + "nosuch' in namespace ostrel\n"},
    {"binary garbage is just an unknown word", kGarbage + " \"\x1b[2J\"\n", 1, "",
     kNoSuchPrefix + kGarbage + "' in namespace \n"},
    // The exception's text is a C string: what follows a NUL byte is not shown.
    {"a NUL byte cuts the message", kGarbage + std::string(1, '\0') + "tail\n", 1, "",
     kNoSuchPrefix + kGarbage + "\n"},
    {"over-long lines are read whole",
     "ostrel command list -c " + std::string(1 << 20, 'q') + "\n  " + std::string(1 << 20, ' ') +
         "\nostrel command list -n\n",
     1, kEmptyTable, "Errors: \n-n must have value\n"},
};

TEST(InputStreamTest, StreamRows) {
    for (auto const& row : kStreams) {
        SCOPED_TRACE(row.what);
        ExpectRun(Ostrel({"--input", "STDIN"}, row.lines), row.status, row.out, row.err);
    }
}

TEST(InputStreamTest, ANamespaceLineFailsButTheStreamGoesOnHelpEndsIt) {
    auto run = Ostrel({"--input", "STDIN"}, "ostrel command\nostrel command list\n");
    EXPECT_EQ(0, run.status);
    EXPECT_EQ(0u, run.out.find("Usage: ostrel [disp options] ostrel command <namespaces>"));
    EXPECT_EQ(run.out.size() - kCommandTable.size(), run.out.rfind(kCommandTable));

    // Help on any line ends the whole run.
    run = Ostrel({"--input", "STDIN"}, "ostrel command list\n--help\nostrel command list\n");
    EXPECT_EQ(1, run.status);
    EXPECT_EQ(0u, run.out.find(kCommandTable + "ostrel [dispatcher options]")) << run.out;
    EXPECT_EQ(std::string::npos, run.out.find(kCommandTable, 1));
}

}  // namespace
