#ifndef TINDRA_TESTS_SUPPORT_TREE_FAKEPLUGIN_H
#define TINDRA_TESTS_SUPPORT_TREE_FAKEPLUGIN_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tindra/autocli/plugins/InternalPlugin.h"

namespace Tindra {
namespace Testing {

// Writes its own name, so a test can see which formatter ran.
struct NamedFormatter : AutoCli::Formatter {
    explicit NamedFormatter(std::string const& name) : Formatter(name) {}
    bool Format(std::shared_ptr<CallSpec::Output>, AutoCli::FormatParameters&,
                AutoCli::DisplayContext&, std::ostream& out) override {
        out << "formatted by " << GetName();
        return false;
    }
};

// A plug-in with its own name, formatters and registration; the built-in formatter look-up.
class FakePlugin : public AutoCli::InternalPlugin {
public:
    using Registration = std::function<void(std::shared_ptr<AutoCli::Namespace>)>;
    FakePlugin(
        std::string name, std::vector<std::string> const& formatterNames,
        Registration registration = [](std::shared_ptr<AutoCli::Namespace>) {})
        : name(std::move(name)), registration(std::move(registration)) {
        for (auto const& formatterName : formatterNames)
            GetFormatters().push_back(std::make_shared<NamedFormatter>(formatterName));
    }
    std::string const& GetName() const override { return name; }
    void RegisterNamespaces(std::shared_ptr<AutoCli::Namespace> root) override {
        registration(root);
    }

private:
    std::string name;
    Registration registration;
};

}  // namespace Testing
}  // namespace Tindra

#endif
