#include "tindra/autocli/tree/Dispatcher.h"

#include "autocli/tree/ExceptionText.h"
#include "autocli/tree/ValidationFailure.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/plugins/InternalPlugin.h"

namespace Tindra {
namespace AutoCli {

namespace {

std::string UnavailableUntilResolved(std::string const& pluginName) {
    return "The functionality in " + pluginName +
           " will not be available until this issue is "
           "resolved.";
}

// A check that throws (a regular expression that does not compile, or that the matcher gives
// up on) is reported with the parameter and the expression.
bool ValidateInput(Command& command, std::shared_ptr<CommandInput> const& input,
                   std::shared_ptr<CommandOutput> const& output) {
    auto inputSpec = command.GetInputSpec();
    input->SetInputSpec(inputSpec);
    bool valid = false;
    try {
        valid = inputSpec->Validate(input, output);
    } catch (...) {
        output->AddErrorMessage(
            DescribeValidationFailure(*inputSpec, *input, CurrentExceptionText()));
        return false;
    }
    if (!valid && !output->HasError() && !output->GetRootObject()) {
        output->AddErrorMessage(
            "Command output has no root object nor error messages.  This is a problem with the "
            "command and should be repaired.");
    }
    return valid;
}

}  // namespace

Dispatcher::Dispatcher() {
    auto internal = InternalPlugin::New();
    root = RootNamespace::New(this);
    internal->Initialize();
    RegisterPlugin(internal);
}

Dispatcher::~Dispatcher() {
    // Libraries last: the tree, plug-ins and formatters may all run code that lives in them.
    ResetRegistrations();
    root.reset();
    plugins.clear();
    formatterTable.clear();
    loadedLibraries.clear();
}

void Dispatcher::ResetRegistrations() {
    plugins.clear();
}

void Dispatcher::RegisterPlugin(std::shared_ptr<Plugin> plugin) {
    auto const& name = plugin->GetName();
    try {
        plugin->RegisterNamespaces(root);
    } catch (TindraException const& error) {
        throw TindraException("Error while trying to register the plugin " + name + " " +
                              error.what() + " " + UnavailableUntilResolved(name));
    }
    auto& formatters = plugin->GetFormatters();
    for (auto const& formatter : formatters) {
        auto taken = formatterTable.find(formatter->GetName());
        if (taken != formatterTable.end()) {
            throw TindraException("Error while trying to register the plugin " + name +
                                  "  this plugin has a formatter " + formatter->GetName() +
                                  " that was already registered from the plugin " +
                                  taken->second->GetName() + "  " + UnavailableUntilResolved(name));
        }
    }
    for (auto const& formatter : formatters) {
        formatterTable[formatter->GetName()] = plugin;
    }
    plugins.push_back(std::move(plugin));
}

std::shared_ptr<Command> Dispatcher::GetCommand(std::shared_ptr<CommandInput> input,
                                                std::shared_ptr<CommandOutput> output) {
    std::shared_ptr<NamespaceNode> node;
    auto path = input->GetCommandPath();
    try {
        node = root->ResolveNode(path);
    } catch (TindraException const& error) {
        output->AddErrorMessage(error.what());
    }
    if (!node) {
        output->AddErrorMessage("Unable to find command");
        return nullptr;
    }
    if (node->GetType() != NamespaceNode::COMMAND_NODE) {
        output->AddErrorMessage("Path refers to a namespace, not a command.");
        return nullptr;
    }
    return std::dynamic_pointer_cast<Command>(node);
}

// Whatever a command's declarations, constraints or code throw ends as a message on the
// output: one bad command never takes the process down.
bool Dispatcher::ExecuteCommand(std::shared_ptr<CommandInput> input,
                                std::shared_ptr<CommandOutput> output) {
    auto command = GetCommand(input, output);
    if (!command) {
        return false;
    }
    try {
        if (ValidateInput(*command, input, output)) {
            command->Execute(input, output);
        }
    } catch (...) {
        output->AddErrorMessage("Error on command " + input->GetCommandPathString() + " : " +
                                CurrentExceptionText());
    }
    return !output->HasError();
}

bool Dispatcher::HasFormatter(std::string const& name) const {
    auto entry = formatterTable.find(name);
    return entry != formatterTable.end() && entry->second && entry->second->HasFormatter(name);
}

std::shared_ptr<Formatter> Dispatcher::GetFormatter(std::string const& name) const {
    if (!HasFormatter(name)) {
        return nullptr;
    }
    return formatterTable.at(name)->GetFormatter(name);
}

std::vector<std::shared_ptr<Formatter>> Dispatcher::GetFormatters() const {
    std::vector<std::shared_ptr<Formatter>> formatters;
    formatters.reserve(formatterTable.size());
    for (auto const& entry : formatterTable) {
        formatters.push_back(entry.second->GetFormatter(entry.first));
    }
    return formatters;
}

bool Dispatcher::FormatOutput(std::shared_ptr<CallSpec::Output> output,
                              FormatParameters& parameters, DisplayContext& context,
                              std::ostream& stream) {
    auto const& name = parameters.GetFormatter();
    if (name.empty()) {
        return true;
    }
    auto formatter = GetFormatter(name);
    if (!formatter) {
        output->AddErrorMessage("Unable to find requested formatter: " + name);
        return false;
    }
    try {
        formatter->Format(output, parameters, context, stream);
    } catch (...) {
        output->AddErrorMessage("Unable to format the output with the formatter " + name + ": " +
                                CurrentExceptionText());
        return false;
    }
    return true;
}

FormatParameters Dispatcher::GetDefaultOutputFormatParameters(
    std::shared_ptr<CommandInput> input, std::shared_ptr<CommandOutput> output) {
    auto command = GetCommand(input, output);
    return command ? command->GetDefaultOutputFormatParameters() : FormatParameters();
}

std::vector<std::string> Dispatcher::GetPluginNames() const {
    std::vector<std::string> names;
    names.reserve(plugins.size());
    for (auto const& plugin : plugins) {
        names.push_back(plugin->GetName());
    }
    return names;
}

}  // namespace AutoCli
}  // namespace Tindra
