#include "tindra/autocli/tree/CommandOutput.h"

namespace Tindra {
namespace AutoCli {

std::shared_ptr<CommandOutput> CommandOutput::New() {
    return std::make_shared<CommandOutput>();
}

}  // namespace AutoCli
}  // namespace Tindra
