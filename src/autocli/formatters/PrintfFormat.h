#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_PRINTFFORMAT_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_PRINTFFORMAT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace AutoCli {

// A printf format that comes from the user. It is analysed once so that formatting can never
// read an argument that was not passed: a format holds no conversion, or one conversion that
// takes the value, or it is refused; '*', '$', '%n' and a second conversion are always refused.
// A conversion the C library does not know is printed as text, as the C library would.
class PrintfFormat {
public:
    explicit PrintfFormat(std::string format);

    // Formats one value into `text`, cut at the field's buffer: (length of the format) +
    // (length of the default text) + 65 bytes, one of them the terminator. Structures and
    // lists give the empty text. Returns the length the whole result would have; a negative
    // result leaves the cause in errno, EINVAL for a format that does not fit the value.
    int Write(MetaObj::MetaObject const& value, std::string_view defaultText,
              std::string& text) const;

    struct Conversion {
        std::string flags;
        // Saturated just above the largest int, which the C library refuses.
        std::optional<unsigned long long> width;
        std::optional<unsigned long long> precision;
        std::string lengthModifier;
        char kind = 0;
    };

private:
    void Analyse();
    int WriteInteger(long number, std::string_view defaultText, std::string& text) const;
    int WriteString(char const* string, std::string_view defaultText, std::string& text) const;

    std::string format;
    // The text around the conversion, as the C library is to be given it.
    std::string before;
    std::string after;
    std::optional<Conversion> conversion;
    // The errno of a format refused whatever the value; 0 for a usable one.
    int refusal = 0;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
