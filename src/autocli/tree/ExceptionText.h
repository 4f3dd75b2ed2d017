#ifndef TINDRA_SRC_AUTOCLI_TREE_EXCEPTIONTEXT_H
#define TINDRA_SRC_AUTOCLI_TREE_EXCEPTIONTEXT_H

#include <string>

namespace Tindra {
namespace AutoCli {

// The text of the exception being handled: what() of a standard exception, or a fixed text for
// any other type (plug-ins may throw anything). Call only inside a catch block.
std::string CurrentExceptionText();

}  // namespace AutoCli
}  // namespace Tindra

#endif
