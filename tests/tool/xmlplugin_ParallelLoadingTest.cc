// A directory of many descriptors is read on several threads; what the user sees must be what
// reading them one by one on a single processor gives, byte for byte.
#include <gtest/gtest.h>

#include <string>

#include "Ostrel.h"
#include "support/DescriptorFiles.h"

namespace {

using namespace DescriptorTest;

std::string NumberedDescriptor(int number, std::string const& commandPath, std::string attribute) {
    std::string const space = "p" + std::to_string(number);
    CommandParts command;
    command.path = commandPath.empty() ? space + ".run" : commandPath;
    return Descriptor("<namespaces>" + NamespaceElement(space, "Space " + space) +
                      "</namespaces><commands" + attribute + ">" + command.Element() +
                      "</commands>");
}

TEST(ParallelLoadingTest, GivesWhatReadingOneByOneGives) {
    DescriptorFiles files;
    for (int number = 10; number < 30; ++number) {
        std::string text = NumberedDescriptor(number, "", "");
        if (number == 13) {
            text = "<plugin><version>1.0.0</plugin>\n";  // not well-formed
        } else if (number == 16) {
            text = NumberedDescriptor(number, "", " p:x=\"1\"");  // a parser warning, loads
        } else if (number == 18) {
            text = NumberedDescriptor(number, "p12.run", "");  // taken by an earlier file
        }
        files.Write("f" + std::to_string(number) + ".xml", text);
    }
    files.Write("notes.txt", "not a plug-in");
    CliTest::Words const list = CliTest::List({"--plugin-dir", files.path});
    auto const threaded = CliTest::Ostrel(list);
    CliTest::Words argv = {"taskset", "-c", "0", OSTREL_BINARY};
    argv.insert(argv.end(), list.begin(), list.end());
    auto const single =
        TestSupport::RunProgram("/usr/bin/taskset", argv, "", {"OSTREL_SKIP_DEFAULT_PLUGINS=1"});
    TestSupport::ExpectRun(threaded, single.status, single.out, single.err);
    EXPECT_EQ(0, threaded.status);
    size_t from = 0;
    for (std::string const& expected : CliTest::Words{
             "f13.xml:1: parser error : Opening and ending tag mismatch",
             "Error loading plugin " + files.path + "/f13.xml skipping.",
             "f16.xml:4: namespace error", "Ostrel path is already registered: p12.run"}) {
        size_t const at = threaded.err.find(expected, from);
        ASSERT_NE(std::string::npos, at) << expected << "\nin:\n" << threaded.err;
        from = at + expected.size();
    }
    EXPECT_NE(std::string::npos, threaded.out.find("p29             run")) << threaded.out;
}

}  // namespace
