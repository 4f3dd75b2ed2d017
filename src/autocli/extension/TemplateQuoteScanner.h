#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_TEMPLATEQUOTESCANNER_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_TEMPLATEQUOTESCANNER_H

#include "autocli/extension/ShellEscaping.h"

namespace Tindra {
namespace AutoCli {

// Follows a command line byte by byte as /bin/sh reads its quoting, so that a value can be
// escaped for the exact place it lands in. Single quotes, double quotes, backslashes,
// comments and plain ${NAME} expansions are followed; after any construct whose quoting is
// not followed here (command substitution, backquotes, other ${...}, $'...', here-documents)
// every place is opaque for the rest of the text.
class TemplateQuoteScanner {
public:
    void Feed(char c);
    ShellPlace Place() const;
    // A backslash just read that acts on whatever comes next.
    bool EscapePending() const { return escaped; }
    // The backslash just read was taken back out of the line.
    void DropPendingEscape() { escaped = false; }
    // Outside quotes, where a '#' would begin a comment.
    bool AtWordStart() const { return wordStart && !escaped; }

private:
    enum class Mode { Plain, Single, Double, Comment, BraceName };

    void FeedPlain(char c);
    void FeedDouble(char c);
    void FeedBraceName(char c);
    // A '$' just before: true when c made it into a construct.
    bool FollowsDollar(char c, Mode from);

    Mode mode = Mode::Plain;
    Mode afterBrace = Mode::Plain;
    bool escaped = false;
    bool wordStart = true;  // a '#' here would begin a comment
    bool dollar = false;
    bool lessThan = false;
    bool lost = false;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
