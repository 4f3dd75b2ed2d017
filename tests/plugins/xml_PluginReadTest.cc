// Reading whole descriptor files: what Initialize collects, and every message it raises with
// the wrapping that names the file and, inside a command, the command.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ThrownMessage.h"
#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/plugins/XmlPlugin.h"
#include "support/DescriptorFiles.h"

namespace {

using DescriptorTest::CommandParts;
using DescriptorTest::Descriptor;
using DescriptorTest::DescriptorFiles;
using DescriptorTest::NamespaceElement;
using Tindra::AutoCli::NamespaceNode;
using Tindra::AutoCli::XmlPlugin;

class XmlPluginReadTest : public ::testing::Test {
protected:
    std::shared_ptr<XmlPlugin> Load(std::string const& content) {
        auto plugin = XmlPlugin::New(files.Write("plugin.xml", content));
        plugin->Initialize();
        return plugin;
    }

    // The message Initialize raises for the content, without the file's own wrapping.
    std::string InnerError(std::string const& content) {
        std::string const path = files.Write("plugin.xml", content);
        std::string const message = ThrownMessage([&] { XmlPlugin::New(path)->Initialize(); });
        std::string const wrapping =
            "Unable to handle XML Plugin " + path + ".  There was an error while parsing: ";
        if (message.compare(0, wrapping.size(), wrapping) != 0) {
            return "<not wrapped> " + message;
        }
        return message.substr(wrapping.size());
    }

    std::string CommandError(CommandParts const& command) {
        std::string const message =
            InnerError(Descriptor("<commands>" + command.Element() + "</commands>"));
        std::string const wrapping =
            "Unable to register the command 'ostrel " + command.path + "'  Error was ";
        if (message.compare(0, wrapping.size(), wrapping) != 0) {
            return "<not wrapped> " + message;
        }
        return message.substr(wrapping.size());
    }

