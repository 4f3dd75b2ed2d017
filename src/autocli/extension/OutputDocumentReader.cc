// Reads command output documents without building their tree: outputs may hold hundreds of
// thousands of rows, and the values are all that is kept.
#include "autocli/extension/OutputDocumentReader.h"

#include "autocli/extension/OutputValueBuilder.h"
#include "autocli/extension/SaxDocumentParser.h"
#include "autocli/extension/ValueGrammar.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

std::shared_ptr<MetaObj::MetaObject> XmlUtil_ParseXmlOutput(std::string const& text) {
    OutputValueBuilder builder;
    SaxDocumentParser parser(builder);
    // A document that is not well-formed yields nothing, whatever was found before the fault.
    if (!parser.Parse(text)) {
        return nullptr;
    }
    if (!builder.SawRootElement()) {
        throw TindraException(NoRootElementMessage());
    }
    if (builder.Failed()) {
        throw TindraException(OutputBuildErrorMessage(builder.Error().c_str()));
    }
    return builder.Value();
}

}  // namespace AutoCli
}  // namespace Tindra
