#ifndef TINDRA_TESTS_EXTENSION_COMMANDBUILDER_H
#define TINDRA_TESTS_EXTENSION_COMMANDBUILDER_H

#include <vector>

#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/metaobj/MetaString.h"

// Extension commands over optional parameters, with inputs for them and their runs.
struct CommandBuilder {
    using Kind = Tindra::CallSpec::ParameterType;
    using Values = std::vector<std::pair<std::string, std::string>>;  // a flag's value is empty

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
    std::shared_ptr<Tindra::CallSpec::Input> Input(Values const& values) {
        auto input = Tindra::CallSpec::Input::New();
        for (auto const& [name, value] : values)
            input->AddParameter(name, value);
        input->SetInputSpec(spec);
        return input;
    }
    std::shared_ptr<Tindra::CallSpec::Output> Run(std::string const& execute,
                                                  std::string const& stdinText,
                                                  Values const& values) {
        auto output = Tindra::CallSpec::Output::New();
        Build(execute, stdinText)->ExecuteInternal(Input(values), output);
        return output;
    }

    std::shared_ptr<Tindra::CallSpec::InputSpec> spec = Tindra::CallSpec::InputSpec::New();
};

#endif
