#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_TEMPLATETEXT_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_TEMPLATETEXT_H

#include <string>
#include <vector>

namespace Tindra {
namespace AutoCli {

// A template being filled. Inserted values stand in the text as short tokens made of control
// bytes that no descriptor can hold, so that nothing a user typed is ever read as part of a
// placeholder, a brace pair, a quote beside a placeholder or an unused section: only the
// template's own text is. Render puts the values in.
class TemplateText {
public:
    explicit TemplateText(std::string const& templateText);

    std::string& Text() { return text; }
    // The token that stands for the value.
    std::string Insert(std::string value);
    std::string Render() const;

private:
    std::string text;
    std::vector<std::string> values;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
