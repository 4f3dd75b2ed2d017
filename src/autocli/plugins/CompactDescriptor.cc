#include "autocli/plugins/CompactDescriptor.h"

#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>

#include "platform/FileContent.h"
#include "xml/CompactTreeBuilder.h"
#include "xml/SaxDocumentParser.h"

namespace Tindra {
namespace AutoCli {

namespace {

// No text node of a file this small reaches the limit at which the tree builder stops.
size_t const kLargestCompactFile = XML_MAX_TEXT_LENGTH;

// Whether the copy stands in for the parser's tree. That also takes a parse without any
// diagnostic, which the tree reader would print: the event parser keeps quiet, but libxml2
// records the last one in any case.
bool CopiesFaithfully(std::string const& text, CompactTree& tree) {
    CompactTreeBuilder builder(tree);
    SaxDocumentParser parser(builder);
    xmlResetLastError();
    parser.Feed(text.data(), text.size());
    bool const wellFormed = parser.Finish();
    xmlError const* diagnostic = xmlGetLastError();
    bool const silent = diagnostic == nullptr || diagnostic->code == XML_ERR_OK;
    return wellFormed && silent && builder.IsFaithful() && tree.Root() != nullptr;
}

}  // namespace

// A file that libxml2 would read decompressed never parses as a document by itself, and one it
// cannot open is not read here either; both go to the tree reader.
bool ReadCompactDescriptor(std::string const& fileName, CompactTree& tree) {
    std::string text;
    return Platform::ReadFileContent(fileName, kLargestCompactFile, text) &&
           CopiesFaithfully(text, tree);
}

}  // namespace AutoCli
}  // namespace Tindra
