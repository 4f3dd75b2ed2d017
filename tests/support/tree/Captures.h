#ifndef TINDRA_TESTS_SUPPORT_TREE_CAPTURES_H
#define TINDRA_TESTS_SUPPORT_TREE_CAPTURES_H

#include <iostream>
#include <sstream>
#include <string>

#include "tindra/TindraException.h"

namespace Tindra {
namespace Testing {

// The message of the TindraException that call throws.
template <typename Call>
std::string MessageOf(Call call) {
    try {
        call();
    } catch (TindraException const& error) {
        return error.what();
    }
    return "(no exception)";
}

// Collects what is written to std::cerr while it lives.
class CerrCapture {
  public:
    CerrCapture() : saved(std::cerr.rdbuf(captured.rdbuf())) {}
    ~CerrCapture() { std::cerr.rdbuf(saved); }
    std::string Text() const { return captured.str(); }

  private:
    std::ostringstream captured;
    std::streambuf* saved;
};

}  // namespace Testing
}  // namespace Tindra

#endif
