#ifndef RESOURCE_EXAMPLE_RESOURCEGETCOMMAND_H
#define RESOURCE_EXAMPLE_RESOURCEGETCOMMAND_H

#include <memory>

#include "tindra/autocli/tree/Command.h"

namespace ResourceExample {

// "system resource get": memory, load and uptime of the host, optionally the caller's limits.
class ResourceGetCommand : public Tindra::AutoCli::Command {
public:
    static std::shared_ptr<ResourceGetCommand> New();

    ResourceGetCommand();

protected:
    std::shared_ptr<Tindra::CallSpec::InputSpec> GetInputSpecInternal() override;
    std::shared_ptr<Tindra::CallSpec::OutputSpec> GetOutputSpecInternal() override;
    void ExecuteInternal(std::shared_ptr<Tindra::CallSpec::Input> input,
                         std::shared_ptr<Tindra::CallSpec::Output> output) override;
};

}  // namespace ResourceExample

#endif
