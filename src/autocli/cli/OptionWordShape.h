#ifndef TINDRA_SRC_AUTOCLI_CLI_OPTIONWORDSHAPE_H
#define TINDRA_SRC_AUTOCLI_CLI_OPTIONWORDSHAPE_H

#include <string>

namespace Tindra {
namespace AutoCli {

// The option shapes: a hyphen and one letter, or two hyphens and a name of at least two
// characters ([a-zA-Z][a-zA-Z0-9-]+), optionally with a non-empty value attached by "=".
// Anything else is a plain word. Matched by hand, as every word of every command line is
// tested: compiling the equivalent regular expressions cost more than the rest of a short run.
enum class OptionWordShape { Word, Option, OptionWithValue };

// The shape of word; for an option, its name, and the attached value when there is one.
OptionWordShape ShapeOfOptionWord(std::string const& word, std::string* name = nullptr,
                                  std::string* value = nullptr);

}  // namespace AutoCli
}  // namespace Tindra

#endif
