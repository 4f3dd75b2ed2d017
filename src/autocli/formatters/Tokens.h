#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_TOKENS_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_TOKENS_H

#include <string>
#include <string_view>
#include <vector>

namespace Tindra {
namespace AutoCli {

// Calls visit(token) for the text between separators: empty tokens at the front and between two
// separators are kept, a trailing separator yields no empty token, an empty text yields none.
// This is the token mode of a one-character pattern, without the cost of a regular expression
// on texts that may be megabytes long.
template <typename Visitor>
void ForEachToken(std::string_view text, char separator, Visitor&& visit) {
    size_t start = 0;
    while (start < text.size()) {
        size_t const end = text.find(separator, start);
        if (end == std::string_view::npos) {
            visit(text.substr(start));
            return;
        }
        visit(text.substr(start, end - start));
        start = end + 1;
    }
}

std::vector<std::string> SplitTokens(std::string_view text, char separator);

}  // namespace AutoCli
}  // namespace Tindra

#endif
