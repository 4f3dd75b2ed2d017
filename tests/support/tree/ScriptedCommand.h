#ifndef TINDRA_TESTS_SUPPORT_TREE_SCRIPTEDCOMMAND_H
#define TINDRA_TESTS_SUPPORT_TREE_SCRIPTEDCOMMAND_H

#include <functional>
#include <memory>

#include "tindra/autocli/tree/Command.h"
#include "tindra/metaobj/MetaString.h"

namespace Tindra::Testing {

// A command whose declarations and behaviour each test sets; it declares a string result.
class ScriptedCommand : public AutoCli::Command {
public:
    using Action = std::function<void(CallSpec::Input&, CallSpec::Output&)>;
    static std::shared_ptr<ScriptedCommand> New(std::string description = "") {
        auto command = std::make_shared<ScriptedCommand>();
        command->SetDescription(std::move(description));
        return command;
    }

    std::shared_ptr<MetaObj::MetaObject> declaredOutput = MetaObj::MetaString::New();
    std::shared_ptr<CallSpec::InputSpec> declaredInput = CallSpec::InputSpec::New();
    Action action = [](CallSpec::Input&, CallSpec::Output& output) {
        output.SetRootObject(MetaObj::MetaString::New("done"));
    };
    int executions = 0;

protected:
    std::shared_ptr<CallSpec::InputSpec> GetInputSpecInternal() override { return declaredInput; }
    std::shared_ptr<CallSpec::OutputSpec> GetOutputSpecInternal() override {
        auto spec = CallSpec::OutputSpec::New();
        spec->SetRootObject(declaredOutput);
        return spec;
    }
    void ExecuteInternal(std::shared_ptr<CallSpec::Input> input,
                         std::shared_ptr<CallSpec::Output> output) override {
        ++executions;
        action(*input, *output);
    }
};

}  // namespace Tindra::Testing

#endif
