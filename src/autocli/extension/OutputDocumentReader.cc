// Reads command output documents without building their tree: outputs may hold hundreds of
// thousands of rows, and the values are all that is kept.
#include "autocli/extension/StreamValueBuilder.h"
#include "autocli/extension/ValueGrammar.h"
#include "autocli/extension/XmlStreamReader.h"
#include "autocli/extension/XmlUtil.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

namespace {

// What one pass over the document found. A build error is only reported once the whole
// document is known to be well-formed, since a malformed document yields no value at all.
struct DocumentPass {
    bool sawRoot = false;
    bool buildFailed = false;
    std::string buildError;
    std::shared_ptr<MetaObj::MetaObject> value;
};

void ReadRootValue(XmlStreamReader& reader, DocumentPass& pass) {
    try {
        StreamValueBuilder builder(reader);
        pass.value = builder.BuildFirstValueChild();
    } catch (TindraException const& error) {
        pass.buildFailed = true;
        pass.buildError = error.what();
        pass.value.reset();
    }
}

DocumentPass ReadWholeDocument(XmlStreamReader& reader) {
    DocumentPass pass;
    while (reader.Read()) {
        if (!pass.sawRoot && reader.IsElementStart()) {
            pass.sawRoot = true;
            ReadRootValue(reader, pass);
        }
    }
    return pass;
}

}  // namespace

std::shared_ptr<MetaObj::MetaObject> XmlUtil_ParseXmlOutput(std::string const& text) {
    DocumentPass pass;
    try {
        XmlStreamReader reader(text);
        pass = ReadWholeDocument(reader);
    } catch (MalformedDocument const&) {
        return nullptr;
    }
    if (!pass.sawRoot) {
        throw TindraException(NoRootElementMessage());
    }
    if (pass.buildFailed) {
        throw TindraException(OutputBuildErrorMessage(pass.buildError.c_str()));
    }
    return pass.value;
}

}  // namespace AutoCli
}  // namespace Tindra
