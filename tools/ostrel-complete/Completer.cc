#include "Completer.h"

#include <algorithm>

namespace Ostrel {
namespace {

using Tindra::AutoCli::NamespaceNode;
using Tindra::CallSpec::ParameterSpec;

struct DispatcherOption {
    char const* word;
    char const* name;
    bool repeats;
};

// The tool's dispatcher options; those that may be given more than once stay on offer.
DispatcherOption const kDispatcherOptions[] = {{"--format-param", "format-param", true},
                                               {"--formatter", "formatter", false},
                                               {"--help", "help", false},
                                               {"--input", "input", false},
                                               {"--plugin", "plugin", true},
                                               {"--plugin-dir", "plugin-dir", true},
                                               {"--screen-width", "screen-width", false},
                                               {"-h", "h", false}};

std::shared_ptr<Tindra::AutoCli::CommandSpec> AsCommand(
    std::shared_ptr<NamespaceNode> const& node) {
    return std::dynamic_pointer_cast<Tindra::AutoCli::CommandSpec>(node);
}

bool StartsWith(std::string const& text, std::string const& start) {
    return text.compare(0, start.size(), start) == 0;
}

// Keeps the words that extend prefix, each with lead put in front.
Completion Matching(std::vector<std::string> const& words, std::string const& lead,
                    std::string const& prefix) {
    Completion completion;
    for (auto const& word : words) {
        if (StartsWith(word, prefix)) {
            completion.words.push_back(lead + word);
        }
    }
    return completion;
}

std::vector<std::string> AllowedValues(ParameterSpec const& parameter) {
    auto const type = parameter.GetType();
    if (type == Tindra::CallSpec::ParamBool || type == Tindra::CallSpec::ParamBoolList) {
        return {"false", "true"};
    }
    auto const constraint = parameter.GetConstraint();
    if (!constraint) {
        return {};
    }
    if (constraint->GetType() == Tindra::CallSpec::ConstraintStringEnum) {
        return constraint->GetStringEnum();
    }
    std::vector<std::string> values;
    if (constraint->GetType() == Tindra::CallSpec::ConstraintIntEnum) {
        for (long value : constraint->GetIntEnum()) {
            values.push_back(std::to_string(value));
        }
    }
    return values;
}

}  // namespace

Completion Completer::Complete(std::vector<std::string> const& typed, std::string const& current) {
    TypedLine const line(dispatcher.GetRootNamespace(), typed);
    // --name=value: the value is completed, the option kept in front of it.
    auto const equals = current.find('=');
    if (StartsWith(current, "--") && equals != std::string::npos) {
        std::string const lead = current.substr(0, equals + 1);
        Completion values = OptionValues(line, current.substr(2, equals - 2));
        if (values.kind == Completion::Kind::Words) {
            values = Matching(values.words, lead, current.substr(equals + 1));
        }
        return values;
    }
    std::string const& awaiting = line.GetOptionAwaitingValue();
    bool const typingOption = StartsWith(current, "-");
    if (!awaiting.empty() && !typingOption) {
        Completion values = OptionValues(line, awaiting);
        auto const flag = FindCommandOption(line, awaiting);
        if (!flag || flag->GetType() != Tindra::CallSpec::ParamFlag) {
            return values.kind == Completion::Kind::Words ? Matching(values.words, "", current)
                                                          : values;
        }
    }
    if (typingOption || line.GetPlace() == TypedLine::Place::CommandOptions ||
        AsCommand(line.GetNode())) {
        return Matching(OptionNames(line).words, "", current);
    }
    return Matching(NodeNames(line).words, "", current);
}

Completion Completer::OptionNames(TypedLine const& line) const {
    Completion names;
    auto const& given = line.GetGivenOptions();
    if (line.GetPlace() == TypedLine::Place::DispatcherOptions) {
        for (auto const& option : kDispatcherOptions) {
            if (option.repeats || given.count(option.name) == 0) {
                names.words.push_back(option.word);
            }
        }
        return names;
    }
    auto const command = AsCommand(line.GetNode());
    if (!command) {
        return names;
    }
    for (auto const& parameter : command->GetInputSpec()->parameters) {
        std::string const& name = parameter->GetName();
        std::string const& shortName = parameter->GetShortName();
        bool const isGiven = given.count(name) != 0 || given.count(shortName) != 0;
        if (isGiven && !parameter->AllowMultiple()) {
            continue;
        }
        names.words.push_back("--" + name);
        if (!shortName.empty()) {
            names.words.push_back("-" + shortName);
        }
    }
    return names;
}

Completion Completer::NodeNames(TypedLine const& line) const {
    auto const& node = line.GetNode();
    return Completion{Completion::Kind::Words,
                      node ? node->GetNamespaceNodeNames() : std::vector<std::string>()};
}

Completion Completer::OptionValues(TypedLine const& line, std::string const& option) const {
    if (line.GetPlace() != TypedLine::Place::DispatcherOptions) {
        return CommandOptionValues(line, option);
    }
    if (option == "input" || option == "plugin") {
        return Completion{Completion::Kind::Files, {}};
    }
    if (option == "plugin-dir") {
        return Completion{Completion::Kind::Directories, {}};
    }
    Completion names;
    if (option == "formatter") {
        for (auto const& formatter : dispatcher.GetFormatters()) {
            names.words.push_back(formatter->GetName());
        }
    }
    return names;
}

Completion Completer::CommandOptionValues(TypedLine const& line, std::string const& option) const {
    auto const parameter = FindCommandOption(line, option);
    return Completion{Completion::Kind::Words,
                      parameter ? AllowedValues(*parameter) : std::vector<std::string>()};
}

std::shared_ptr<ParameterSpec> Completer::FindCommandOption(TypedLine const& line,
                                                            std::string const& option) const {
    auto const command = AsCommand(line.GetNode());
    if (line.GetPlace() == TypedLine::Place::DispatcherOptions || !command) {
        return nullptr;
    }
    auto const& parameters = command->GetInputSpec()->parameters;
    auto const found =
        std::find_if(parameters.begin(), parameters.end(), [&](auto const& parameter) {
            return parameter->GetName() == option || parameter->GetShortName() == option;
        });
    return found == parameters.end() ? nullptr : *found;
}

}  // namespace Ostrel
