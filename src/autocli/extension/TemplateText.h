#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_TEMPLATETEXT_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_TEMPLATETEXT_H

#include <string>
#include <vector>

#include "autocli/extension/ShellEscaping.h"

namespace Tindra {
namespace AutoCli {

// A template being filled. Inserted values stand in the text as short tokens made of control
// bytes that no descriptor can hold, so that nothing a user typed is ever read as part of a
// placeholder, a brace pair or an unused section: only the template's own text is. Render puts
// the values in; a value meant for the shell is escaped there for the place where its token
// stands in the finished command line, read with the shell's own quoting rules.
class TemplateText {
public:
    explicit TemplateText(std::string const& templateText);

    std::string& Text() { return text; }
    // The token that stands for the value, put in as it is.
    std::string Insert(std::string value);
    // The token that stands for the value, escaped for its place when rendered.
    std::string InsertForShell(std::string value, DoubleQuoteEscape inDouble);
    std::string Render() const;

private:
    struct Value {
        std::string text;
        bool forShell;
        DoubleQuoteEscape inDouble;
    };

    std::string Add(Value value);

    std::string text;
    std::vector<Value> values;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
