// Descriptors read through the compact copy of their tree load exactly as through the parser's
// own tree, and the files the copy must leave to the tree reader go there.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "autocli/plugins/CompactDescriptor.h"
#include "support/DescriptorFiles.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/plugins/XmlPlugin.h"
#include "tindra/callspec/Input.h"

namespace {

using namespace DescriptorTest;
using namespace Tindra::AutoCli;

// What a registration holds, as far as the readers filled it in.
std::string Describe(std::shared_ptr<NamespaceNode> const& node) {
    std::string text = std::to_string(node->GetType()) + " [" + node->GetDescription() + "]";
    auto command = std::dynamic_pointer_cast<ExtensionCommand>(node);
    if (!command) {
        return text;
    }
    auto const format = command->GetDefaultOutputFormatParameters();
    std::map<std::string, std::string> fields = format.GetParameters();
    fields.insert(command->GetMetaData().begin(), command->GetMetaData().end());
    for (auto const& [name, value] : command->GetExamples()) {
        fields["example " + name] = value;
    }
    text += " format " + format.GetFormatter();
    for (auto const& [name, value] : fields) {
        text += " " + name + "=" + value;
    }
    for (auto const& parameter : command->GetInputSpecInternal()->parameters) {
        auto constraint = parameter->GetConstraint();
        text += " " + parameter->GetName() + std::to_string(parameter->GetType()) +
                parameter->GetShortName() + parameter->GetDescription(false) +
                (constraint ? constraint->ToString() : "");
    }
    auto output = command->GetOutputSpecInternal()->GetRootObject();
    auto input = Tindra::CallSpec::Input::New();
    return text + " output " + (output ? output->ToString() : "-") + " execute " +
           command->SubstituteInput(input, false) + " stdin " +
           command->SubstituteInput(input, true);
}

// The pending registrations the file gives, or the message it is rejected with.
std::string Load(std::string const& path) {
    auto plugin = XmlPlugin::New(path);
    try {
        plugin->Initialize();
    } catch (Tindra::TindraException const& error) {
        return error.what();
    }
    std::string text;
    for (auto const& [registered, node] : plugin->GetPendingRegistrations()) {
        text += registered + ": " + Describe(node) + "\n";
    }
    return text;
}

// The same descriptor with a document type declaration, which only the tree reader takes.
std::string WithDocumentType(std::string const& descriptor) {
    std::string text = descriptor;
    return text.insert(text.find("<plugin>"), "<!DOCTYPE plugin>\n");
}

// The text as a gzip stream of one stored deflate block, which libxml2 reads decompressed.
std::string Gzipped(std::string const& text) {
    std::uint32_t crc = 0xffffffffu;
    for (unsigned char byte : text) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ (0xedb88320u & (0u - (crc & 1u)));
        }
    }
    auto const littleEndian = [](std::uint32_t value, int bytes) {
        std::string encoded;
        for (int i = 0; i < bytes; ++i) {
            encoded += static_cast<char>((value >> (8 * i)) & 0xffu);
        }
        return encoded;
    };
    auto const size = static_cast<std::uint32_t>(text.size());
    return std::string("\x1f\x8b\x08\0\0\0\0\0\0\xff\x01", 11) + littleEndian(size, 2) +
           littleEndian(~size, 2) + text + littleEndian(~crc, 4) + littleEndian(size, 4);
}

