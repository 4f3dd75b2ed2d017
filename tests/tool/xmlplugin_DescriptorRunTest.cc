// A descriptor's command line made from the arguments the tool parsed. Templates and answers
// alone are the extension tests' business.
#include <gtest/gtest.h>

#include <string>

#include "Ostrel.h"

namespace {

using namespace CliTest;

TEST(DescriptorRunTest, CommandLineFromTheParsedArguments) {
    DescriptorFiles files;
    CommandParts parts;
    parts.execute =
        "<execute><![CDATA[true -n '$val{name}' $if{force,-f} $if{limit,-l $val{limit}} "
        "$multilist{path,--path,true}]]></execute>";
    parts.inputSpec = "<input-spec>" + OptionalParameter("name", "string") +
                      OptionalParameter("force", "flag") + OptionalParameter("limit", "int") +
                      OptionalParameter("path", "string-list") + "</input-spec>";
    // Without a language of the caller's, the command line shows the one the program gets.
    ExpectRun(
        Ostrel({"--plugin", DemoPlugin(files, "demo.xml", parts.Element()), "demo", "run", "--name",
                "O'Ne;il", "--force", "--limit", "5", "--path", "a b", "--path", "c"},
               "", {"LANG"}),
        1, "",
        "Errors: \nGot no data from process: LANG=en_US.UTF-8 true -n 'ONe;il' -f -l 5  "
        "--path \"a b\" --path \"c\"\n");
}

}  // namespace
