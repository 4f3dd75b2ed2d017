#ifndef OSTREL_COMPLETE_COMPLETER_H
#define OSTREL_COMPLETE_COMPLETER_H

#include <string>
#include <vector>

#include "TypedLine.h"
#include "tindra/tindra.h"

namespace Ostrel {

// What may replace the word being typed: the listed words, or names from the file system.
struct Completion {
    enum class Kind { Words, Files, Directories };
    Kind kind = Kind::Words;
    std::vector<std::string> words;
};

// Candidates for the word being typed, from the dispatcher's command tree and formatters.
class Completer {
public:
    explicit Completer(Tindra::AutoCli::Dispatcher& dispatcher) : dispatcher(dispatcher) {}

    // typed: the words before the current one, the program's name left out.
    Completion Complete(std::vector<std::string> const& typed, std::string const& current);

private:
    Completion OptionNames(TypedLine const& line) const;
    Completion NodeNames(TypedLine const& line) const;
    Completion OptionValues(TypedLine const& line, std::string const& option) const;
    Completion CommandOptionValues(TypedLine const& line, std::string const& option) const;
    std::shared_ptr<Tindra::CallSpec::ParameterSpec> FindCommandOption(
        TypedLine const& line, std::string const& option) const;

    Tindra::AutoCli::Dispatcher& dispatcher;
};

}  // namespace Ostrel

#endif
