#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_COMMANDOUTPUTCOLLECTOR_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_COMMANDOUTPUTCOLLECTOR_H

#include <cstddef>
#include <string>

#include "autocli/extension/ErrorLineCollector.h"
#include "tindra/callspec/Output.h"
#include "xml/OutputDocumentReader.h"

namespace Tindra {
namespace AutoCli {

// What an extension command's program writes, taken as it arrives. Output that begins with
// an "ERROR:" line goes to the error lines, which keep a bounded part of it; any other output
// goes straight to the document reader, so that no output of any size is ever held whole.
class CommandOutputCollector {
public:
    void Add(char const* data, size_t length);
    bool Empty() const { return received == 0; }
    // The leading error lines, or else the document's value, into the output.
    void DeliverTo(CallSpec::Output& output);

private:
    enum class Mode { Undecided, ErrorLines, Document };

    void Decide();
    void DeliverDocument(CallSpec::Output& output);

    Mode mode = Mode::Undecided;
    std::string text;  // everything so far, until it is known what the output is
    ErrorLineCollector errorLines;
    OutputDocumentStream document;
    size_t received = 0;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
