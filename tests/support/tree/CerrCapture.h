#ifndef TINDRA_TESTS_SUPPORT_TREE_CERRCAPTURE_H
#define TINDRA_TESTS_SUPPORT_TREE_CERRCAPTURE_H

#include <iostream>
#include <sstream>
#include <string>

namespace Tindra::Testing {

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

}  // namespace Tindra::Testing

#endif
