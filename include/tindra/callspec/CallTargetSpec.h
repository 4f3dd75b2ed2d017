#ifndef TINDRA_CALLSPEC_CALLTARGETSPEC_H
#define TINDRA_CALLSPEC_CALLTARGETSPEC_H

#include <memory>

#include "tindra/Export.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/OutputSpec.h"

namespace Tindra {
namespace CallSpec {

// What a callable declares: its input and its output.
class TINDRA_EXPORT CallTargetSpec {
public:
    virtual ~CallTargetSpec() = default;
    virtual std::shared_ptr<InputSpec> GetInputSpec() = 0;
    virtual std::shared_ptr<OutputSpec> GetOutputSpec() = 0;
};

}  // namespace CallSpec
}  // namespace Tindra

#endif
