// A declared output nested 100 values deep (50 lists, each of a structure holding the next):
// building and checking a document must not grow with anything but its size. Every run has a
// bound on its processor time, should one ever again take minutes.
#include <gtest/gtest.h>

#include <string>

#include "Ostrel.h"

namespace {

using namespace CliTest;

int const kListLevels = 50;

// The value of levels [level, kListLevels): the deepest name has the given scalar tag.
std::string Nested(int level, std::string const& deepestNameTag) {
    std::string const n = std::to_string(level);
    bool const deepest = level == kListLevels - 1;
    std::string const tag = deepest ? deepestNameTag : "string";
    return "<list type=\"structure\"><structure typeName=\"Level" + n +
           "\"><field name=\"Name\"><" + tag + ">" + n + "</" + tag + "></field>" +
           (deepest ? ""
                    : "<field name=\"Sub\">" + Nested(level + 1, deepestNameTag) + "</field>") +
           "</structure></list>";
}

std::string Command(std::string const& name, std::string const& document) {
    CommandParts parts;
    parts.path = "demo." + name;
    parts.outputSpec = "<output-spec>" + Nested(0, "string") + "</output-spec>";
    parts.formatParameters = "<format-parameters><formatter>python</formatter></format-parameters>";
    parts.execute = "<execute>cat '" + document + "'</execute>";
    return parts.Element();
}

TEST(DeepOutputTest, BuildsAndChecksInOnePass) {
    DescriptorFiles files;
    std::string const good =
        files.Write("good.out", "<output>" + Nested(0, "string") + "</output>");
    std::string const bad = files.Write("bad.out", "<output>" + Nested(0, "int") + "</output>");
    std::string const plugin =
        DemoPlugin(files, "deep.xml", Command("show", good) + Command("broken", bad));
    auto const shown = Ostrel({"--plugin", plugin, "demo", "show"});
    EXPECT_EQ(std::make_pair(0, std::string()), std::make_pair(shown.status, shown.err));

    // A difference at the bottom is named at every level on the way up.
    std::string errors = "Errors: \nType mismatch on field: Name\n";
    for (int level = kListLevels - 1; level > 0; --level)
        errors += "List type mismatch list and input\nType mismatch on field: Sub\n";
    errors +=
        "List type mismatch list and input\nImplementation error! The output of this command "
        "does not match the declared output type, see errors above.\n";
    ExpectRun(Ostrel({"--plugin", plugin, "demo", "broken"}), 1, "", errors);
}

}  // namespace
