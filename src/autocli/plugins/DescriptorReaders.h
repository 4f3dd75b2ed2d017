#ifndef TINDRA_SRC_AUTOCLI_PLUGINS_DESCRIPTORREADERS_H
#define TINDRA_SRC_AUTOCLI_PLUGINS_DESCRIPTORREADERS_H

// Internal: readers of the parts of a command element in a plug-in descriptor. Each throws
// TindraException with its own message; XmlPlugin wraps them with the file and the command.

#include <libxml/tree.h>

#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/plugins/DescriptorReaders.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/OutputSpec.h"
#include "tindra/callspec/ParameterConstraint.h"
#include "xml/CompactNode.h"
#include "xml/ValueGrammar.h"

namespace Tindra {
namespace AutoCli {

// Each reader takes a node of the parser's tree (xmlNode) or of its compact copy
// (CompactNode const); the public header declares the xmlNode entry points.

// <input-spec>: parameters and supported contexts.
template <typename Node>
std::shared_ptr<CallSpec::InputSpec> ExtractInputSpec(Node* node);
// One <parameter>, added to spec.
template <typename Node>
void ExtractInputParam(Node* node, std::shared_ptr<CallSpec::InputSpec> spec);
// One <constraint> of a parameter.
template <typename Node>
std::shared_ptr<CallSpec::ParameterConstraint> ExtractParamConstraint(Node* node);
// An <enum>: (value, description) pairs in document order.
template <typename Node>
std::vector<std::pair<std::string, std::string>> ExtractEnum(Node* node);

// <meta-data>: free-form fields of the command.
template <typename Node>
void ExtractMetaData(Node* node, std::shared_ptr<ExtensionCommand> command);
// <format-parameters>: the command's default formatter and its parameters.
template <typename Node>
void ExtractFormatParams(Node* node, std::shared_ptr<ExtensionCommand> command);
// <output-spec>: the prototype of the command's output, if it holds one.
template <typename Node>
std::shared_ptr<CallSpec::OutputSpec> ExtractOutputSpec(Node* node);

// Whether the node carries that name (elements by tag; text and comments as the parser names
// them).
template <typename Node>
bool HasTag(Node const* node, char const* tag) {
    char const* name = GrammarNodeName(node);
    return name[0] == tag[0] && std::strcmp(name, tag) == 0;  // most names differ at once
}

// The text of a text, CDATA or comment node.
template <typename Node>
std::string NodeContent(Node const* node) {
    char const* content = ContentOf(node);
    return content != nullptr ? content : "";
}

}  // namespace AutoCli
}  // namespace Tindra

#endif
