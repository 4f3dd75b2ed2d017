#ifndef TINDRA_TESTS_SUPPORT_TREE_FAKEPLUGIN_H
#define TINDRA_TESTS_SUPPORT_TREE_FAKEPLUGIN_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tindra/autocli/tree/Plugin.h"

namespace Tindra {
namespace Testing {

// Writes its own name, so a test can see which formatter ran.
class NamedFormatter : public AutoCli::Formatter {
public:
    explicit NamedFormatter(std::string const& name) : Formatter(name) {}
    bool Format(std::shared_ptr<CallSpec::Output>, AutoCli::FormatParameters&,
                AutoCli::DisplayContext&, std::ostream& out) override {
        out << "formatted by " << GetName();
        return false;
    }
};

// A plug-in with the given formatters whose registration runs the given code.
class FakePlugin : public AutoCli::Plugin {
public:
    using Registration = std::function<void(std::shared_ptr<AutoCli::Namespace>)>;

    FakePlugin(
        std::string name, std::vector<std::string> const& formatterNames,
        Registration registration = [](std::shared_ptr<AutoCli::Namespace>) {})
        : name(std::move(name)), registration(std::move(registration)) {
        for (auto const& formatterName : formatterNames) {
            formatters.push_back(std::make_shared<NamedFormatter>(formatterName));
        }
    }

    void Initialize() override {}
    std::string const& GetName() const override { return name; }
    void RegisterNamespaces(std::shared_ptr<AutoCli::Namespace> root) override {
        registration(root);
    }
    bool HasFormatter(std::string const& wanted) override {
        return GetFormatter(wanted) != nullptr;
    }
    std::shared_ptr<AutoCli::Formatter> GetFormatter(std::string const& wanted) override {
        for (auto const& formatter : formatters) {
            if (formatter->GetName() == wanted) {
                return formatter;
            }
        }
        return nullptr;
    }
    std::vector<std::shared_ptr<AutoCli::Formatter>>& GetFormatters() override {
        return formatters;
    }

private:
    std::string name;
    Registration registration;
    std::vector<std::shared_ptr<AutoCli::Formatter>> formatters;
};

}  // namespace Testing
}  // namespace Tindra

#endif
