#include "autocli/extension/TemplatePatterns.h"

namespace Tindra {
namespace AutoCli {

namespace {

struct PatternPieces {
    char const* before;  // up to the name
    char const* after;   // from the name on
};

PatternPieces Pieces(Placeholder kind) {
    switch (kind) {
        case Placeholder::Val:
            return {"\\$val\\{", "\\}"};
        case Placeholder::If:
            return {"\\$if\\{", ",(.+?)\\}"};
        case Placeholder::List:
            return {"\\$list\\{", ",'(.?)',(true|false)\\}"};
        case Placeholder::Multilist:
        default:
            return {"\\$multilist\\{", ",(.+?),(true|false)\\}"};
    }
}

}  // namespace

boost::regex ReplacedPattern(Placeholder kind, std::string const& name) {
    PatternPieces pieces = Pieces(kind);
    return boost::regex(pieces.before + name + pieces.after);
}

boost::regex WholeTemplateTest(Placeholder kind, std::string const& name) {
    PatternPieces pieces = Pieces(kind);
    // The value test captures the text around the placeholder; the others only what is in it.
    char const* lead = kind == Placeholder::Val ? "(.*)" : ".*";
    char const* trail = kind == Placeholder::Val ? "(.*)" : ".*";
    return boost::regex(lead + std::string(pieces.before) + name + pieces.after + trail);
}

boost::regex const& AnyConditionalSection() {
    static boost::regex const pattern(".*\\$if\\{[a-z0-9-]+,.+?\\}.*");
    return pattern;
}

}  // namespace AutoCli
}  // namespace Tindra
