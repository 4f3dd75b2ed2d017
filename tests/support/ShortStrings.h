#ifndef TINDRA_TESTS_SUPPORT_SHORTSTRINGS_H
#define TINDRA_TESTS_SUPPORT_SHORTSTRINGS_H

#include <boost/regex.hpp>
#include <functional>
#include <string>
#include <vector>

namespace Tindra {
namespace Testing {

// Every string of up to four characters over lower, upper, digit, '-', '_', blank, line break, a
// byte above 0x7f and NUL: enough to tell a hand-written name matcher from the pattern it replaces.
inline std::vector<std::string> AllShortStrings() {
    static char const alphabet[] = {'a', 'q', 'z', 'A', 'Q',  'Z',    '0', '9',
                                    '-', '_', ' ', '.', '\n', '\x80', '\0'};
    std::vector<std::string> strings{std::string()};
    for (size_t begin = 0, length = 1; length <= 4; ++length) {
        size_t const end = strings.size();
        for (size_t i = begin; i < end; ++i) {
            for (char c : alphabet) {
                strings.push_back(strings[i] + c);
            }
        }
        begin = end;
    }
    return strings;
}

// The strings on which accepts disagrees with a full match of pattern.
inline std::vector<std::string> DisagreementsWith(
    char const* pattern, std::function<bool(std::string const&)> const& accepts) {
    boost::regex const reference(pattern);
    std::vector<std::string> disagreements;
    for (std::string const& text : AllShortStrings()) {
        if (accepts(text) != boost::regex_match(text, reference)) {
            disagreements.push_back(text);
        }
    }
    return disagreements;
}

}  // namespace Testing
}  // namespace Tindra

#endif
