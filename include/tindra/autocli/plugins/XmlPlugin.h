#ifndef TINDRA_AUTOCLI_PLUGINS_XMLPLUGIN_H
#define TINDRA_AUTOCLI_PLUGINS_XMLPLUGIN_H

#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/autocli/tree/Namespace.h"
#include "tindra/autocli/tree/NamespaceNode.h"
#include "tindra/autocli/tree/Plugin.h"
#include "tindra/autocli/xml/XmlNode.h"

namespace Tindra {
namespace AutoCli {

// A plug-in read from one XML descriptor file: namespaces and commands carried out by external
// programs. Initialize reads and checks the whole file; nothing reaches the tree before
// RegisterNamespaces, so a faulty file costs only its own commands.
class TINDRA_EXPORT XmlPlugin : public Plugin {
public:
    using Registration = std::pair<std::string, std::shared_ptr<NamespaceNode>>;

    static std::shared_ptr<XmlPlugin> New(std::string const& fileName);
    explicit XmlPlugin(std::string const& fileName);
    ~XmlPlugin() override = default;

    void Initialize() override;
    std::string const& GetName() const override { return fileName; }
    void RegisterNamespaces(std::shared_ptr<Namespace> root) override;
    bool HasFormatter(std::string const& name) override;
    std::shared_ptr<Formatter> GetFormatter(std::string const& name) override;
    std::vector<std::shared_ptr<Formatter>>& GetFormatters() override;

    // The namespaces and then the commands read by Initialize, each in document order.
    std::vector<Registration> const& GetPendingRegistrations() const { return pending; }

private:
    void ReadDescriptor();
    void ReadRoot(xmlNode* root);
    void AddNamespaces(xmlNode* node);
    void AddNamespace(xmlNode* node);
    void AddCommands(xmlNode* node);
    void AddCommand(xmlNode* node);
    void ReadCommand(xmlNode* node, std::string const& path, std::string description);
    // A registration's path taken apart: the names of the parent namespace, and the node's own.
    struct PathNames {
        std::list<std::string> parent;
        std::string name;
    };
    static PathNames SplitRegistrationPath(std::string const& path);
    void CheckRegistration(Namespace& root, Registration const& registration,
                           PathNames const& names);
    void Register(Namespace& root, Registration const& registration, PathNames& names);
    static std::list<std::string> SplitPath(std::string const& path);
    static std::string TakeLastName(std::list<std::string>& names);

    std::string fileName;
    std::vector<Registration> pending;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
