#include "tindra/autocli/tree/CommandInput.h"

#include <boost/algorithm/string/join.hpp>

namespace Tindra {
namespace AutoCli {

std::shared_ptr<CommandInput> CommandInput::New() {
    return std::make_shared<CommandInput>();
}

std::string CommandInput::GetCommandPathString() const {
    return boost::algorithm::join(commandPath, " ");
}

}  // namespace AutoCli
}  // namespace Tindra
