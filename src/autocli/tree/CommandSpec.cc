#include "tindra/autocli/tree/CommandSpec.h"

#include <boost/algorithm/string/join.hpp>

#include "tindra/TindraException.h"
#include "tindra/callspec/ParameterSpec.h"

namespace Tindra {
namespace AutoCli {

namespace {

// The one way a command refuses to act as a namespace.
[[noreturn]] void ThrowNoChildren(std::string const& opening, std::string const& words,
                                  std::string const& middle, std::string const& commandPath) {
    throw TindraException(opening + words + middle + commandPath +
                          "'. Commands cannot have sub-commands or sub-namespaces.");
}

std::shared_ptr<CallSpec::ParameterSpec> NewHelpParameter() {
    auto help = CallSpec::ParameterSpec::New("help", CallSpec::ParamBool);
    help->SetShortName("h");
    help->SetDescription("Show the help message.");
    help->SetRequired(false);
    return help;
}

}  // namespace

std::shared_ptr<CallSpec::InputSpec> CommandSpec::GetInputSpec() {
    if (!inputSpec) {
        // Cached before the help parameter goes in: a clash there is reported once, not on
        // every later call.
        inputSpec = GetInputSpecInternal();
        inputSpec->AddParameter(NewHelpParameter());
    }
    return inputSpec;
}

std::shared_ptr<CallSpec::OutputSpec> CommandSpec::GetOutputSpec() {
    if (!outputSpec) {
        outputSpec = GetOutputSpecInternal();
    }
    return outputSpec;
}

std::shared_ptr<NamespaceNode> CommandSpec::GetThis() {
    return shared_from_this();
}

bool CommandSpec::HasNamespaceNode(std::string const&) {
    return false;
}

std::shared_ptr<NamespaceNode> CommandSpec::GetNamespaceNode(std::string const& childName) {
    ThrowNoChildren("Unable to find a namespace or command with the name '", childName,
                    "' on the command '", GetPathString(' '));
}

void CommandSpec::RegisterNamespaceNode(std::shared_ptr<NamespaceNode>, std::string childName) {
    ThrowNoChildren("Attempt to register a command or namespace '", childName, "' on command '",
                    GetPathString(' '));
}

void CommandSpec::RegisterNamespaceNode(std::shared_ptr<NamespaceNode> node,
                                        char const* childName) {
    RegisterNamespaceNode(std::move(node), std::string(childName));
}

std::shared_ptr<NamespaceNode> CommandSpec::ResolveNode(std::list<std::string>& path) {
    ThrowNoChildren("Unable to find a namespace or command with the name '",
                    boost::algorithm::join(path, " "), "' on the command '", GetPathString(' '));
}

Dispatcher* CommandSpec::GetDispatcher() {
    auto parentNode = GetParent();
    if (!parentNode) {
        throw TindraException("Invalid state for command with name '" + GetName() +
                              "'. No parent node has been set.");
    }
    return parentNode->GetDispatcher();
}

void CommandSpec::SetParent(std::shared_ptr<NamespaceNode> newParent) {
    parent = newParent;
}

std::shared_ptr<NamespaceNode> CommandSpec::GetParent() {
    return parent.lock();
}

std::string const& CommandSpec::GetMetaDataField(std::string const& fieldName) const {
    static std::string const absent;
    auto found = metaData.find(fieldName);
    return found == metaData.end() ? absent : found->second;
}

void CommandSpec::SetMetaDataField(std::string fieldName, std::string value) {
    metaData[std::move(fieldName)] = std::move(value);
}

void CommandSpec::SetMetaDataField(char const* fieldName, char const* value) {
    SetMetaDataField(std::string(fieldName), std::string(value));
}

void CommandSpec::AddExample(std::string arguments, std::string description) {
    examples.emplace_back(std::move(arguments), std::move(description));
}

void CommandSpec::AddExample(char const* arguments, char const* description) {
    AddExample(std::string(arguments), std::string(description));
}

void CommandSpec::SetDefaultOutputFormatter(std::string formatterName) {
    defaultOutputFormat.SetFormatter(std::move(formatterName));
}

void CommandSpec::SetDefaultOutputFormatter(char const* formatterName) {
    defaultOutputFormat.SetFormatter(formatterName);
}

void CommandSpec::SetDefaultOutputParameter(std::string key, std::string value) {
    defaultOutputFormat.SetParameter(std::move(key), std::move(value));
}

void CommandSpec::SetDefaultOutputParameter(char const* key, char const* value) {
    defaultOutputFormat.SetParameter(key, value);
}

}  // namespace AutoCli
}  // namespace Tindra
