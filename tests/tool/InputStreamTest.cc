#include <gtest/gtest.h>

#include "Ostrel.h"

namespace {

using namespace CliTest;

std::string const kFailingLine = "ostrel command list --bogus 1\n";
std::string const kNoSuch = "Errors: \nUnable to find a command or namespace with the name '";
std::string const kGarbage("\x01\xff\xfe\x7f\x80\r", 6);

// Every line runs and the last one decides the status; an unknown word ends the stream.
TEST(InputStreamTest, StreamRows) {
    struct {
        std::string lines;
        int status;
        std::string out, err;
    } const rows[] = {
        {"# a comment\n\n   \nostrel command list\n" + kFailingLine, 1, kCommandTable,
         "Errors: \nUnknown parameter : bogus\n"},
        {kFailingLine + "ostrel command list -c \"li\"\n  # trailing comment", 0, kCommandTable,
         "Errors: \nUnknown parameter : bogus\n"},
        {"", 0, "", ""},
        {"--screen-width 40 ostrel command list -c nomatch\nostrel command list\n"
         "--input STDIN ostrel command list\n",
         1, kEmptyTable + kCommandTableAt40, "Errors: \nUnknown dispatcher parameter: input\n"},
        {"ostrel command list\nostrel nosuch\nostrel command list\n", 1, kCommandTable,
         kNoSuch + "nosuch' in namespace ostrel\n"},
        {kGarbage + " \"\x1b[2J\"\n", 1, "", kNoSuch + kGarbage + "' in namespace \n"},
        // The exception's text is a C string: what follows a NUL byte is not shown.
        {kGarbage + std::string(1, '\0') + "tail\n", 1, "", kNoSuch + kGarbage + "\n"},
        {"ostrel command list -c " + std::string(1 << 20, 'q') + "\n  " +
             std::string(1 << 20, ' ') + "\nostrel command list -n\n",
         1, kEmptyTable, "Errors: \n-n must have value\n"},
    };
    for (auto const& row : rows)
        ExpectRun(Ostrel({"--input", "STDIN"}, row.lines), row.status, row.out, row.err);

    DescriptorFiles directory;
    ExpectRun(Ostrel({"--input", directory.Write("lines", rows[1].lines)}), 0, kCommandTable,
              rows[1].err);
}

TEST(InputStreamTest, ANamespaceLineFailsButTheStreamGoesOnHelpEndsIt) {
    auto run = Ostrel({"--input", "STDIN"}, "ostrel command\nostrel command list\n");
    EXPECT_EQ(0, run.status);
    EXPECT_EQ(0u, run.out.find("Usage: ostrel [disp options] ostrel command <namespaces>"));
    EXPECT_EQ(run.out.size() - kCommandTable.size(), run.out.rfind(kCommandTable));

    run = Ostrel({"--input", "STDIN"}, "ostrel command list\n--help\nostrel command list\n");
    EXPECT_EQ(1, run.status);
    EXPECT_EQ(0u, run.out.find(kCommandTable + "ostrel [dispatcher options]")) << run.out;
    EXPECT_EQ(std::string::npos, run.out.find(kCommandTable, 1));
}

}  // namespace
