// Reads the meta data, default format and output prototype of a descriptor command.
#include <string>

#include "tindra/TindraException.h"
#include "tindra/autocli/plugins/DescriptorReaders.h"
#include "xml/ValueGrammar.h"
#include "xml/XmlUtil.h"

namespace Tindra {
namespace AutoCli {

using CallSpec::OutputSpec;

namespace {

// Descriptors have no element of their own for usage examples: an entry named
// "example:<arguments>" is kept as meta data and also shown in the command's help.
void AddExampleFromMetaData(std::string const& name, ExtensionCommand& command) {
    static std::string const prefix = "example:";
    if (name.compare(0, prefix.size(), prefix) == 0) {
        command.AddExample(name.substr(prefix.size()), command.GetMetaDataField(name));
    }
}

void ExtractMetaDataEntry(xmlNode* entry, ExtensionCommand& command) {
    std::string name;
    // Each piece of content sets the field again, so the last piece wins; an empty entry
    // sets nothing and its name is not looked at.
    for (xmlNode* piece = FirstChildOf(entry); piece != nullptr; piece = piece->next) {
        if (!CarriesContent(piece)) {
            continue;
        }
        name = XmlUtil_ExtractAttribute(entry, "name");
        if (name.empty()) {
            throw TindraException(
                "Error parsing 'meta-data-entry', missing required attribute 'name'");
        }
        command.SetMetaDataField(name, NodeContent(piece));
    }
    if (!name.empty()) {
        AddExampleFromMetaData(name, command);
    }
}

}  // namespace

void ExtractMetaData(xmlNode* node, std::shared_ptr<ExtensionCommand> command) {
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (IsSkippedChildName(GrammarNodeName(child))) {
            continue;
        }
        if (!HasTag(child, "meta-data-entry")) {
            throw TindraException(
                std::string(
                    "Found unexpected tag while building meta-data set.  Unexpected tag was: ") +
                GrammarNodeName(child));
        }
        ExtractMetaDataEntry(child, *command);
    }
}

void ExtractFormatParams(xmlNode* node, std::shared_ptr<ExtensionCommand> command) {
    bool formatterSeen = false;
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (HasTag(child, "formatter")) {
            if (formatterSeen) {
                throw TindraException("Invalid plugin format.  Duplicate <formatter> tags found");
            }
            formatterSeen = true;
            command->SetDefaultOutputFormatter(XmlUtil_GetContent(child));
        } else if (HasTag(child, "format-parameter")) {
            command->SetDefaultOutputParameter(XmlUtil_ExtractAttribute(child, "name"),
                                               XmlUtil_GetContent(child));
        }
    }
}

std::shared_ptr<OutputSpec> ExtractOutputSpec(xmlNode* node) {
    std::shared_ptr<OutputSpec> spec = OutputSpec::New();
    bool found = false;
    for (xmlNode* child = FirstChildOf(node); child != nullptr; child = child->next) {
        if (IsSkippedChildName(GrammarNodeName(child))) {
            continue;
        }
        if (found) {
            throw TindraException(
                std::string("Found more than one node under 'output-spec', where only one node "
                            "is supported.  The tag was ") +
                GrammarNodeName(child));
        }
        try {
            spec->SetRootObject(XmlUtil_BuildMetaObject(child));
        } catch (TindraException const& error) {
            throw TindraException(std::string("Unable to build output spec.  Error was ") +
                                  error.what());
        }
        found = true;
    }
    return spec;
}

}  // namespace AutoCli
}  // namespace Tindra
