// What the XML parser says about a descriptor still reaches standard error, in its place among
// the loading messages, whether the file is then rejected or loads.
#include <gtest/gtest.h>

#include <string>

#include "Ostrel.h"
#include "support/DescriptorFiles.h"

namespace {

using namespace DescriptorTest;

TEST(ParserDiagnosticsTest, AreReportedForBrokenAndForLoadingDescriptors) {
    DescriptorFiles files;
    std::string const broken = files.Write("a-broken.xml", "<plugin><version>1.0.0</plugin>\n");
    CommandParts command;
    std::string const warned =
        files.Write("b-warned.xml", Descriptor("<namespaces>" + NamespaceElement("demo", "Demo") +
                                               "</namespaces><commands p:x=\"1\">" +
                                               command.Element() + "</commands>"));
    auto const run = CliTest::Ostrel(CliTest::List({"--plugin-dir", files.path}));
    EXPECT_EQ(0, run.status);
    EXPECT_NE(std::string::npos, run.out.find("demo            run      Runs\n")) << run.out;
    // Each in this order, the parser's own words first.
    size_t from = 0;
    for (std::string const& expected :
         {broken + ":1: parser error : Opening and ending tag mismatch: version line 1 and "
                   "plugin\n",
          "Error loading plugin " + broken + " skipping.",
          warned + ":4: namespace error : Namespace prefix p for x on commands is not defined\n"}) {
        size_t const at = run.err.find(expected, from);
        ASSERT_NE(std::string::npos, at) << expected << "\nin:\n" << run.err;
        from = at + expected.size();
    }
}

}  // namespace
