#ifndef TINDRA_AUTOCLI_PLUGINS_DESCRIPTORREADERS_H
#define TINDRA_AUTOCLI_PLUGINS_DESCRIPTORREADERS_H

// Readers of the parts of a command element in a plug-in descriptor, on libxml2's tree. Each
// throws TindraException with its own message; XmlPlugin wraps them with the file and the
// command.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tindra/Export.h"
#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/xml/XmlNode.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/OutputSpec.h"
#include "tindra/callspec/ParameterConstraint.h"

namespace Tindra {
namespace AutoCli {

// <input-spec>: parameters and supported contexts.
TINDRA_EXPORT std::shared_ptr<CallSpec::InputSpec> ExtractInputSpec(xmlNode* node);
// One <parameter>, added to spec.
TINDRA_EXPORT void ExtractInputParam(xmlNode* node, std::shared_ptr<CallSpec::InputSpec> spec);
// One <constraint> of a parameter.
TINDRA_EXPORT std::shared_ptr<CallSpec::ParameterConstraint> ExtractParamConstraint(xmlNode* node);
// An <enum>: (value, description) pairs in document order.
TINDRA_EXPORT std::vector<std::pair<std::string, std::string>> ExtractEnum(xmlNode* node);

// <meta-data>: free-form fields of the command.
TINDRA_EXPORT void ExtractMetaData(xmlNode* node, std::shared_ptr<ExtensionCommand> command);
// <format-parameters>: the command's default formatter and its parameters.
TINDRA_EXPORT void ExtractFormatParams(xmlNode* node, std::shared_ptr<ExtensionCommand> command);
// <output-spec>: the prototype of the command's output, if it holds one.
TINDRA_EXPORT std::shared_ptr<CallSpec::OutputSpec> ExtractOutputSpec(xmlNode* node);

}  // namespace AutoCli
}  // namespace Tindra

#endif
