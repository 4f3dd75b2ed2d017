#ifndef TINDRA_TINDRA_H
#define TINDRA_TINDRA_H

// The whole public interface of libtindra, for plug-in authors and the tool itself.

#include "tindra/Export.h"
#include "tindra/TindraException.h"

#include "tindra/metaobj/MetaBool.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaString.h"
#include "tindra/metaobj/MetaStruct.h"
#include "tindra/metaobj/MetaType.h"

#include "tindra/callspec/CallTarget.h"
#include "tindra/callspec/CallTargetSpec.h"
#include "tindra/callspec/Input.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/Output.h"
#include "tindra/callspec/OutputSpec.h"
#include "tindra/callspec/ParameterConstraint.h"
#include "tindra/callspec/ParameterSpec.h"

#include "tindra/autocli/formatters/DisplayContext.h"
#include "tindra/autocli/formatters/FieldHelpers.h"
#include "tindra/autocli/formatters/FormatParameters.h"
#include "tindra/autocli/formatters/Formatter.h"

#include "tindra/autocli/formatters/CliDispatcherHelpFormatter.h"
#include "tindra/autocli/formatters/CommandHelpFormatter.h"
#include "tindra/autocli/formatters/JsonFormatter.h"
#include "tindra/autocli/formatters/PythonFormatter.h"
#include "tindra/autocli/formatters/SimpleFormatter.h"
#include "tindra/autocli/formatters/TableFormatter.h"
#include "tindra/autocli/formatters/XmlFormatter.h"

#include "tindra/autocli/tree/Command.h"
#include "tindra/autocli/tree/CommandInput.h"
#include "tindra/autocli/tree/CommandOutput.h"
#include "tindra/autocli/tree/CommandSpec.h"
#include "tindra/autocli/tree/Dispatcher.h"
#include "tindra/autocli/tree/Namespace.h"
#include "tindra/autocli/tree/NamespaceNode.h"
#include "tindra/autocli/tree/Plugin.h"
#include "tindra/autocli/tree/RootNamespace.h"

#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/extension/ShellCmd.h"

#include "tindra/autocli/plugins/CommandList.h"
#include "tindra/autocli/plugins/DescriptorReaders.h"
#include "tindra/autocli/plugins/InternalPlugin.h"
#include "tindra/autocli/plugins/SharedLibraryPlugin.h"
#include "tindra/autocli/plugins/XmlPlugin.h"

#include "tindra/autocli/xml/XmlNode.h"
#include "tindra/autocli/xml/XmlUtil.h"

#include "tindra/autocli/cli/CliDispatcher.h"
#include "tindra/autocli/cli/OptionParser.h"

#endif
