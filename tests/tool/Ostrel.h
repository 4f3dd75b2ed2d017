#ifndef TINDRA_TESTS_TOOL_OSTREL_H
#define TINDRA_TESTS_TOOL_OSTREL_H

#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/DescriptorFiles.h"

namespace CliTest {

using namespace DescriptorTest;
using TestSupport::ExpectRun;
using Words = std::vector<std::string>;

// Runs the built tool as "ostrel" with only its built-in commands (nothing from the
// installed plug-in directories), standard streams on files unless outputFd is given.
inline TestSupport::ChildResult Ostrel(Words const& args, std::string const& input = "",
                                       Words environment = {}, int outputFd = -1) {
    Words argv = {"ostrel"};
    argv.insert(argv.end(), args.begin(), args.end());
    environment.push_back("OSTREL_SKIP_DEFAULT_PLUGINS=1");
    return TestSupport::RunProgram(OSTREL_BINARY, argv, input, environment, outputFd);
}

// "ostrel command list" between dispatcher options and command options.
inline Words List(Words words, Words const& after = {}) {
    words.insert(words.end(), {"ostrel", "command", "list"});
    words.insert(words.end(), after.begin(), after.end());
    return words;
}

// What the command list prints for the built-in command alone: unwrapped and at width 40.
std::string const kCommandTable =
    "Namespace       Command  Description\n"
    "--------------  -------  -----------\n"
    "ostrel.command  list     List all of the ostrel commands.\n";
std::string const kCommandTableAt40 =
    "Namespace       Command  Description\n"
    "--------------  -------  -----------\n"
    "ostrel.command  list     List all of \n"
    "                         the ostrel \n"
    "                         commands.\n";
std::string const kEmptyTable =
    "Namespace  Command  Description\n"
    "---------  -------  -----------\n";

}  // namespace CliTest

#endif
