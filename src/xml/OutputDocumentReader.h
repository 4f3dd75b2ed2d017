#ifndef TINDRA_SRC_XML_OUTPUTDOCUMENTREADER_H
#define TINDRA_SRC_XML_OUTPUTDOCUMENTREADER_H

// Internal: the reader of command output documents, without any parser types.

#include <cstddef>
#include <memory>
#include <string>

#include "tindra/autocli/xml/XmlUtil.h"
#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace AutoCli {

// Reads a command output document piece by piece as the command writes it: Finish gives what
// XmlUtil_ParseXmlOutput gives for the whole text.
class OutputDocumentStream {
public:
    OutputDocumentStream();
    ~OutputDocumentStream();
    OutputDocumentStream(OutputDocumentStream const&) = delete;
    OutputDocumentStream& operator=(OutputDocumentStream const&) = delete;

    void Feed(char const* data, size_t length);
    std::shared_ptr<MetaObj::MetaObject> Finish();

private:
    struct Reader;
    std::unique_ptr<Reader> reader;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