    DescriptorFiles files;
};

TEST_F(XmlPluginReadTest, NamespacesComeFirstThenCommandsEachInDocumentOrder) {
    CommandParts second;
    second.path = "b.second";
    CommandParts first;
    first.path = "a.first";
    auto plugin = Load(Descriptor("<commands>" + second.Element() + first.Element() +
                                  "</commands><namespaces>" + NamespaceElement("b", "Bee") +
                                  NamespaceElement("a", "Ay") + "</namespaces>"));
    std::vector<std::string> paths;
    std::vector<int> kinds;
    for (auto const& [path, node] : plugin->GetPendingRegistrations()) {
        paths.push_back(path);
        kinds.push_back(node->GetType());
    }
    EXPECT_EQ((std::vector<std::string>{"b", "a", "b.second", "a.first"}), paths);
    EXPECT_EQ((std::vector<int>{NamespaceNode::NAMESPACE_NODE, NamespaceNode::NAMESPACE_NODE,
                                NamespaceNode::COMMAND_NODE, NamespaceNode::COMMAND_NODE}),
              kinds);
    EXPECT_EQ("Bee", plugin->GetPendingRegistrations()[0].second->GetDescription());
}

TEST_F(XmlPluginReadTest, ACommandCarriesEverythingItsElementSays) {
    CommandParts parts;
    parts.description = "<description/><description>Lists disks</description>";
    parts.metaData =
        "<meta-data><meta-data-entry name=\"type\">fetcher</meta-data-entry></meta-data>";
    parts.inputSpec =
        "<input-spec><parameter name=\"all\" type=\"flag\" required=\"false\">"
        "<description>everything</description></parameter>"
        "<context-supported>user</context-supported></input-spec>";
    parts.formatParameters =
        "<format-parameters><formatter>table</formatter>"
        "<format-parameter name=\"wrap-last\">true</format-parameter></format-parameters>";
    auto plugin = Load(Descriptor("<commands>" + parts.Element() + "</commands>"));
    auto command = std::dynamic_pointer_cast<Tindra::AutoCli::ExtensionCommand>(
        plugin->GetPendingRegistrations().at(0).second);
    ASSERT_TRUE(command);
    EXPECT_EQ("Lists disks", command->GetDescription());
    EXPECT_EQ("fetcher", command->GetMetaDataField("type"));
    auto format = command->GetDefaultOutputFormatParameters();
    EXPECT_EQ("table", format.GetFormatter());
    EXPECT_EQ("true", format.GetParameter("wrap-last"));
    auto input = command->GetInputSpec();
    EXPECT_TRUE(input->IsContextSupported("user"));
    ASSERT_EQ(2u, input->parameters.size());  // with the automatic help parameter
    EXPECT_EQ("all", input->parameters[0]->GetName());
    EXPECT_TRUE(command->GetOutputSpec()->GetRootObject());
}

TEST_F(XmlPluginReadTest, EmptyCommandsAreAcceptedNothingAtAllIsNot) {
    EXPECT_TRUE(Load(Descriptor("<commands/>"))->GetPendingRegistrations().empty());
    std::string const path = files.Write("plugin.xml", Descriptor("<other/>"));
    EXPECT_EQ("Unable to handle XML Plugin " + path +
                  ".  There was an error while parsing: Unable to find any namespaces or "
                  "commands to register for plugin " +
                  path,
              ThrownMessage([&] { XmlPlugin::New(path)->Initialize(); }));
}

TEST_F(XmlPluginReadTest, UnreadableFilesAndWrongVersionsAreRejected) {
    std::string const missing = files.Directory() + "/missing.xml";
    EXPECT_EQ("Unable to handle XML Plugin " + missing +
                  ".  There was an error while parsing: Unable to parse XML descriptor: " + missing,
              ThrownMessage([&] { XmlPlugin::New(missing)->Initialize(); }));
    std::string const malformed = files.Directory() + "/plugin.xml";
    EXPECT_EQ("Unable to parse XML descriptor: " + malformed, InnerError("<plugin><version>"));
    std::string const version = "Unknown ostrel extention version.  Valid versions are: '1.0.0'";
    EXPECT_EQ(version, InnerError("<plugin><commands/></plugin>"));
    EXPECT_EQ(version, InnerError("<plugin><version>1.0</version><commands/></plugin>"));
    EXPECT_EQ(version, InnerError("<plugin><version> 1.0.0</version><commands/></plugin>"));
    EXPECT_EQ(
        "Illegal Duplicate tags found.  The tag version was expected only once, but was "
        "found multiple times.",
        InnerError("<p><version>1.0.0</version><version>1.0.0</version><commands/></p>"));
}

TEST_F(XmlPluginReadTest, ContainersMayOccurOnlyOnce) {
    EXPECT_EQ("More than one instance of namespaces found, expected only one.",
              InnerError(Descriptor("<namespaces/><namespaces/>")));
    EXPECT_EQ("More than one instance of commands found, expected only one.",
              InnerError(Descriptor("<commands/><commands/>")));
}

TEST_F(XmlPluginReadTest, NamespacesNeedPathAndDescription) {
    std::string const message =
        "Unable to register a namespace without valid 'path' attribute or <description> being "
        "present.";
    EXPECT_EQ(message,
              InnerError(Descriptor("<namespaces>" + NamespaceElement("", "d") + "</namespaces>")));
    EXPECT_EQ(message,
              InnerError(Descriptor("<namespaces>" + NamespaceElement("a", "") + "</namespaces>")));
    EXPECT_EQ(message, InnerError(Descriptor("<namespaces><namespace path=\"a\"/></namespaces>")));
}

TEST_F(XmlPluginReadTest, CommandPathAndDescriptionErrorsAreNotWrappedAsCommand) {
    CommandParts nameless;
    nameless.path = "";
    EXPECT_EQ(
        "Invalid command specification found.  <command> tags must have a non-empty "
        "'path' attribute",
        InnerError(Descriptor("<commands>" + nameless.Element() + "</commands>")));
    CommandParts twice;
    twice.description = "<description>a</description><description>b</description>";
    EXPECT_EQ(
        "Illegal Duplicate tags found.  The tag description was expected only once, but "
        "was found multiple times.",
        InnerError(Descriptor("<commands>" + twice.Element() + "</commands>")));
    CommandParts silent;
    silent.description = "";
    EXPECT_EQ("", Load(Descriptor("<commands>" + silent.Element() + "</commands>"))
                      ->GetPendingRegistrations()
                      .at(0)
                      .second->GetDescription());
}

TEST_F(XmlPluginReadTest, MissingCommandPartsAreWrappedWithTheCommand) {
    CommandParts parts;
    parts.inputSpec = "";
    EXPECT_EQ("Unable to find <input-spec> element, which is required for a command.",
              CommandError(parts));
    parts = CommandParts();
    parts.outputSpec = "";
    EXPECT_EQ("Unable to find <output-spec> element, which is required for a command.",
              CommandError(parts));
    parts = CommandParts();
    parts.formatParameters = "";
    EXPECT_EQ("Unable to find <format-parameters> element, which is required for a command.",
              CommandError(parts));
    std::string const executeError =
        "Missing or empty <execute> tag.  This tag must specify a valid execution string for "
        "this command.";
    parts = CommandParts();
    parts.execute = "";
    EXPECT_EQ(executeError, CommandError(parts));
    parts.execute = "<execute>  </execute><execute/>";
    EXPECT_EQ(
        "Illegal Duplicate tags found.  The tag execute was expected only once, but was "
        "found multiple times.",
        CommandError(parts));
    parts.execute = "<execute/><execute>run</execute>";
    parts.standardInput = "<stdin>a</stdin><stdin>b</stdin>";
    EXPECT_EQ(
        "Illegal Duplicate tags found.  The tag stdin was expected only once, but was "
        "found multiple times.",
        CommandError(parts));
}

TEST_F(XmlPluginReadTest, CommandPartsMayOccurOnlyOnce) {
    CommandParts parts;
    parts.metaData = "<meta-data/><meta-data/>";
    EXPECT_EQ("More than one instance of meta-data found, expected only one.", CommandError(parts));
    for (std::string const tag : {"input-spec", "output-spec", "format-parameters"}) {
        parts = CommandParts();
        parts.execute += "<" + tag + "/>";
        EXPECT_EQ("More than one instance of " + tag + " found, expected only one.",
                  CommandError(parts));
    }
}

TEST_F(XmlPluginReadTest, ReaderErrorsArriveDoublyWrapped) {
    CommandParts parts;
    parts.inputSpec =
        "<input-spec><parameter name=\"xx\" type=\"int\" required=\"false\"/>"
        "</input-spec>";
    EXPECT_EQ("Unable to parse Input Paramter xx. Missing command description",
              CommandError(parts));
    parts = CommandParts();
    parts.outputSpec = "<output-spec><int/><int/></output-spec>";
    EXPECT_EQ(
        "Found more than one node under 'output-spec', where only one node is supported.  "
        "The tag was int",
        CommandError(parts));
    parts = CommandParts();
    parts.formatParameters = "<format-parameters><formatter/><formatter/></format-parameters>";
    EXPECT_EQ("Invalid plugin format.  Duplicate <formatter> tags found", CommandError(parts));
    parts = CommandParts();
    parts.metaData = "<meta-data><entry/></meta-data>";
    EXPECT_EQ("Found unexpected tag while building meta-data set.  Unexpected tag was: entry",
              CommandError(parts));
}

TEST_F(XmlPluginReadTest, AFailedFileKeepsNothingToRegister) {
    CommandParts broken;
    broken.path = "demo.broken";
    broken.execute = "";
    auto plugin = XmlPlugin::New(files.Write(
        "plugin.xml",
        Descriptor("<namespaces>" + NamespaceElement("demo", "Demo") + "</namespaces><commands>" +
                   CommandParts().Element() + broken.Element() + "</commands>")));
    EXPECT_NE("<nothing thrown>", ThrownMessage([&] { plugin->Initialize(); }));
    EXPECT_TRUE(plugin->GetPendingRegistrations().empty());
}

TEST_F(XmlPluginReadTest, DescriptorsProvideNoFormatters) {
    auto plugin = Load(Descriptor("<commands/>"));
    EXPECT_FALSE(plugin->HasFormatter("table"));
    EXPECT_TRUE(plugin->GetFormatters().empty());
    EXPECT_EQ(&plugin->GetFormatters(), &XmlPlugin::New("other.xml")->GetFormatters());
    EXPECT_EQ("Xml Plugin doesn't not support formatters",
              ThrownMessage([&] { plugin->GetFormatter("table"); }));
    EXPECT_EQ(files.Directory() + "/plugin.xml", plugin->GetName());
}

}  // namespace
