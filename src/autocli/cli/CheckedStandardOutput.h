#ifndef TINDRA_SRC_AUTOCLI_CLI_CHECKEDSTANDARDOUTPUT_H
#define TINDRA_SRC_AUTOCLI_CLI_CHECKEDSTANDARDOUTPUT_H

#include <streambuf>
#include <string>

#include "platform/FdOutputBuffer.h"

namespace Tindra {
namespace AutoCli {

// Routes std::cout to standard output for one run of the tool and makes a lost write visible:
// a full disk, a closed or broken descriptor ends the run with one message on standard error
// and a failure status. A reader that went away (a pipe closed early) ends it quietly.
class CheckedStandardOutput {
public:
    explicit CheckedStandardOutput(std::string programName);
    ~CheckedStandardOutput();
    CheckedStandardOutput(CheckedStandardOutput const&) = delete;
    CheckedStandardOutput& operator=(CheckedStandardOutput const&) = delete;

    // Flushes, gives std::cout its previous buffer back and reports a failed write once.
    // False when output was lost.
    bool Finish();

    // Ends the process with status 0 or 1, finishing the run's output first when one is active.
    [[noreturn]] static void Exit(bool succeeded);

private:
    std::string programName;
    Platform::FdOutputBuffer buffer;
    std::streambuf* previous;
    bool finished = false;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
