#ifndef TINDRA_SRC_AUTOCLI_PLUGINS_DESCRIPTORREADERS_H
#define TINDRA_SRC_AUTOCLI_PLUGINS_DESCRIPTORREADERS_H

// Internal: readers of the parts of a command element in a plug-in descriptor. Each throws
// TindraException with its own message; XmlPlugin wraps them with the file and the command.

#include <libxml/tree.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/OutputSpec.h"
#include "tindra/callspec/ParameterConstraint.h"

namespace Tindra {
namespace AutoCli {

// <input-spec>: parameters and supported contexts.
std::shared_ptr<CallSpec::InputSpec> ExtractInputSpec(xmlNode* node);
// One <parameter>, added to spec.
void ExtractInputParam(xmlNode* node, std::shared_ptr<CallSpec::InputSpec> spec);
// One <constraint> of a parameter.
std::shared_ptr<CallSpec::ParameterConstraint> ExtractParamConstraint(xmlNode* node);
// An <enum>: (value, description) pairs in document order.
std::vector<std::pair<std::string, std::string>> ExtractEnum(xmlNode* node);

// <meta-data>: free-form fields of the command.
void ExtractMetaData(xmlNode* node, std::shared_ptr<ExtensionCommand> command);
// <format-parameters>: the command's default formatter and its parameters.
void ExtractFormatParams(xmlNode* node, std::shared_ptr<ExtensionCommand> command);
// <output-spec>: the prototype of the command's output, if it holds one.
std::shared_ptr<CallSpec::OutputSpec> ExtractOutputSpec(xmlNode* node);

// Whether the node carries that name (elements by tag; text and comments as the parser names
// them).
bool HasTag(xmlNode const* node, char const* tag);
// The text of a text, CDATA or comment node.
std::string NodeContent(xmlNode const* node);

}  // namespace AutoCli
}  // namespace Tindra

#endif
