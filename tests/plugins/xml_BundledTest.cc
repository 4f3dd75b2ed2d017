// The bundled descriptors: they load together, and what each command declares fits together
// (formatter fields against the output prototype, template placeholders against parameters,
// examples against options), which the engine itself only finds out when a user runs them.
#include <gtest/gtest.h>

#include <dirent.h>
#include <libxml/parser.h>

#include <algorithm>
#include <boost/regex.hpp>
#include <list>
#include <string>
#include <vector>

#include "autocli/extension/XmlUtil.h"
#include "autocli/plugins/XmlDocument.h"
#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/autocli/tree/Dispatcher.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/OutputSpec.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace {

using Tindra::AutoCli::CommandSpec;
using Tindra::AutoCli::Dispatcher;
using Tindra::AutoCli::NamespaceNode;

std::string const kBuildDir = TINDRA_TEST_BINARY_DIR "/../plugins";

std::vector<std::string> DescriptorsIn(std::string const& directory) {
    std::vector<std::string> paths;
    if (DIR* listing = opendir(directory.c_str())) {
        while (dirent* entry = readdir(listing)) {
            std::string const name = entry->d_name;
            if (name.size() > 4 && name.compare(name.size() - 4, 4, ".xml") == 0) {
                paths.push_back(directory + "/" + name);
            }
        }
        closedir(listing);
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

// Every descriptor command below node.
void CollectCommands(std::shared_ptr<NamespaceNode> const& node,
                     std::vector<std::shared_ptr<CommandSpec>>& commands) {
    for (auto const& child : node->GetNamespaceNodes()) {
        if (auto command = std::dynamic_pointer_cast<Tindra::AutoCli::ExtensionCommand>(child)) {
            commands.push_back(command);
        } else if (child->GetType() != NamespaceNode::COMMAND_NODE) {
            CollectCommands(child, commands);
        }
    }
}

// The execute templates of a descriptor, by command path.
std::map<std::string, std::string> ExecuteTemplates(std::string const& file) {
    Tindra::AutoCli::XmlDocument const document(xmlReadFile(file.c_str(), nullptr, 0));
    std::map<std::string, std::string> templates;
    xmlNode* commands =
        Tindra::AutoCli::XmlUtil_FindChildNode(xmlDocGetRootElement(document.get()), "commands");
    for (xmlNode* command = commands->children; command != nullptr; command = command->next) {
        if (command->type == XML_ELEMENT_NODE) {
            templates[Tindra::AutoCli::XmlUtil_ExtractAttribute(command, "path")] =
                Tindra::AutoCli::XmlUtil_GetContentForChildByTag(command, "execute");
        }
    }
    return templates;
}

// Position just past the brace that closes the one opened at open.
size_t ClosingBrace(std::string const& text, size_t open) {
    int depth = 0;
    for (size_t at = open; at < text.size(); ++at) {
        depth += text[at] == '{' ? 1 : text[at] == '}' ? -1 : 0;
        if (depth == 0) {
            return at + 1;
        }
    }
    return std::string::npos;
}

class BundledDescriptorTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (DescriptorsIn(kBuildDir + "/bundled").empty()) {
            GTEST_SKIP() << "bundled plug-ins not configured in this build";
        }
    }
};

TEST_F(BundledDescriptorTest, BothConfigurationsLoadTogetherWithoutError) {
    for (std::string const variant : {"/bundled", "/install"}) {
        Dispatcher dispatcher;
        auto files = DescriptorsIn(kBuildDir + variant);
        for (auto const& file : files) {
            EXPECT_NO_THROW(dispatcher.AddPlugin(file)) << file;
        }
        EXPECT_EQ(files.size() + 1, dispatcher.GetPluginNames().size()) << variant;
    }
}

class BundledCommandTest : public BundledDescriptorTest {
protected:
    void SetUp() override {
        BundledDescriptorTest::SetUp();
        for (auto const& file : DescriptorsIn(kBuildDir + "/bundled")) {
            dispatcher.AddPlugin(file);
            auto templates = ExecuteTemplates(file);
            executeTemplates.insert(templates.begin(), templates.end());
        }
        CollectCommands(dispatcher.GetRootNamespace(), commands);
    }

