#ifndef TINDRA_SRC_AUTOCLI_SHELL_CHILDEXCHANGE_H
#define TINDRA_SRC_AUTOCLI_SHELL_CHILDEXCHANGE_H

#include <cstddef>
#include <functional>
#include <string>

#include "platform/Fd.h"

namespace Tindra {
namespace AutoCli {

// Writes the input to the child and reads its output at the same time, so a child that writes
// a lot before it has read all of its input cannot stall both sides. Ends when the child has
// closed its output and the input is written, or the child stopped reading it: a child that
// closes its standard input early is not an error, the rest of the input is dropped.
// Both descriptors are closed on return. Throws TindraException on a read or write failure.
// The output goes to the sink piece by piece as it is read.
using ChildOutputSink = std::function<void(char const* data, size_t length)>;
void ExchangeWithChild(Platform::UniqueFd& toChild, Platform::UniqueFd& fromChild,
                       std::string const& input, ChildOutputSink const& output);

}  // namespace AutoCli
}  // namespace Tindra

#endif
