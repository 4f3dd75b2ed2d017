#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_ERRORLINECOLLECTOR_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_ERRORLINECOLLECTOR_H

#include <cstddef>
#include <string>
#include <vector>

#include "tindra/callspec/Output.h"

namespace Tindra {
namespace AutoCli {

// The leading "ERROR:" lines of a program's output, read as they arrive. A program may write
// any amount of them, so only the first lines up to a line count and a byte count are kept;
// the others are counted, and reported as not shown. Everything after the first line that is
// not an error line is passed over.
class ErrorLineCollector {
public:
    static constexpr size_t kMaxShownLines = 1000;
    static constexpr size_t kMaxShownBytes = 256 * 1024;

    // What every error line begins with.
    static std::string const& Prefix();

    void Add(char const* data, size_t length);
    // Each kept line as one error message, then one for the lines not shown.
    void DeliverTo(CallSpec::Output& output);

private:
    // Returns how many bytes of the data it used.
    size_t ReadPrefix(char const* data, size_t length);
    size_t ReadLine(char const* data, size_t length);
    void EndLine();

    std::vector<std::string> shown;
    std::string line;    // the kept part of the line being read
    std::string prefix;  // the start of a line, until it is known to be an error line
    bool inLine = false;
    bool lineShown = false;
    bool lineCut = false;
    bool finished = false;
    size_t shownBytes = 0;
    size_t notShown = 0;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
