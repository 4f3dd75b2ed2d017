#ifndef TINDRA_AUTOCLI_PLUGINS_COMMANDLIST_H
#define TINDRA_AUTOCLI_PLUGINS_COMMANDLIST_H

#include <memory>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/tree/Command.h"
#include "tindra/autocli/tree/Namespace.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// The built-in command that lists every command of the tree, optionally filtered.
class TINDRA_EXPORT CommandList : public Command {
public:
    explicit CommandList(std::shared_ptr<Namespace> const& root);
    ~CommandList() override = default;

    static std::shared_ptr<CommandList> New(std::shared_ptr<Namespace> root);

    // A fresh "OstrelCommand" row with empty "Namespace", "Command" and "Description".
    static std::shared_ptr<MetaObj::MetaStruct> GetOutputStructure();

    // Appends a row for every command below node, depth first. A non-empty filter must occur
    // (case-sensitive) in the parent path, the command name or the description respectively.
    static void AddChildren(std::string const& namespaceFilter, std::string const& commandFilter,
                            std::string const& descriptionFilter,
                            std::shared_ptr<NamespaceNode> const& node,
                            std::shared_ptr<MetaObj::MetaList> const& list);

protected:
    std::shared_ptr<CallSpec::InputSpec> GetInputSpecInternal() override;
    std::shared_ptr<CallSpec::OutputSpec> GetOutputSpecInternal() override;
    void ExecuteInternal(std::shared_ptr<CallSpec::Input> input,
                         std::shared_ptr<CallSpec::Output> output) override;

private:
    // Weak: this command lives inside the tree it lists, so a strong reference would keep the
    // whole tree alive forever.
    std::weak_ptr<Namespace> root;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
