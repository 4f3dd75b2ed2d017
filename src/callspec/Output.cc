#include "tindra/callspec/Output.h"

namespace Tindra {
namespace CallSpec {

std::shared_ptr<Output> Output::New() {
    return std::make_shared<Output>();
}

}  // namespace CallSpec
}  // namespace Tindra
