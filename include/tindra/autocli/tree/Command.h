#ifndef TINDRA_AUTOCLI_TREE_COMMAND_H
#define TINDRA_AUTOCLI_TREE_COMMAND_H

#include <memory>

#include "tindra/Export.h"
#include "tindra/autocli/tree/CommandSpec.h"
#include "tindra/callspec/CallTarget.h"

namespace Tindra {
namespace AutoCli {

// An executable command. Execute wraps the command's own work with help handling,
// error capture and output validation.
class TINDRA_EXPORT Command : public CommandSpec, public CallSpec::CallTarget {
public:
    Command() = default;
    ~Command() override = default;

    void Execute(std::shared_ptr<CallSpec::Input> input,
                 std::shared_ptr<CallSpec::Output> output) override;

protected:
    virtual void ExecuteInternal(std::shared_ptr<CallSpec::Input> input,
                                 std::shared_ptr<CallSpec::Output> output) = 0;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
