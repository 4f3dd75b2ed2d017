// Reads a plug-in descriptor into pending registrations and hangs them into the tree.
#include "tindra/autocli/plugins/XmlPlugin.h"

#include <libxml/parser.h>

#include "autocli/extension/ValueGrammar.h"
#include "autocli/extension/XmlUtil.h"
#include "autocli/plugins/DescriptorReaders.h"
#include "autocli/plugins/XmlDocument.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

namespace {

char const kDescriptorVersion[] = "1.0.0";

// Runs a reading step and rewraps its error with the context the caller knows.
template <typename Step>
void WithContext(std::string const& context, Step&& step) {
    try {
        step();
    } catch (TindraException const& error) {
        throw TindraException(context + error.what());
    }
}

// Applies step to every child element of node that carries the tag, in document order.
template <typename Step>
void ForEachChildTagged(xmlNode* node, char const* tag, Step&& step) {
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (HasTag(child, tag)) {
            step(child);
        }
    }
}

}  // namespace

std::shared_ptr<XmlPlugin> XmlPlugin::New(std::string const& fileName) {
    return std::make_shared<XmlPlugin>(fileName);
}

XmlPlugin::XmlPlugin(std::string const& fileName) : fileName(fileName) {}

void XmlPlugin::Initialize() {
    LIBXML_TEST_VERSION
    try {
        WithContext(
            "Unable to handle XML Plugin " + fileName + ".  There was an error while parsing: ",
            [this] { ReadDescriptor(); });
    } catch (...) {
        pending.clear();  // a faulty file registers nothing, not even what preceded the fault
        throw;
    }
}

void XmlPlugin::ReadDescriptor() {
    // Compact storage of short texts only saves allocations; the tree is the same.
    XmlDocument const document(xmlReadFile(fileName.c_str(), nullptr, XML_PARSE_COMPACT));
    xmlNode* root = document ? xmlDocGetRootElement(document.get()) : nullptr;
    if (root == nullptr) {
        throw TindraException("Unable to parse XML descriptor: " + fileName);
    }
    if (XmlUtil_GetContentForChildByTag(root, "version") != kDescriptorVersion) {
        throw TindraException("Unknown ostrel extention version.  Valid versions are: '1.0.0'");
    }
    xmlNode* namespaces = XmlUtil_FindChildNode(root, "namespaces");
    if (namespaces != nullptr) {
        AddNamespaces(namespaces);
    }
    xmlNode* commands = XmlUtil_FindChildNode(root, "commands");
    if (commands != nullptr) {
        AddCommands(commands);
    }
    if (namespaces == nullptr && commands == nullptr) {
        throw TindraException("Unable to find any namespaces or commands to register for plugin " +
                              fileName);
    }
}

void XmlPlugin::AddNamespaces(xmlNode* node) {
    ForEachChildTagged(node, "namespace", [this](xmlNode* child) { AddNamespace(child); });
}

void XmlPlugin::AddNamespace(xmlNode* node) {
    std::string path = XmlUtil_ExtractAttribute(node, "path");
    std::string description = XmlUtil_GetContentForChildByTag(node, "description");
    if (path.empty() || description.empty()) {
        throw TindraException(
            "Unable to register a namespace without valid 'path' attribute or <description> "
            "being present.");
    }
    std::shared_ptr<Namespace> space = Namespace::New();
    space->SetDescription(std::move(description));
    pending.emplace_back(std::move(path), std::move(space));
}

void XmlPlugin::AddCommands(xmlNode* node) {
    ForEachChildTagged(node, "command", [this](xmlNode* child) { AddCommand(child); });
}

void XmlPlugin::AddCommand(xmlNode* node) {
    std::string const path = XmlUtil_ExtractAttribute(node, "path");
    if (path.empty()) {
        throw TindraException(
            "Invalid command specification found.  <command> tags must have a non-empty "
            "'path' attribute");
    }
    std::string const description = XmlUtil_GetContentForChildByTag(node, "description");
    WithContext("Unable to register the command 'ostrel " + path + "'  Error was ",
                [&] { ReadCommand(node, path, description); });
}

void XmlPlugin::ReadCommand(xmlNode* node, std::string const& path,
                            std::string const& description) {
    std::shared_ptr<ExtensionCommand> command = ExtensionCommand::New();
    command->SetDescription(description);
    if (xmlNode* metaData = XmlUtil_FindChildNode(node, "meta-data")) {
        ExtractMetaData(metaData, command);
    }
    xmlNode* inputSpec = XmlUtil_FindChildNode(node, "input-spec");
    if (inputSpec == nullptr) {
        throw TindraException(
            "Unable to find <input-spec> element, which is required for a command.");
    }
    command->SetInputSpec(ExtractInputSpec(inputSpec));
    xmlNode* outputSpec = XmlUtil_FindChildNode(node, "output-spec");
    if (outputSpec == nullptr) {
        throw TindraException(
            "Unable to find <output-spec> element, which is required for a command.");
    }
    command->SetOutputSpec(ExtractOutputSpec(outputSpec));
    xmlNode* formatParameters = XmlUtil_FindChildNode(node, "format-parameters");
    if (formatParameters == nullptr) {
        throw TindraException(
            "Unable to find <format-parameters> element, which is required for a command.");
    }
    ExtractFormatParams(formatParameters, command);
    std::string const execute = XmlUtil_GetContentForChildByTag(node, "execute");
    if (execute.empty()) {
        throw TindraException(
            "Missing or empty <execute> tag.  This tag must specify a valid execution string "
            "for this command.");
    }
    command->SetExecuteCommand(execute);
    command->SetStdin(XmlUtil_GetContentForChildByTag(node, "stdin"));
    pending.emplace_back(path, std::move(command));
}

