#include "autocli/extension/TemplateText.h"

namespace Tindra {
namespace AutoCli {

namespace {

// XML cannot carry these bytes, so descriptor templates never hold them; should a template
// given otherwise hold one, it is kept as a value of its own.
char const kTokenStart = '\x01';
char const kTokenEnd = '\x02';

bool IsTokenByte(char c) {
    return c == kTokenStart || c == kTokenEnd;
}

}  // namespace

TemplateText::TemplateText(std::string const& templateText) {
    text.reserve(templateText.size());
    for (char c : templateText) {
        if (IsTokenByte(c)) {
            text += Insert(std::string(1, c));
        } else {
            text.push_back(c);
        }
    }
}

std::string TemplateText::Insert(std::string value) {
    values.push_back(std::move(value));
    return kTokenStart + std::to_string(values.size() - 1) + kTokenEnd;
}

std::string TemplateText::Render() const {
    std::string rendered;
    rendered.reserve(text.size());
    size_t pos = 0;
    while (pos < text.size()) {
        size_t start = text.find(kTokenStart, pos);
        if (start == std::string::npos) {
            rendered.append(text, pos, std::string::npos);
            break;
        }
        rendered.append(text, pos, start - pos);
        size_t end = text.find(kTokenEnd, start);
        rendered += values[std::stoul(text.substr(start + 1, end - start - 1))];
        pos = end + 1;
    }
    return rendered;
}

}  // namespace AutoCli
}  // namespace Tindra
