// An outside program that reads descriptor parts and command output with the library's XML
// node and descriptor readers, through the installed headers. Prints every mismatch and
// exits with their count.
#include <tindra/tindra.h>

#include <libxml/tree.h>  // after the library's own declaration of the node type

#include <functional>
#include <iostream>
#include <string>

#include "ParsedDocument.h"

namespace {

using namespace Tindra;
using namespace Tindra::AutoCli;

int failures = 0;

void Expect(bool holds, std::string const& what) {
    if (!holds) {
        std::cout << "FAILED: " << what << "\n";
        ++failures;
    }
}

void ExpectEqual(std::string const& expected, std::string const& actual, std::string const& what) {
    Expect(expected == actual, what + ": expected [" + expected + "], got [" + actual + "]");
}

void ExpectThrows(std::string const& message, std::function<void()> const& call,
                  std::string const& what) {
    try {
        call();
        Expect(false, what + ": nothing thrown, expected [" + message + "]");
    } catch (TindraException const& error) {
        ExpectEqual(message, error.what(), what);
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
        "<note>x<!-- last --></note><execute>a</execute><execute>b</execute>"
        "<twice/><twice/></command>");
    ExpectEqual("disk.get", XmlUtil_ExtractAttribute(command, "path"), "attribute");
    ExpectEqual("", XmlUtil_ExtractAttribute(command, std::string("absent")), "missing attribute");
    ExpectEqual("Shows a disk.", XmlUtil_GetContentForChildByTag(command, "description"),
                "text after an empty duplicate");
    ExpectEqual(" last ", XmlUtil_GetContent(XmlUtil_FindChildNode(command, "note")),
                "text of the last content child");
    Expect(XmlUtil_FindChildNode(command, std::string("absent")) == nullptr, "no such child");
    ExpectThrows(
        "Illegal Duplicate tags found.  The tag execute was expected only once, but was found "
        "multiple times.",
        [&] { XmlUtil_GetContentForChildByTag(command, "execute"); }, "duplicate text");
    ExpectThrows(
        "More than one instance of twice found, expected only one.",
        [&] { XmlUtil_FindChildNode(command, "twice"); }, "duplicate child");
}

void OutputDocuments() {
    auto const disk = XmlUtil_ParseXmlOutput(
        "<output><structure typeName='Disk'><field name='Size'><int> 512</int></field>"
        "<field name='Paths'><list type='string'><string>/a</string><string>/b</string>"
        "</list></field></structure></output>");
    auto expected = MetaObj::MetaStruct::New("Disk");
    expected->SetField("Size", 512L);
    expected->SetField("Paths", std::vector<std::string>{"/a", "/b"});
    Expect(disk != nullptr, "structure read");
    if (disk != nullptr) {
        ExpectEqual(expected->ToString(), disk->ToString(), "structure");
    }
    Expect(XmlUtil_ParseXmlOutput("not a document") == nullptr, "malformed text gives nothing");
    ExpectThrows(
        "Error parsing command output.  Unable to build a proper metaobject from output tag.  "
        "output must contain properly formatted tags of type bool, int, string, structure and "
        "list. Error was : Unable to make a MetaObject from a node with tag 'integer'",
        [] { XmlUtil_ParseXmlOutput("<output><integer>1</integer></output>"); }, "unknown tag");
    ExpectThrows(
        "Unable to read an int value from: 'abc'",
        [] { XmlUtil_BuildMetaObject(Element("<int>abc</int>")); }, "bad integer");
    ExpectEqual(MetaObj::MetaInt::New(-42)->ToString(),
                XmlUtil_BuildMetaObject(Element("<int>-42xyz</int>"))->ToString(),
                "integer prefix");
}

void ParameterReaders() {
    auto const spec = ExtractInputSpec(
        Element("<input-spec><context-supported>user</context-supported>"
                "<parameter name='count' type='int' required='true' shortname='c'>"
                "<description>How many.</description><constraint type='intenum'><enum>"
                "<enum-value value='1'>one</enum-value><enum-value value='3x'>three</enum-value>"
                "</enum></constraint></parameter></input-spec>"));
    auto const count = spec->FindParameter("count");
    Expect(count != nullptr && count->GetType() == CallSpec::ParamInt && count->IsRequired() &&
               count->GetShortName() == "c" && count->GetConstraint() != nullptr &&
               count->GetConstraint()->GetIntEnum() == std::vector<long>{1, 3},
           "parameter with an integer enumeration");
    Expect(spec->IsContextSupported("user"), "supported context");
    ExpectThrows(
        "Unable to parse Input Paramter pin. Invalid type int for secret, must be 'string'",
        [] {
            ExtractInputParam(Element("<parameter name='pin' type='int' required='true' "
                                      "secret='true'><description>PIN</description>"
                                      "</parameter>"),
                              CallSpec::InputSpec::New());
        },
        "secret integer");
    ExpectThrows(
        "Missing or invalid constraint 'type', must be one of [stringenum, intenum, regex, range] "
        "got 'bogus'",
        [] { ExtractParamConstraint(Element("<constraint type='bogus'/>")); }, "constraint type");
    auto const pairs = ExtractEnum(
        Element("<enum><enum-value value='a'>Alpha</enum-value><enum-value value='b'/></enum>"));
    Expect(pairs == std::vector<std::pair<std::string, std::string>>{{"a", "Alpha"}},
           "enumeration skips values without text");
    ExpectThrows(
        "Found unexpected tag while building an enum.  Unexpected tag was: bad",
        [] { ExtractEnum(Element("<enum><bad/></enum>")); }, "enumeration tag");
}

void CommandReaders() {
    auto const command = ExtensionCommand::New();
    ExtractFormatParams(Element("<format-parameters><formatter>table</formatter>"
                                "<format-parameter name='fields'>a,b</format-parameter>"
                                "</format-parameters>"),
                        command);
    auto const format = command->GetDefaultOutputFormatParameters();
    ExpectEqual("table", format.GetFormatter(), "default formatter");
    ExpectEqual("a,b", format.GetParameters().at("fields"), "default format parameter");
    ExtractMetaData(Element("<meta-data><meta-data-entry name='owner'>ops</meta-data-entry>"
                            "</meta-data>"),
                    command);
    ExpectEqual("ops", command->GetMetaDataField("owner"), "meta-data field");
    ExpectThrows(
        "Invalid plugin format.  Duplicate <formatter> tags found",
        [&] {
            ExtractFormatParams(Element("<format-parameters><formatter>a</formatter>"
                                        "<formatter>b</formatter></format-parameters>"),
                                command);
        },
        "two formatters");
    auto const output =
        ExtractOutputSpec(Element("<output-spec><!-- c --><string/></output-spec>"));
    Expect(
        output->GetRootObject() != nullptr && output->GetRootObject()->GetType() == MetaObj::String,
        "output prototype");
    ExpectThrows(
        "Found more than one node under 'output-spec', where only one node is supported.  The "
        "tag was int",
        [] { ExtractOutputSpec(Element("<output-spec><string/><int/></output-spec>")); },
        "two prototypes");
}

}  // namespace

int main() {
    NodeReaders();
    OutputDocuments();
    ParameterReaders();
    CommandReaders();
    return failures;
}
