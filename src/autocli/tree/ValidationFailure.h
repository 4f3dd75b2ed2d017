#ifndef TINDRA_SRC_AUTOCLI_TREE_VALIDATIONFAILURE_H
#define TINDRA_SRC_AUTOCLI_TREE_VALIDATIONFAILURE_H

#include <string>

#include "tindra/autocli/tree/CommandInput.h"
#include "tindra/callspec/InputSpec.h"

namespace Tindra {
namespace AutoCli {

// The message for a validation that threw instead of answering, as a regular expression from a
// descriptor may (one that does not compile, or one the matcher gives up on). Names the
// parameter and the expression when one of those is the cause, else the command.
std::string DescribeValidationFailure(CallSpec::InputSpec const& spec, CommandInput& input,
                                      std::string const& failure);

}  // namespace AutoCli
}  // namespace Tindra

#endif
