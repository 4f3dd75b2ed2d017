#include "TypedLine.h"

namespace Ostrel {

TypedLine::TypedLine(std::shared_ptr<Tindra::AutoCli::NamespaceNode> root,
                     std::vector<std::string> const& words)
    : node(std::move(root)) {
    for (auto const& word : words) {
        if (IsOption(word)) {
            ReadOption(word);
        } else if (!awaiting.empty()) {
            awaiting.clear();  // the option's value
        } else {
            ReadWord(word);
        }
    }
}

void TypedLine::ReadOption(std::string const& word) {
    if (place == Place::Path) {
        place = Place::CommandOptions;
    }
    std::string name, value;
    bool const attached = parser.ParseParameter(word, name, value);
    given.insert(name);
    awaiting = attached ? std::string() : name;
}

void TypedLine::ReadWord(std::string const& word) {
    if (place == Place::CommandOptions) {
        return;  // an extra argument, which the tool will refuse
    }
    if (place == Place::DispatcherOptions) {
        place = Place::Path;
        given.clear();
    }
    bool const found = node && node->GetType() != Tindra::AutoCli::NamespaceNode::COMMAND_NODE &&
                       node->HasNamespaceNode(word);
    node = found ? node->GetNamespaceNode(word) : nullptr;
}

}  // namespace Ostrel
