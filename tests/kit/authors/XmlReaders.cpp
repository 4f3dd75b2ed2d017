// An outside program that calls each of the library's XML node and descriptor readers once,
// through the installed headers. Prints every mismatch and exits with their count.
#include <tindra/tindra.h>

#include <libxml/tree.h>  // after the library's own declaration of the node type

#include <iostream>
#include <string>
#include <vector>

#include "ParsedDocument.h"

namespace {

using namespace Tindra;
using namespace Tindra::AutoCli;

int failures = 0;

void Expect(std::string const& expected, std::string const& actual, char const* what) {
    if (expected != actual) {
        std::cout << "FAILED: " << what << ": expected [" << expected << "], got [" << actual
                  << "]\n";
        ++failures;
    }
}

// The root element of a document that stays alive for the rest of the program.
xmlNode* Element(std::string const& text) {
    static std::vector<ParsedDocument> documents;
    documents.push_back(Parse(text));
    return xmlDocGetRootElement(documents.back().get());
}

void NodeReaders() {
    xmlNode* command = Element(
        "<command path='disk.get'><description/><description>Shows a disk.</description>"
        "<note>x<!-- last --></note></command>");
    Expect("disk.get", XmlUtil_ExtractAttribute(command, "path"), "attribute");
    Expect("Shows a disk.", XmlUtil_GetContentForChildByTag(command, "description"), "text");
    Expect(" last ", XmlUtil_GetContent(XmlUtil_FindChildNode(command, "note")), "content");
    auto const size = XmlUtil_ParseXmlOutput("<output><int> 512</int></output>");
    Expect(MetaObj::MetaInt::New(512)->ToString(), size ? size->ToString() : "<none>",
           "output document");
    Expect(MetaObj::MetaInt::New(-42)->ToString(),
           XmlUtil_BuildMetaObject(Element("<int>-42xyz</int>"))->ToString(), "integer prefix");
}

void DescriptorReaders() {
    auto const spec =
        ExtractInputSpec(Element("<input-spec><parameter name='count' type='int' required='true'>"
                                 "<description>How many.</description></parameter></input-spec>"));
    Expect("1", std::to_string(spec->FindParameter("count") != nullptr), "parameter");
    auto const pins = CallSpec::InputSpec::New();
    ExtractInputParam(Element("<parameter name='pin' type='string' required='true' secret='true'>"
                              "<description>PIN</description></parameter>"),
                      pins);
    Expect("1", std::to_string(pins->FindParameter("pin")->IsSecret()), "secret parameter");
    auto const regex =
        ExtractParamConstraint(Element("<constraint type='regex'><regex>a+"
                                       "</regex></constraint>"));
    Expect("a+", regex->GetStringRegex(), "constraint");
    Expect(
        "Alpha",
        ExtractEnum(Element("<enum><enum-value value='a'>Alpha</enum-value></enum>")).at(0).second,
        "enumeration");
    auto const command = ExtensionCommand::New();
    ExtractFormatParams(Element("<format-parameters><formatter>table</formatter>"
                                "</format-parameters>"),
                        command);
    Expect("table", command->GetDefaultOutputFormatParameters().GetFormatter(), "formatter");
    ExtractMetaData(Element("<meta-data><meta-data-entry name='owner'>ops</meta-data-entry>"
                            "</meta-data>"),
                    command);
    Expect("ops", command->GetMetaDataField("owner"), "meta-data field");
    auto const output = ExtractOutputSpec(Element("<output-spec><string/></output-spec>"));
    Expect("1", std::to_string(output->GetRootObject()->GetType() == MetaObj::String), "output");
}

}  // namespace

int main() {
    NodeReaders();
    DescriptorReaders();
    return failures;
}
