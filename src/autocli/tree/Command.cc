#include "tindra/autocli/tree/Command.h"

#include <exception>
#include <string>
#include <vector>

#include "tindra/autocli/tree/CommandInput.h"

namespace Tindra {
namespace AutoCli {

namespace {

// Errors name the command the way the user typed it when the input knows the path.
std::string NameForErrors(CallSpec::Input& input, std::string const& nodeName) {
    if (auto* commandInput = dynamic_cast<CommandInput*>(&input)) {
        return commandInput->GetCommandPathString();
    }
    return nodeName;
}

}  // namespace

void Command::Execute(std::shared_ptr<CallSpec::Input> input,
                      std::shared_ptr<CallSpec::Output> output) {
    if (input->HasParameter("help")) {
        GenerateHelpOutput(input, output);
        return;
    }
    try {
        ExecuteInternal(input, output);
    } catch (std::exception const& error) {
        output->AddErrorMessage("Error on command " + NameForErrors(*input, GetName()) + " : " +
                                error.what());
    }
    if (output->HasError()) {
        return;
    }
    std::vector<std::string> errors;
    if (!GetOutputSpec()->Validate(output, &errors)) {
        for (auto& error : errors) {
            output->AddErrorMessage(std::move(error));
        }
        output->AddErrorMessage(
            "Implementation error! The output of this command does not match the declared "
            "output type, see errors above.");
    }
}

}  // namespace AutoCli
}  // namespace Tindra
