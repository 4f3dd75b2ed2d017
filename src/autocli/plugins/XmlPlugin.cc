// Reads a plug-in descriptor into pending registrations and hangs them into the tree.
#include "tindra/autocli/plugins/XmlPlugin.h"

#include <libxml/parser.h>

#include "platform/BoundedFileSource.h"
#include "platform/RegularFile.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/plugins/DescriptorReaders.h"
#include "xml/XmlDocument.h"
#include "xml/XmlUtil.h"

namespace Tindra {
namespace AutoCli {

namespace {

char const kDescriptorVersion[] = "1.0.0";

// Far above any real descriptor; a larger file is refused rather than read into memory.
size_t const kLargestDescriptor = 10 * 1000 * 1000;

// Runs a reading step and rewraps its error with the context the caller knows; the context
// text is only composed on error, as steps run once per command.
template <typename Context, typename Step>
void WithContext(Context&& context, Step&& step) {
    try {
        step();
    } catch (TindraException const& error) {
        throw TindraException(context() + error.what());
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

size_t CountChildrenTagged(xmlNode* node, char const* tag) {
    size_t count = 0;
    ForEachChildTagged(node, tag, [&count](xmlNode*) { ++count; });
    return count;
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
            [this] {
                return "Unable to handle XML Plugin " + fileName +
                       ".  There was an error while parsing: ";
            },
            [this] { ReadDescriptor(); });
    } catch (...) {
        pending.clear();  // a faulty file registers nothing, not even what preceded the fault
        throw;
    }
}

void XmlPlugin::ReadRoot(xmlNode* root) {
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

// The registrations stay with the plug-in for its life, so they get the room they need and
// no more.
void XmlPlugin::AddNamespaces(xmlNode* node) {
    pending.reserve(pending.size() + CountChildrenTagged(node, "namespace"));
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
    pending.reserve(pending.size() + CountChildrenTagged(node, "command"));
    ForEachChildTagged(node, "command", [this](xmlNode* child) { AddCommand(child); });
}

void XmlPlugin::AddCommand(xmlNode* node) {
    std::string const path = XmlUtil_ExtractAttribute(node, "path");
    if (path.empty()) {
        throw TindraException(
            "Invalid command specification found.  <command> tags must have a non-empty "
            "'path' attribute");
    }
    std::string description = XmlUtil_GetContentForChildByTag(node, "description");
    WithContext([&] { return "Unable to register the command 'ostrel " + path + "'  Error was "; },
                [&] { ReadCommand(node, path, std::move(description)); });
}

void XmlPlugin::ReadCommand(xmlNode* node, std::string const& path, std::string description) {
    std::shared_ptr<ExtensionCommand> command = ExtensionCommand::New();
    command->SetDescription(std::move(description));
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

// The bytes come from the descriptor opened once as a regular file, never again by name: a
// name swapped for a FIFO after the check would block the parser.
void XmlPlugin::ReadDescriptor() {
    std::string const kind = Platform::NonRegularFileKind(fileName);
    if (!kind.empty()) {
        throw TindraException(fileName + " is " + kind + ", not a regular file");
    }
    size_t size = 0;
    Platform::UniqueFd file = Platform::OpenRegularFile(fileName, &size);
    Platform::BoundedFileSource source(file.Get(), size, kLargestDescriptor);
    XmlDocument document;
    if (source.Readable()) {
        // Compact storage of short texts only saves allocations; the tree is the same.
        document = ParseXmlDocument(&Platform::BoundedFileSource::Read, &source, fileName.c_str(),
                                    XML_PARSE_COMPACT);
    }
    xmlNode* root = document ? xmlDocGetRootElement(document.get()) : nullptr;
    if (root == nullptr) {
        throw TindraException("Unable to parse XML descriptor: " + fileName);
    }
    ReadRoot(root);
}

std::list<std::string> XmlPlugin::SplitPath(std::string const& path) {
    // Every piece between dots but the empty one after a final dot: "" gives no name and "."
    // one empty name, as token splitting at a dot does.
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
