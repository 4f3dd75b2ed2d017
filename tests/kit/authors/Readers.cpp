// The greeting plug-in whose word is what every public XML reader of the library read, ending
// with the message of one that refused.
#include <tindra/tindra.h>

#include <libxml/parser.h>  // after the library's own declaration of the node type

#include <memory>
#include <string>
#include <vector>

std::string ReadAll();
#define GREETING_NAMESPACE "readers"
#define GREETING_WORD ReadAll()
#include "Greeting.cpp"

using namespace Tindra;
using namespace Tindra::AutoCli;

std::string ReadAll() {
    std::vector<std::unique_ptr<xmlDoc, void (*)(xmlDoc*)>> documents;
    auto element = [&documents](std::string const& text) {
        documents.emplace_back(xmlReadMemory(text.data(), int(text.size()), "r.xml", nullptr, 0),
                               xmlFreeDoc);
        return xmlDocGetRootElement(documents.back().get());
    };
    xmlNode* command = element(
        "<command path='disk.get'><description>Shows a disk.</description><note>x<!--last-->"
        "</note></command>");
    auto const spec = ExtractInputSpec(
        element("<input-spec><parameter name='pin' type='string' required='true' secret='true'>"
                "<description>n</description></parameter></input-spec>"));
    auto const extension = ExtensionCommand::New();
    ExtractFormatParams(
        element("<format-parameters><formatter>table</formatter></format-parameters>"), extension);
    ExtractMetaData(
        element("<meta-data><meta-data-entry name='owner'>ops</meta-data-entry></meta-data>"),
        extension);
    std::string text =
        XmlUtil_ExtractAttribute(command, "path") + "|" +
        XmlUtil_GetContentForChildByTag(command, "description") + "|" +
        XmlUtil_GetContent(XmlUtil_FindChildNode(command, "note")) + "|" +
        XmlUtil_ParseXmlOutput("<output><int> 512</int></output>")->ToString() + "|" +
        XmlUtil_BuildMetaObject(element("<int>-42</int>"))->ToString() + "|" +
        (spec->FindParameter("pin")->IsSecret() ? "secret|" : "plain|") +
        ExtractParamConstraint(element("<constraint type='regex'><regex>a+</regex></constraint>"))
            ->GetStringRegex() +
        "|" + ExtractEnum(element("<enum><enum-value value='a'>A</enum-value></enum>"))[0].second +
        "|" + extension->GetDefaultOutputFormatParameters().GetFormatter() + "|" +
        extension->GetMetaDataField("owner") + "|" +
        MetaObj::MetaTypeString(ExtractOutputSpec(element("<output-spec><bool/></output-spec>"))
                                    ->GetRootObject()
                                    ->GetType()) +
        "|";
    try {
        ExtractInputParam(element("<parameter type='int'/>"), spec);
    } catch (TindraException const& e) {
        text += e.what();  // thrown across the library's boundary
    }
    return text;
}
