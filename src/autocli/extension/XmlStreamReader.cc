#include "autocli/extension/XmlStreamReader.h"

#include <climits>

namespace Tindra {
namespace AutoCli {

namespace {

// The name libxml2 gives a document read from a command's standard output.
char const* const kDocumentName = "STDOUT";

}  // namespace

XmlStreamReader::XmlStreamReader(std::string const& text) {
    // The parser counts bytes in an int; a larger text cannot be read and counts as malformed.
    if (text.size() > static_cast<size_t>(INT_MAX)) {
        return;
    }
    reader.reset(
        xmlReaderForMemory(text.data(), static_cast<int>(text.size()), kDocumentName, nullptr, 0));
    if (reader) {
        xmlTextReaderSetStructuredErrorHandler(reader.get(), &XmlStreamReader::OnParserError, this);
    }
}

// Diagnostics are dropped: the parser's verdict on well-formedness comes from Read.
void XmlStreamReader::OnParserError(void*, xmlError*) {}

bool XmlStreamReader::Read() {
    if (!reader) {
        throw MalformedDocument();
    }
    int result = xmlTextReaderRead(reader.get());
    if (result < 0) {
        throw MalformedDocument();
    }
    return result == 1;
}

bool XmlStreamReader::IsElementStart() const {
    return xmlTextReaderNodeType(reader.get()) == XML_READER_TYPE_ELEMENT;
}

bool XmlStreamReader::IsEndElementAt(int depth) const {
    return xmlTextReaderNodeType(reader.get()) == XML_READER_TYPE_END_ELEMENT && Depth() == depth;
}

bool XmlStreamReader::IsElementWithContent() const {
    return IsElementStart() && xmlTextReaderIsEmptyElement(reader.get()) != 1;
}

void XmlStreamReader::SkipSubtree() {
    if (!IsElementWithContent()) {
        return;
    }
    int const depth = Depth();
    while (Read()) {
        if (IsEndElementAt(depth)) {
            return;
        }
    }
    throw MalformedDocument();
}

}  // namespace AutoCli
}  // namespace Tindra
