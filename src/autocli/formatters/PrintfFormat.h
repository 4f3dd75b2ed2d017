#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_PRINTFFORMAT_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_PRINTFFORMAT_H

#include <cstddef>
#include <string>
#include <string_view>

#include "tindra/metaobj/MetaObject.h"

namespace Tindra {
namespace AutoCli {

// A printf format that comes from the user. It is analysed once so that formatting can never
// read an argument that was not passed: only a format with exactly one conversion that fits the
// value's kind is handed to the C library.
class PrintfFormat {
public:
    explicit PrintfFormat(std::string format);

    // Formats one value into `text`. Structures and lists give the empty text. Returns the
    // printf result; a negative result leaves the cause in errno, EINVAL for a format that does
    // not fit the value.
    int Write(MetaObj::MetaObject const& value, std::string_view defaultText,
              std::string& text) const;

private:
    void Analyse();
    int Print(std::string_view defaultText, std::string& text, char const* format, ...) const;

    std::string format;
    // The conversion of a format with exactly one conversion; 0 otherwise.
    char conversion = 0;
    std::string lengthModifier;
    // The format with its conversion rewritten to take a long (an int for 'c').
    std::string integerFormat;
    // Which kinds of value the conversion takes, decided once for every cell formatted with it.
    bool fitsBool = false;
    bool fitsInt = false;
    bool fitsString = false;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
