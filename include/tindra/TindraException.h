#ifndef TINDRA_TINDRAEXCEPTION_H
#define TINDRA_TINDRAEXCEPTION_H

#include <exception>
#include <string>

#include "tindra/Export.h"

namespace Tindra {

// The library's one exception type: a message and nothing else.
class TINDRA_EXPORT TindraException : public std::exception {
public:
    explicit TindraException(std::string const& message) : message_(message) {}
    explicit TindraException(std::string&& message) : message_(std::move(message)) {}
    explicit TindraException(char const* message) : message_(message) {}

    char const* what() const noexcept override { return message_.c_str(); }

private:
    std::string message_;
};

}  // namespace Tindra

#endif
