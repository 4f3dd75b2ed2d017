// The host's hook for an extra option on the child shell, set once before commands run.
#include "tindra/autocli/extension/ShellCmd.h"

namespace Tindra {
namespace AutoCli {

namespace {

ChildOptionMaker childOptionMaker = nullptr;

}  // namespace

void SetChildRpZorbOptionMaker(ChildOptionMaker maker) {
    childOptionMaker = maker;
}

std::string MakeChildRpZorbOption(int value) {
    return childOptionMaker != nullptr ? childOptionMaker(value) : std::string();
}

}  // namespace AutoCli
}  // namespace Tindra
