#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_TEMPLATESUBSTITUTION_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_TEMPLATESUBSTITUTION_H

#include <string>

#include "tindra/callspec/Input.h"
#include "tindra/callspec/InputSpec.h"

namespace Tindra {
namespace AutoCli {

// Fills a template from the input, parameter by parameter in the order of the declarations.
// For the command line (forStdin false) values are escaped for the shell; for standard input
// they go in as given.
std::string SubstituteTemplate(std::string const& templateText, CallSpec::Input const& input,
                               CallSpec::InputSpec const& spec, bool forStdin);

// Removes the conditional sections that no parameter filled in, nested braces counted.
void RemoveUnusedConditionals(std::string& text);

}  // namespace AutoCli
}  // namespace Tindra

#endif