    // The structure the command's output is made of: the prototype or its list's items.
    static std::shared_ptr<Tindra::MetaObj::MetaStruct> OutputStructure(CommandSpec& command) {
        auto root = command.GetOutputSpec()->GetRootObject();
        if (auto list = std::dynamic_pointer_cast<Tindra::MetaObj::MetaList>(root)) {
            return list->GetListStructure();
        }
        return std::dynamic_pointer_cast<Tindra::MetaObj::MetaStruct>(root);
    }

    Dispatcher dispatcher;
    std::vector<std::shared_ptr<CommandSpec>> commands;
    std::map<std::string, std::string> executeTemplates;
};

TEST_F(BundledCommandTest, DefaultFormatsNameExistingFormattersTypesAndFields) {
    static boost::regex const fieldKey("(fields|units|header|printf):([A-Za-z0-9]+)(\\.(.+))?");
    for (auto const& command : commands) {
        std::string const path = command->GetPathString(' ');
        auto format = command->GetDefaultOutputFormatParameters();
        EXPECT_TRUE(dispatcher.HasFormatter(format.GetFormatter())) << path;
        auto structure = OutputStructure(*command);
        ASSERT_TRUE(structure) << path;
        for (auto const& [key, value] : format.GetParameters()) {
            boost::smatch match;
            if (!boost::regex_match(key, match, fieldKey)) {
                continue;
            }
            EXPECT_EQ(structure->GetTypeName(), match[2].str()) << path << " " << key;
            std::vector<std::string> fields;
            if (match[1] == "fields") {
                fields = format.GetParameterAsList(key);
                EXPECT_FALSE(fields.empty()) << path;
            } else if (match[3].matched) {
                fields.push_back(match[4]);
            }
            for (auto const& field : fields) {
                EXPECT_TRUE(structure->HasField(field)) << path << " " << key << " " << field;
            }
        }
    }
}

TEST_F(BundledCommandTest, TemplatesUseDeclaredParametersOptionalOnesInsideTheirOwnSections) {
    static boost::regex const placeholder("\\$(val|if|list|multilist)\\{([a-z0-9-]+)");
    for (auto const& command : commands) {
        std::string const path = command->GetPathString('.');
        std::string const& execute = executeTemplates[path];
        ASSERT_FALSE(execute.empty()) << path;
        auto spec = command->GetInputSpec();
        for (boost::sregex_iterator it(execute.begin(), execute.end(), placeholder), end; it != end;
             ++it) {
            std::string const name = (*it)[2];
            auto declared = std::find_if(spec->parameters.begin(), spec->parameters.end(),
                                         [&](auto const& p) { return p->GetName() == name; });
            ASSERT_NE(spec->parameters.end(), declared) << path << " uses " << name;
            if ((*declared)->IsRequired() || (*it)[1] == "if") {
                continue;
            }
            // An optional value left in the text would reach the helper as a literal.
            size_t const position = it->position();
            size_t const section = execute.rfind("$if{" + name + ",", position);
            ASSERT_NE(std::string::npos, section) << path << " " << name;
            EXPECT_LT(position, ClosingBrace(execute, section + 3)) << path << " " << name;
        }
    }
}

TEST_F(BundledCommandTest, ExamplesUseOnlyDeclaredOptions) {
    static boost::regex const option("--([a-z0-9-]+)");
    for (auto const& command : commands) {
        std::string const path = command->GetPathString(' ');
        auto spec = command->GetInputSpec();
        int examples = 0;
        for (auto const& [key, description] : command->GetMetaData()) {
            if (key.compare(0, 8, "example:") != 0) {
                continue;
            }
            ++examples;
            EXPECT_FALSE(description.empty()) << path;
            std::string const arguments = key.substr(8);
            for (boost::sregex_iterator it(arguments.begin(), arguments.end(), option), end;
                 it != end; ++it) {
                std::string const name = (*it)[1];
                EXPECT_TRUE(std::any_of(spec->parameters.begin(), spec->parameters.end(),
                                        [&](auto const& p) { return p->GetName() == name; }))
                    << path << " example uses --" << name;
            }
        }
        EXPECT_GT(examples, 0) << path;
    }
}

}  // namespace
