#include "autocli/extension/ErrorLineCollector.h"

#include <algorithm>
#include <cstring>

namespace Tindra {
namespace AutoCli {

std::string const& ErrorLineCollector::Prefix() {
    static std::string const prefix = "ERROR:";
    return prefix;
}

void ErrorLineCollector::Add(char const* data, size_t length) {
    size_t pos = 0;
    while (pos < length && !finished) {
        pos += inLine ? ReadLine(data + pos, length - pos) : ReadPrefix(data + pos, length - pos);
    }
}

size_t ErrorLineCollector::ReadPrefix(char const* data, size_t length) {
    size_t const wanted = std::min(length, Prefix().size() - prefix.size());
    prefix.append(data, wanted);
    if (Prefix().compare(0, prefix.size(), prefix) != 0) {
        finished = true;  // the first line that is not an error line ends them
    } else if (prefix.size() == Prefix().size()) {
        prefix.clear();
        inLine = true;
        lineShown = shown.size() < kMaxShownLines && shownBytes < kMaxShownBytes;
        lineCut = false;
    }
    return wanted;
}

size_t ErrorLineCollector::ReadLine(char const* data, size_t length) {
    auto const* newline = static_cast<char const*>(std::memchr(data, '\n', length));
    size_t const size = newline != nullptr ? static_cast<size_t>(newline - data) : length;
    if (lineShown) {
        size_t const kept = std::min(size, kMaxShownBytes - shownBytes);
        line.append(data, kept);
        shownBytes += kept;
        lineCut = lineCut || kept < size;
    }
    if (newline == nullptr) {
        return length;
    }
    EndLine();
    return size + 1;
}

void ErrorLineCollector::EndLine() {
    if (lineShown) {
        shown.push_back(lineCut ? line + "..." : line);
    } else {
        ++notShown;
    }
    line.clear();
    inLine = false;
}

void ErrorLineCollector::DeliverTo(CallSpec::Output& output) {
    if (inLine) {
        EndLine();  // the last line needs no line feed
    }
    for (std::string& message : shown) {
        output.AddErrorMessage(std::move(message));
    }
    shown.clear();
    if (notShown > 0) {
        output.AddErrorMessage("... " + std::to_string(notShown) + " more error lines not shown");
        notShown = 0;
    }
}

}  // namespace AutoCli
}  // namespace Tindra
