#ifndef TINDRA_CALLSPEC_CALLTARGET_H
#define TINDRA_CALLSPEC_CALLTARGET_H

#include <memory>

#include "tindra/Export.h"
#include "tindra/callspec/Input.h"
#include "tindra/callspec/Output.h"

namespace Tindra {
namespace CallSpec {

// Something that can be called with an input and fills an output.
class TINDRA_EXPORT CallTarget {
public:
    virtual ~CallTarget() = default;
    virtual void Execute(std::shared_ptr<Input> input, std::shared_ptr<Output> output) = 0;
};

}  // namespace CallSpec
}  // namespace Tindra

#endif
