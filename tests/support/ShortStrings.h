#ifndef TINDRA_TESTS_SUPPORT_SHORTSTRINGS_H
#define TINDRA_TESTS_SUPPORT_SHORTSTRINGS_H

#include <boost/regex.hpp>
#include <functional>
#include <string>
#include <vector>

namespace Tindra::Testing {

// The strings on which accepts disagrees with a full match of pattern, out of every string of up
// to four characters over lower, upper, digit, '-', '_', blank, '.', line break, a byte above
// 0x7f and NUL: enough to tell a hand-written name matcher from the pattern it replaces.
inline std::vector<std::string> DisagreementsWith(
    char const* pattern, std::function<bool(std::string const&)> const& accepts) {
    static char const alphabet[] = {'a', 'q', 'z', 'A', 'Q',  'Z',    '0', '9',
                                    '-', '_', ' ', '.', '\n', '\x80', '\0'};
    boost::regex const reference(pattern);
    std::vector<std::string> strings{std::string()}, disagreements;
    for (size_t i = 0; i < strings.size(); ++i) {
        if (accepts(strings[i]) != boost::regex_match(strings[i], reference))
            disagreements.push_back(strings[i]);
        if (strings[i].size() < 4)
            for (char c : alphabet)
                strings.push_back(strings[i] + c);
    }
    return disagreements;
}

}  // namespace Tindra::Testing

#endif
