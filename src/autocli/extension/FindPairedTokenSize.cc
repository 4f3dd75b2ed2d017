// Brace pairing for templates. Unpaired opening characters count as plain text, so a naive
// recursive scan revisits the same tail again and again (exponential in the number of unpaired
// openings); one pass from the end computes the same answer in linear time and fixed stack.
#include <vector>

#include "tindra/autocli/extension/ExtensionCommand.h"

namespace Tindra {
namespace AutoCli {

namespace {

size_t const kNone = static_cast<size_t>(-1);

// closeFrom[i]: where a scan that starts at i (not on an opening skipped by the caller) finds
// the closing character of its own level, kNone if it finds none. A nested opening at i is
// skipped with its pair when it has one, else passed over as a plain character.
std::vector<size_t> CloseFromEachPosition(char const* text, size_t start, size_t length,
                                          char opening, char closing) {
    std::vector<size_t> closeFrom(length - start + 1, kNone);
    for (size_t i = length; i-- > start;) {
        size_t const here = i - start;
        if (text[i] == closing) {
            closeFrom[here] = i;
        } else if (text[i] == opening) {
            size_t const pairClose = closeFrom[here + 1];
            closeFrom[here] =
                pairClose == kNone ? closeFrom[here + 1] : closeFrom[pairClose + 1 - start];
        } else {
            closeFrom[here] = closeFrom[here + 1];
        }
    }
    return closeFrom;
}

}  // namespace

std::pair<size_t, size_t> FindPairedTokenSize(char const* text, size_t start, size_t length,
                                              char opening, char closing) {
    if (start >= length) {
        return {0, 0};
    }
    std::vector<size_t> closeFrom = CloseFromEachPosition(text, start, length, opening, closing);
    size_t const scanFrom = text[start] == opening ? start + 1 : start;
    size_t const close = closeFrom[scanFrom - start];
    if (close == kNone) {
        return {0, 0};
    }
    return {start, close - start + 1};
}

}  // namespace AutoCli
}  // namespace Tindra
