#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_OUTPUTDOCUMENTREADER_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_OUTPUTDOCUMENTREADER_H

// Internal: the reader of command output documents, without any parser types.

#include <memory>
#include <string>

#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace AutoCli {

// Reads a whole command output document. Returns an empty pointer when the text is not
// well-formed XML or its root element holds no value; throws TindraException when the value
// cannot be built.
std::shared_ptr<MetaObj::MetaObject> XmlUtil_ParseXmlOutput(std::string const& text);

}  // namespace AutoCli
}  // namespace Tindra

#endif
