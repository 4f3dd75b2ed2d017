// A directory of many descriptors is read on several threads; what the user sees must be what
// reading them one by one on a single processor gives, byte for byte.
#include <gtest/gtest.h>

#include <string>

#include "Ostrel.h"

namespace {

using namespace CliTest;

TEST(ParallelLoadingTest, GivesWhatReadingOneByOneGives) {
    DescriptorFiles files;
    for (int number = 10; number < 30; ++number) {
        std::string const space = "p" + std::to_string(number);
        CommandParts command;
        // Taken by an earlier file; a parser warning that still loads; not well-formed.
        command.path = number == 18 ? "p12.run" : space + ".run";
        std::string const attribute = number == 16 ? " p:x=\"1\"" : "";
        files.Write(space + ".xml",
                    number == 13 ? "<plugin><version>1.0.0</plugin>\n"
                                 : Descriptor("<namespaces>" + NamespaceElement(space, space) +
                                              "</namespaces><commands" + attribute + ">" +
                                              command.Element() + "</commands>"));
    }
    files.Write("notes.txt", "not a plug-in");
    Words const list = List({"--plugin-dir", files.path});
    auto const threaded = Ostrel(list);
    Words argv = {"taskset", "-c", "0", OSTREL_BINARY};
    argv.insert(argv.end(), list.begin(), list.end());
    auto const single =
        TestSupport::RunProgram("/usr/bin/taskset", argv, "", {"OSTREL_SKIP_DEFAULT_PLUGINS=1"});
    ExpectRun(threaded, single.status, single.out, single.err);
    EXPECT_EQ(0, threaded.status);
    // The XML parser's own words in their file's place, before what the loader says of it.
    size_t at = 0;
    for (std::string const& expected :
         Words{"p13.xml:1: parser error : Opening and ending tag mismatch",
               "Error loading plugin " + files.path + "/p13.xml skipping.",
               "p16.xml:4: namespace error", "registered: p12.run"}) {
        at = threaded.err.find(expected, at);
        ASSERT_NE(std::string::npos, at) << expected << "\nin:\n" << threaded.err;
    }
    EXPECT_NE(std::string::npos, threaded.out.find("p29")) << threaded.out;
}

}  // namespace
