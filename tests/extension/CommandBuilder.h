#ifndef TINDRA_TESTS_EXTENSION_COMMANDBUILDER_H
#define TINDRA_TESTS_EXTENSION_COMMANDBUILDER_H

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/callspec/Input.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/OutputSpec.h"
#include "tindra/callspec/ParameterSpec.h"
#include "tindra/metaobj/MetaString.h"

// An extension command with the given optional parameters and templates, and inputs for it.
struct CommandBuilder {
    using Kind = Tindra::CallSpec::ParameterType;

    CommandBuilder& Parameter(std::string const& name, Kind kind) {
        auto parameter = Tindra::CallSpec::ParameterSpec::New(name, kind);
        parameter->SetRequired(false);
        spec->AddParameter(parameter);
        return *this;
    }

    std::shared_ptr<Tindra::AutoCli::ExtensionCommand> Build(std::string const& execute,
                                                             std::string const& input = "") {
        auto command = Tindra::AutoCli::ExtensionCommand::New();
        // Each command adds its help parameter to its own declaration.
        command->SetInputSpec(std::make_shared<Tindra::CallSpec::InputSpec>(*spec));
        auto outputSpec = Tindra::CallSpec::OutputSpec::New();
        outputSpec->SetRootObject(Tindra::MetaObj::MetaString::New("prototype"));
        command->SetOutputSpec(outputSpec);
        command->SetExecuteCommand(execute);
        command->SetStdin(input);
        return command;
    }

    // Values given as (name, value) pairs; a flag is given with the empty value.
    std::shared_ptr<Tindra::CallSpec::Input> Input(
        std::vector<std::pair<std::string, std::string>> const& values) {
        auto input = Tindra::CallSpec::Input::New();
        for (auto const& value : values) {
            input->AddParameter(value.first, value.second);
        }
        input->SetInputSpec(spec);
        return input;
    }

    std::shared_ptr<Tindra::CallSpec::InputSpec> spec = Tindra::CallSpec::InputSpec::New();
};

#endif
