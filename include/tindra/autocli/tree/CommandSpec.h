#ifndef TINDRA_AUTOCLI_TREE_COMMANDSPEC_H
#define TINDRA_AUTOCLI_TREE_COMMANDSPEC_H

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/FormatParameters.h"
#include "tindra/autocli/tree/NamespaceNode.h"
#include "tindra/callspec/CallTargetSpec.h"
#include "tindra/callspec/Input.h"
#include "tindra/callspec/Output.h"

namespace Tindra {
namespace AutoCli {

// The declaration side of a command: a leaf of the tree with its contract and help data.
class TINDRA_EXPORT CommandSpec : public CallSpec::CallTargetSpec, public NamespaceNode {
public:
    using Example = std::pair<std::string, std::string>;  // (arguments, description)

    CommandSpec() = default;
    ~CommandSpec() override = default;

    std::shared_ptr<CallSpec::InputSpec> GetInputSpec() override;
    std::shared_ptr<CallSpec::OutputSpec> GetOutputSpec() override;

    std::shared_ptr<NamespaceNode> GetThis() override;
    bool HasNamespaceNode(std::string const& name) override;
    std::shared_ptr<NamespaceNode> GetNamespaceNode(std::string const& name) override;
    void RegisterNamespaceNode(std::shared_ptr<NamespaceNode> node, std::string name) override;
    void RegisterNamespaceNode(std::shared_ptr<NamespaceNode> node, char const* name) override;
    std::shared_ptr<NamespaceNode> ResolveNode(std::list<std::string>& path) override;
    Dispatcher* GetDispatcher() override;
    void SetParent(std::shared_ptr<NamespaceNode> parent) override;
    std::shared_ptr<NamespaceNode> GetParent() override;
    int GetType() override { return COMMAND_NODE; }

    std::map<std::string, std::string>& GetMetaData() { return metaData; }
    std::string const& GetMetaDataField(std::string const& name) const;
    void SetMetaDataField(std::string name, std::string value);
    void SetMetaDataField(char const* name, char const* value);

    std::vector<Example>& GetExamples() { return examples; }
    void AddExample(std::string arguments, std::string description);
    void AddExample(char const* arguments, char const* description);

    void SetDefaultOutputFormatter(std::string name);
    void SetDefaultOutputFormatter(char const* name);
    void SetDefaultOutputParameter(std::string key, std::string value);
    void SetDefaultOutputParameter(char const* key, char const* value);
    FormatParameters GetDefaultOutputFormatParameters() const { return defaultOutputFormat; }

    void GenerateHelpOutput(std::shared_ptr<CallSpec::Input> input,
                            std::shared_ptr<CallSpec::Output> output);

protected:
    virtual std::shared_ptr<CallSpec::InputSpec> GetInputSpecInternal() = 0;
    virtual std::shared_ptr<CallSpec::OutputSpec> GetOutputSpecInternal() = 0;

private:
    std::map<std::string, std::string> metaData;
    std::vector<Example> examples;
    std::shared_ptr<CallSpec::InputSpec> inputSpec;
    std::shared_ptr<CallSpec::OutputSpec> outputSpec;
    FormatParameters defaultOutputFormat;
    std::weak_ptr<NamespaceNode> parent;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
