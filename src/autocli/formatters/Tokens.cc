#include "autocli/formatters/Tokens.h"

namespace Tindra {
namespace AutoCli {

std::vector<std::string> SplitTokens(std::string_view text, char separator) {
    std::vector<std::string> tokens;
    ForEachToken(text, separator,
                 [&tokens](std::string_view token) { tokens.emplace_back(token); });
    return tokens;
}

}  // namespace AutoCli
}  // namespace Tindra