std::list<std::string> XmlPlugin::SplitPath(std::string const& path) {
    // The tokens of regex token splitting at "\\.": every piece between dots, without the one
    // empty piece after a final dot (so "" gives none and "." gives one empty name).
    std::list<std::string> names;
    size_t start = 0;
    for (size_t dot = path.find('.'); dot != std::string::npos; dot = path.find('.', start)) {
        names.emplace_back(path, start, dot - start);
        start = dot + 1;
    }
    if (start < path.size()) {
        names.emplace_back(path, start);
    }
    return names;
}

// Validates every registration against the tree before registering any, so that a conflict
// with another plug-in leaves the tree untouched.
void XmlPlugin::RegisterNamespaces(std::shared_ptr<Namespace> root) {
    for (Registration const& registration : pending) {
        CheckRegistration(*root, registration);
    }
    for (Registration const& registration : pending) {
        Register(*root, registration);
    }
}

namespace {

// The node at path below root, or nothing where resolving it would fail: the same answer as
// ResolveNode with its failures ignored, without raising one exception per missing parent.
std::shared_ptr<NamespaceNode> FindInTree(Namespace& root, std::list<std::string> const& path) {
    std::shared_ptr<NamespaceNode> node = root.GetThis();
    for (std::string const& name : path) {
        if (node->GetType() == NamespaceNode::COMMAND_NODE) {
            return nullptr;
        }
        node = node->GetNamespaceNode(name);
        if (!node) {
            return nullptr;
        }
    }
    return node;
}

// A top-level namespace may be declared by several plug-ins if they describe it alike.
bool IsSharedTopLevelNamespace(NamespaceNode& parent, NamespaceNode& existing,
                               NamespaceNode& node) {
    return parent.GetType() == NamespaceNode::ROOT_NAMESPACE_NODE &&
           existing.GetType() == NamespaceNode::NAMESPACE_NODE &&
           node.GetType() == NamespaceNode::NAMESPACE_NODE;
}

}  // namespace

void XmlPlugin::CheckRegistration(Namespace& root, Registration const& registration) {
    auto const& [path, node] = registration;
    if (path.empty()) {
        throw TindraException("Invalid NULL registration found in XML plugin: " + fileName +
                              " all namespaces and commands must have a valid 'path' field");
    }
    if (!node) {
        throw TindraException("Invalid null node: " + path);
    }
    std::list<std::string> parentPath = SplitPath(path);
    std::string const name = TakeLastName(parentPath);
    std::shared_ptr<NamespaceNode> const parent = FindInTree(root, parentPath);
    if (!parent) {
        return;  // typically declared earlier in this file, so in the tree only in pass two
    }
    std::shared_ptr<NamespaceNode> const existing = parent->GetNamespaceNode(name);
    if (!existing) {
        return;
    }
    if (!IsSharedTopLevelNamespace(*parent, *existing, *node)) {
        throw TindraException("Ostrel path is already registered: " + path);
    }
    if (existing->GetDescription() != node->GetDescription()) {
        throw TindraException("Duplicate top-level namespaces must have the same description: " +
                              path);
    }
}

void XmlPlugin::Register(Namespace& root, Registration const& registration) {
    auto const& [path, node] = registration;
    std::list<std::string> parentPath = SplitPath(path);
    std::string const name = TakeLastName(parentPath);
    std::shared_ptr<NamespaceNode> parent = root.ResolveNode(parentPath);
    if (!parent) {
        parent = root.GetThis();
    }
    if (parent->GetType() == NamespaceNode::ROOT_NAMESPACE_NODE) {
        std::shared_ptr<NamespaceNode> const existing = parent->GetNamespaceNode(name);
        if (existing && IsSharedTopLevelNamespace(*parent, *existing, *node) &&
            existing->GetDescription() == node->GetDescription()) {
            return;
        }
    }
    parent->RegisterNamespaceNode(node, name);
}

std::string XmlPlugin::TakeLastName(std::list<std::string>& names) {
    if (names.empty()) {
        return std::string();
    }
    std::string last = std::move(names.back());
    names.pop_back();
    return last;
}

bool XmlPlugin::HasFormatter(std::string const&) {
    return false;
}

std::shared_ptr<Formatter> XmlPlugin::GetFormatter(std::string const&) {
    throw TindraException("Xml Plugin doesn't not support formatters");
}

std::vector<std::shared_ptr<Formatter>>& XmlPlugin::GetFormatters() {
    static std::vector<std::shared_ptr<Formatter>> none;
    return none;
}

}  // namespace AutoCli
}  // namespace Tindra
