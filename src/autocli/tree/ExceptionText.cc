#include "autocli/tree/ExceptionText.h"

#include <exception>

namespace Tindra {
namespace AutoCli {

std::string CurrentExceptionText() {
    try {
        throw;
    } catch (std::exception const& error) {
        return error.what();
    } catch (...) {
        return "an exception of unknown type";
    }
}

}  // namespace AutoCli
}  // namespace Tindra
