#include "autocli/formatters/PrintfFormat.h"

#include <cerrno>
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

bool IsFlag(char c) {
    return std::strchr("-+ #0'", c) != nullptr && c != '\0';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsIntegerConversion(char c) {
    return c != '\0' && std::strchr("diuxXoc", c) != nullptr;
}

size_t SkipWhile(std::string const& text, size_t at, bool (*accept)(char)) {
    while (at < text.size() && accept(text[at])) {
        ++at;
    }
    return at;
}

// Wider fields than the widest screen only make the C library pad for seconds into a buffer that
// keeps a few dozen bytes of it, so such widths and precisions are refused.
constexpr unsigned long kWidestField = 65535;

size_t SkipNumber(std::string const& text, size_t at, bool& tooWide) {
    size_t const end = SkipWhile(text, at, IsDigit);
    size_t const digits = end - at;
    tooWide =
        tooWide || digits > 5 || (digits > 0 && std::stoul(text.substr(at, digits)) > kWidestField);
    return end;
}

size_t LengthModifierEnd(std::string const& text, size_t at) {
    static char const* const modifiers[] = {"hh", "ll", "h", "l", "L", "q", "j", "z", "t"};
    for (char const* modifier : modifiers) {
        if (text.compare(at, std::strlen(modifier), modifier) == 0) {
            return at + std::strlen(modifier);
        }
    }
    return at;
}

}  // namespace

PrintfFormat::PrintfFormat(std::string format) : format(std::move(format)) {
    Analyse();
}

// Finds the one conversion; anything unusual ('*', '$', a second conversion, a dangling '%')
// leaves `conversion` at 0 so that the format is refused for every kind of value.
void PrintfFormat::Analyse() {
    bool tooWide = false;
    size_t conversions = 0;
    size_t lengthBegin = 0;
    size_t lengthEnd = 0;
    char found = 0;
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            continue;
        }
        if (i + 1 < format.size() && format[i + 1] == '%') {
            ++i;
            continue;
        }
        size_t at = SkipWhile(format, i + 1, IsFlag);
        at = SkipNumber(format, at, tooWide);
        if (at < format.size() && format[at] == '.') {
            at = SkipNumber(format, at + 1, tooWide);
        }
        lengthBegin = at;
        lengthEnd = LengthModifierEnd(format, at);
        if (lengthEnd >= format.size() || ++conversions > 1) {
            return;
        }
        found = format[lengthEnd];
        i = lengthEnd;
    }
    if (tooWide || conversions != 1 || (found != 's' && !IsIntegerConversion(found))) {
        return;
    }
    conversion = found;
    lengthModifier = format.substr(lengthBegin, lengthEnd - lengthBegin);
    integerFormat =
        format.substr(0, lengthBegin) + (conversion == 'c' ? "" : "l") + format.substr(lengthEnd);
    fitsBool = IsIntegerConversion(conversion) && lengthModifier.empty();
    fitsInt = IsIntegerConversion(conversion) &&
              (lengthModifier.empty() || lengthModifier == "l" || lengthModifier == "ll");
    fitsString = conversion == 's' && lengthModifier.empty();
}

int PrintfFormat::Write(MetaObj::MetaObject const& value, std::string_view defaultText,
                        std::string& text) const {
    using namespace MetaObj;
    if (auto const* flag = dynamic_cast<MetaBool const*>(&value)) {
        if (fitsBool) {
            return Print(defaultText, text, format.c_str(), flag->GetValue() ? 1 : 0);
        }
    } else if (auto const* number = dynamic_cast<MetaInt const*>(&value)) {
        if (fitsInt && conversion == 'c') {
            return Print(defaultText, text, integerFormat.c_str(),
                         static_cast<int>(number->GetValue()));
        }
        if (fitsInt) {
            return Print(defaultText, text, integerFormat.c_str(), number->GetValue());
        }
    } else if (auto const* string = dynamic_cast<MetaString const*>(&value)) {
        if (fitsString) {
            return Print(defaultText, text, format.c_str(), string->GetValue().c_str());
        }
    } else {
        text.clear();
        return 0;
    }
    errno = EINVAL;
    return -1;
}

// The buffer is sized from the format and the default text; longer results are cut, as the
// user asked for a field, not for unbounded output. Most fit on the stack.
int PrintfFormat::Print(std::string_view defaultText, std::string& text, char const* fmt,
                        ...) const {
    size_t const size = format.size() + defaultText.size() + 65;
    char onStack[256];
    std::vector<char> onHeap(size > sizeof(onStack) ? size : 0);
    char* const buffer = onHeap.empty() ? onStack : onHeap.data();
    va_list arguments;
    va_start(arguments, fmt);
    int const result = std::vsnprintf(buffer, size, fmt, arguments);
    va_end(arguments);
    if (result >= 0) {
        text.assign(buffer);
    }
    return result;
}

}  // namespace AutoCli
}  // namespace Tindra
