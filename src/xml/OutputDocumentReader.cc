// Reads command output documents as they arrive, keeping only the part of the tree still
// being read: outputs may hold hundreds of thousands of rows, and the values are all that is
// kept.
#include "xml/OutputDocumentReader.h"

#include "tindra/TindraException.h"
#include "xml/OutputDocumentParser.h"
#include "xml/OutputValueBuilder.h"
#include "xml/ValueGrammar.h"

namespace Tindra {
namespace AutoCli {

struct OutputDocumentStream::Reader {
    Reader() : parser(builder) {}
    OutputValueBuilder builder;
    OutputDocumentParser parser;
};

OutputDocumentStream::OutputDocumentStream() : reader(std::make_unique<Reader>()) {}

OutputDocumentStream::~OutputDocumentStream() = default;

void OutputDocumentStream::Feed(char const* data, size_t length) {
    reader->parser.Feed(data, length);
}

std::shared_ptr<MetaObj::MetaObject> OutputDocumentStream::Finish() {
    // A document that is not well-formed yields nothing, whatever was found before the fault.
    if (!reader->parser.Finish()) {
        return nullptr;
    }
    OutputValueBuilder const& builder = reader->builder;
    if (!builder.SawRootElement()) {
        throw TindraException(NoRootElementMessage());
    }
    if (builder.Failed()) {
        throw TindraException(OutputBuildErrorMessage(builder.Error().c_str()));
    }
    return builder.Value();
}

std::shared_ptr<MetaObj::MetaObject> XmlUtil_ParseXmlOutput(std::string const& text) {
    OutputDocumentStream stream;
    stream.Feed(text.data(), text.size());
    return stream.Finish();
}

}  // namespace AutoCli
}  // namespace Tindra
