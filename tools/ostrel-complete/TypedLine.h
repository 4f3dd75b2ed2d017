#ifndef OSTREL_COMPLETE_TYPEDLINE_H
#define OSTREL_COMPLETE_TYPEDLINE_H

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tindra/tindra.h"

namespace Ostrel {

// Where the words typed so far leave a command line, read the way the option parser reads
// it: dispatcher options, then path words up to the first option, then the command's options.
// Every option takes the next word that is not an option as its value.
class TypedLine {
public:
    enum class Place { DispatcherOptions, Path, CommandOptions };

    TypedLine(std::shared_ptr<Tindra::AutoCli::NamespaceNode> root,
              std::vector<std::string> const& words);

    Place GetPlace() const { return place; }
    // The node the path words name; empty when a word names nothing.
    std::shared_ptr<Tindra::AutoCli::NamespaceNode> const& GetNode() const { return node; }
    // The last word when it is an option still waiting for its value, without hyphens.
    std::string const& GetOptionAwaitingValue() const { return awaiting; }
    // Names of the dispatcher options, or else of the command options, given so far (long or
    // short, as typed).
    std::set<std::string> const& GetGivenOptions() const { return given; }
    bool IsOption(std::string const& word) const { return parser.IsParameter(word); }

private:
    void ReadOption(std::string const& word);
    void ReadWord(std::string const& word);

    Tindra::AutoCli::OptionParser parser;
    Place place = Place::DispatcherOptions;
    std::shared_ptr<Tindra::AutoCli::NamespaceNode> node;
    std::string awaiting;
    std::set<std::string> given;
};

}  // namespace Ostrel

#endif