TEST(DescriptorCompactPathTest, OnlyPlainSilentFilesAreCopied) {
    DescriptorFiles files;
    CommandParts command;
    std::string const plain = Descriptor("<commands>" + command.Element() + "</commands>");
    std::vector<std::pair<std::string, bool>> const cases = {
        {plain, true},
        {WithDocumentType(plain), false},
        {"<plugin><version>1.0.0</version>", false},
        {Descriptor("<commands xml:id=\"c\"/>"), false},
        {Descriptor("<commands p:x=\"1\"/>"), false},  // the parser reports the unbound prefix
        {"<?xml version=\"1.1\"?>" + plain.substr(plain.find("<plugin>")), false},  // a warning
        {Gzipped(plain), false},
    };
    for (auto const& [content, copied] : cases) {
        CompactTree tree;
        EXPECT_EQ(copied, ReadCompactDescriptor(files.Write("plugin.xml", content), tree))
            << content;
    }
    CompactTree tree;
    EXPECT_FALSE(ReadCompactDescriptor(files.path + "/missing.xml", tree));
    EXPECT_FALSE(ReadCompactDescriptor(files.path, tree));
}

TEST(DescriptorCompactPathTest, TheTreeReaderGivesTheSame) {
    DescriptorFiles files;
    std::mt19937 random(20250117u);
    auto const pick = [&random](std::vector<std::string> const& choices) {
        return choices[std::uniform_int_distribution<size_t>(0, choices.size() - 1)(random)];
    };
    int loaded = 0;
    for (int i = 0; i < 150; ++i) {
        CommandParts parts;
        parts.description = pick({"", "<description>Runs <!-- c --> it</description>",
                                  "<description/><description>a&amp;b</description>"});
        parts.metaData = pick({"",
                               "<meta-data>\n<meta-data-entry name=\"example:-a\">All"
                               "</meta-data-entry><meta-data-entry name=\"t\">x<!--y-->"
                               "</meta-data-entry></meta-data>",
                               "<meta-data><entry/></meta-data>"});
        parts.inputSpec = pick(
            {"<input-spec/>",
             "<input-spec>\n <parameter name=\"state\" shortname=\"s\" type=\"string\" "
             "required=\"false\"><description>Only%FULLENUM%</description><constraint "
             "type=\"stringenum\"><enum><enum-value value=\"up\">working</enum-value>"
             "<enum-value value=\"down\"><![CDATA[stopped]]></enum-value></enum></constraint>"
             "</parameter><context-supported>user</context-supported></input-spec>",
             "<input-spec><parameter name=\"n\" type=\"int\" required=\"true\"><description>d"
             "</description><constraint type=\"range\"><range min=\"9\" max=\"1\"/></constraint>"
             "</parameter></input-spec>"});
        parts.outputSpec = pick(
            {"<output-spec/>", "<output-spec> <string>\n</string> </output-spec>",
             "<output-spec><list type=\"structure\"><structure typeName=\"I\"><field name=\"N\">"
             "<string/></field><field name=\"S\"><int>3</int></field></structure></list>"
             "</output-spec>",
             "<output-spec><integer/></output-spec>"});
        parts.formatParameters =
            pick({"<format-parameters/>",
                  "<format-parameters><formatter>table</formatter><format-parameter "
                  "name=\"units:I.S\">MiB</format-parameter></format-parameters>"});
        parts.execute = pick({"<execute>run $val{state}</execute>", "<execute/>",
                              "<execute><![CDATA[a && b]]></execute><stdin>in</stdin>"});
        std::string const descriptor = Descriptor(
            pick({"", "<namespaces>" + NamespaceElement("demo", "Demo") + "</namespaces>"}) +
            "<commands>\n" + parts.Element() + "\n</commands>");
        std::string const compact = Load(files.Write("plugin.xml", descriptor));
        EXPECT_EQ(Load(files.Write("plugin.xml", WithDocumentType(descriptor))), compact)
            << descriptor;
        loaded += compact.compare(0, 11, "demo.run: 2") == 0 ||
                  compact.find("\ndemo.run: 2") != std::string::npos;
    }
    EXPECT_GT(loaded, 10);  // enough of them load for the comparison to mean something
    std::string const plain = Descriptor("<commands>" + CommandParts().Element() + "</commands>");
    EXPECT_EQ(Load(files.Write("plugin.xml", plain)),
              Load(files.Write("plugin.xml", Gzipped(plain))));
}

}  // namespace
