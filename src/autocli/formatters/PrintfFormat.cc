#include "autocli/formatters/PrintfFormat.h"

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <vector>

#include "tindra/metaobj/MetaBool.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaString.h"

namespace Tindra {
namespace AutoCli {

namespace {

using Conversion = PrintfFormat::Conversion;
unsigned long long const kBeyondInt = static_cast<unsigned long long>(INT_MAX) + 1;

bool IsIn(char c, char const* set) {
    return c != '\0' && std::strchr(set, c) != nullptr;
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsIntegerKind(char c) {
    return IsIn(c, "diouxXbB");
}
// Every conversion the C library knows; any other letter it prints as text.
bool IsKnownKind(char c) {
    return IsIntegerKind(c) || IsIn(c, "cspnmCSeEfFgGaA");
}

// Reads digits at `at`, saturating just above the largest int.
std::optional<unsigned long long> ReadNumber(std::string const& text, size_t& at) {
    if (at >= text.size() || !IsDigit(text[at])) {
        return std::nullopt;
    }
    unsigned long long number = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at) {
        number = std::min(kBeyondInt, number * 10 + static_cast<unsigned>(text[at] - '0'));
    }
    return number;
}

std::string ReadLengthModifier(std::string const& text, size_t& at) {
    static char const* const modifiers[] = {"hh", "ll", "h", "l", "L", "q", "j", "z", "Z", "t"};
    for (char const* modifier : modifiers) {
        if (text.compare(at, std::strlen(modifier), modifier) == 0) {
            at += std::strlen(modifier);
            return modifier;
        }
    }
    return std::string();
}

// The conversion starting after the '%' at `at`; `at` ends after it. Kind stays 0 when the
// text ends first; '*' and '$' (arguments read from elsewhere) give kind '*'.
Conversion ReadConversion(std::string const& text, size_t& at) {
    Conversion found;
    while (at < text.size() && IsIn(text[at], "-+ #0'I")) {
        found.flags += text[at++];
    }
    found.width = ReadNumber(text, at);
    if (at < text.size() && text[at] == '.') {
        ++at;
        found.precision = ReadNumber(text, at).value_or(0);
    }
    found.lengthModifier = ReadLengthModifier(text, at);
    if (at < text.size()) {
        char const kind = text[at++];
        found.kind = kind == '*' || kind == '$' ? '*' : kind;
    }
    return found;
}

// The conversion rewritten so that the C library never pads or fills further than the buffer
// shows: widths and precisions beyond it are brought down to sizes that show the same bytes,
// and `removed` is what the whole result is thereby shortened by.
struct ShortenedConversion {
    std::string text;
    unsigned long long removed = 0;
};

ShortenedConversion Shorten(Conversion const& conversion, char const* lengthModifier,
                            size_t bufferSize, size_t stringLength) {
    unsigned long long const shown = bufferSize - 1;
    unsigned long long width = conversion.width.value_or(0);
    std::optional<unsigned long long> precision = conversion.precision;
    ShortenedConversion shortened;
    if (precision && conversion.kind == 's') {
        precision = std::min<unsigned long long>(*precision, stringLength);
    } else if (precision && *precision > shown + 1) {
        // Leading zeros beyond the shown bytes: fewer of them, and the width shortened alike.
        unsigned long long const shift = *precision - (shown + 1);
        width = width > *precision ? width - shift : std::min(width, shown + 1);
        precision = shown + 1;
        shortened.removed = shift;
    }
    unsigned long long const widest = 2 * bufferSize + 64;
    if (width > widest) {
        shortened.removed += width - widest;
        width = widest;
    }
    shortened.text = "%" + conversion.flags;
    if (conversion.width) {
        shortened.text += std::to_string(width);
    }
    if (precision) {
        shortened.text += "." + std::to_string(*precision);
    }
    shortened.text += lengthModifier;
    shortened.text += conversion.kind;
    return shortened;
}

// Formats into a zero-filled buffer of `size` bytes and keeps what fits. Returns the length of
// the whole result, `removed` included.
int PrintCut(size_t size, unsigned long long removed, std::string& text, char const* format, ...) {
    std::vector<char> buffer(size, '\0');
    va_list arguments;
    va_start(arguments, format);
    int const result = std::vsnprintf(buffer.data(), size, format, arguments);
    va_end(arguments);
    if (result < 0) {
        return result;
    }
    if (static_cast<unsigned long long>(result) + removed >= kBeyondInt) {
        errno = EOVERFLOW;
        return -1;
    }
    text.assign(buffer.data());
    return result + static_cast<int>(removed);
}

size_t BufferSize(std::string const& format, std::string_view defaultText) {
    return format.size() + defaultText.size() + 65;
}

}  // namespace

PrintfFormat::PrintfFormat(std::string format) : format(std::move(format)) {
    Analyse();
}

void PrintfFormat::Analyse() {
    std::string* literal = &before;
    for (size_t i = 0; i < format.size();) {
        if (format[i] != '%' || format.compare(i, 2, "%%") == 0) {
            size_t const length = format[i] == '%' ? 2 : 1;
            literal->append(format, i, length);
            i += length;
            continue;
        }
        size_t at = i + 1;
        Conversion found = ReadConversion(format, at);
        if (found.kind == 0) {
            refusal = EINVAL;  // a '%' without a conversion, as the C library answers it
            return;
        }
        if (found.kind == '%') {
            *literal += "%%";  // flags or a width before '%' change nothing the C library prints
        } else if (!IsKnownKind(found.kind) && found.kind != '*') {
            *literal += "%%" + format.substr(i + 1, at - i - 1);
        } else if (conversion || found.kind == '*') {
            refusal = EINVAL;
            return;
        } else {
            conversion = std::move(found);
            literal = &after;
        }
        i = at;
    }
    if (conversion && (conversion->width.value_or(0) >= kBeyondInt ||
                       conversion->precision.value_or(0) >= kBeyondInt)) {
        refusal = EOVERFLOW;
    }
}

int PrintfFormat::Write(MetaObj::MetaObject const& value, std::string_view defaultText,
                        std::string& text) const {
    using namespace MetaObj;
    long number = 0;
    auto const* string = dynamic_cast<MetaString const*>(&value);
    if (auto const* flag = dynamic_cast<MetaBool const*>(&value)) {
        number = flag->GetValue() ? 1 : 0;
    } else if (auto const* integer = dynamic_cast<MetaInt const*>(&value)) {
        number = integer->GetValue();
    } else if (string == nullptr) {
        text.clear();
        return 0;
    }
    if (refusal != 0) {
        errno = refusal;
        return -1;
    }
    if (!conversion) {
        return PrintCut(BufferSize(format, defaultText), 0, text, before.c_str());
    }
    if (conversion->kind == 's' && conversion->lengthModifier.empty()) {
        // A number printed as text is its printed form.
        std::string const printed(defaultText);
        return WriteString(string != nullptr ? string->GetValue().c_str() : printed.c_str(),
                           defaultText, text);
    }
    if (string == nullptr) {
        return WriteInteger(number, defaultText, text);
    }
    errno = EINVAL;
    return -1;
}

int PrintfFormat::WriteInteger(long number, std::string_view defaultText, std::string& text) const {
    std::string const& modifier = conversion->lengthModifier;
    bool const narrow = modifier == "h" || modifier == "hh";
    size_t const size = BufferSize(format, defaultText);
    if (IsIntegerKind(conversion->kind)) {
        // Every wider modifier reads the value as the 64-bit number it is.
        ShortenedConversion const shortened =
            Shorten(*conversion, narrow ? modifier.c_str() : "l", size, 0);
        std::string const full = before + shortened.text + after;
        return narrow
                   ? PrintCut(size, shortened.removed, text, full.c_str(), static_cast<int>(number))
                   : PrintCut(size, shortened.removed, text, full.c_str(), number);
    }
    if (conversion->kind == 'c' && modifier.empty()) {
        ShortenedConversion const shortened = Shorten(*conversion, "", size, 0);
        std::string const full = before + shortened.text + after;
        return PrintCut(size, shortened.removed, text, full.c_str(), static_cast<int>(number));
    }
    errno = EINVAL;
    return -1;
}

int PrintfFormat::WriteString(char const* string, std::string_view defaultText,
                              std::string& text) const {
    size_t const size = BufferSize(format, defaultText);
    ShortenedConversion const shortened = Shorten(*conversion, "", size, std::strlen(string));
    std::string const full = before + shortened.text + after;
    return PrintCut(size, shortened.removed, text, full.c_str(), string);
}

}  // namespace AutoCli
}  // namespace Tindra
