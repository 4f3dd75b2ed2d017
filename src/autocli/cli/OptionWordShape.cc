#include "autocli/cli/OptionWordShape.h"

namespace Tindra {
namespace AutoCli {

namespace {

bool IsAsciiLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsLongNameCharacter(char c) {
    return IsAsciiLetter(c) || (c >= '0' && c <= '9') || c == '-';
}

}  // namespace

OptionWordShape ShapeOfOptionWord(std::string const& word, std::string* name, std::string* value) {
    if (word.size() == 2 && word[0] == '-' && IsAsciiLetter(word[1])) {
        if (name != nullptr) {
            *name = word.substr(1);
        }
        return OptionWordShape::Option;
    }
    if (word.size() < 4 || word.compare(0, 2, "--") != 0 || !IsAsciiLetter(word[2])) {
        return OptionWordShape::Word;
    }
    size_t end = 3;
    while (end < word.size() && IsLongNameCharacter(word[end])) {
        ++end;
    }
    bool const valueAttached = end < word.size();
    if (end == 3 || (valueAttached && (word[end] != '=' || end + 1 == word.size()))) {
        return OptionWordShape::Word;
    }
    if (name != nullptr) {
        *name = word.substr(2, end - 2);
    }
    if (!valueAttached) {
        return OptionWordShape::Option;
    }
    if (value != nullptr) {
        *value = word.substr(end + 1);
    }
    return OptionWordShape::OptionWithValue;
}

}  // namespace AutoCli
}  // namespace Tindra
