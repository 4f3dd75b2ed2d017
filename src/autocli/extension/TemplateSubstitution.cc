#include "autocli/extension/TemplateSubstitution.h"

#include <vector>

#include "autocli/extension/ShellEscaping.h"
#include "autocli/extension/TemplatePatterns.h"
#include "autocli/extension/TemplateText.h"
#include "tindra/autocli/extension/ExtensionCommand.h"

namespace Tindra {
namespace AutoCli {

namespace {

char const kDoubleQuote = '"';

void ReplaceAllLiterally(std::string& text, boost::regex const& pattern,
                         std::string const& replacement) {
    text = boost::regex_replace(text, pattern, replacement, boost::regex_constants::format_literal);
}

class ParameterFiller {
public:
    ParameterFiller(TemplateText& work, CallSpec::Input const& input, std::string const& name,
                    bool forStdin)
        : work(work), text(work.Text()), input(input), name(name), forStdin(forStdin) {}

    void Fill() {
        FillValues();
        FillConditionals();
        FillJoinedList();
        FillRepeatedOptions();
    }

private:
    bool Matches(Placeholder kind, boost::smatch* match = nullptr) {
        boost::smatch ignored;
        return boost::regex_match(text, match != nullptr ? *match : ignored,
                                  WholeTemplateTest(kind, name));
    }

    // On the command line each occurrence is escaped for its own place when the text is
    // rendered.
    void FillValues() {
        if (Matches(Placeholder::Val)) {
            std::string const& value = input.GetParameter(name);
            ReplaceAllLiterally(text, ReplacedPattern(Placeholder::Val, name),
                                Token(value, DoubleQuoteEscape::Sanitize));
        }
    }

    std::string Token(std::string value, DoubleQuoteEscape inDouble) {
        return forStdin ? work.Insert(std::move(value))
                        : work.InsertForShell(std::move(value), inDouble);
    }

    void FillConditionals() {
        if (Matches(Placeholder::If)) {
            text = boost::regex_replace(text, ReplacedPattern(Placeholder::If, name), "$1");
        }
    }

    void FillJoinedList() {
        boost::smatch match;
        if (!Matches(Placeholder::List, &match)) {
            return;
        }
        std::string const separator = match[1];
        bool const quote = match[2] == "true";
        std::string joined =
            input.GetParameterListAsString(name, separator.empty() ? '\0' : separator[0], false);
        if (!forStdin) {
            // A command line cannot carry zero bytes: an empty separator joins with nothing.
            joined = SanitizeChar(joined, '\0');
        }
        std::string value = Token(std::move(joined), DoubleQuoteEscape::Sanitize);
        if (quote) {
            value = kDoubleQuote + value + kDoubleQuote;
        }
        ReplaceAllLiterally(text, ReplacedPattern(Placeholder::List, name), value);
    }

    void FillRepeatedOptions() {
        boost::smatch match;
        if (!Matches(Placeholder::Multilist, &match)) {
            return;
        }
        std::string const option = match[1];
        bool const quote = match[2] == "true";
        std::vector<std::string> items;
        input.GetParameterList(name, items);
        std::string assembled;
        for (std::string const& item : items) {
            assembled += " " + option + " ";
            assembled += quote ? kDoubleQuote + QuotedItem(item) + kDoubleQuote
                               : Token(item, DoubleQuoteEscape::Sanitize);
        }
        ReplaceAllLiterally(text, ReplacedPattern(Placeholder::Multilist, name), assembled);
    }

    // Inside its own double quotes an item loses its double quotes; what the shell still reads
    // there is escaped, and nothing more.
    std::string QuotedItem(std::string const& item) {
        if (forStdin) {
            return work.Insert(item);
        }
        return work.InsertForShell(SanitizeChar(item, kDoubleQuote), DoubleQuoteEscape::Minimal);
    }

    TemplateText& work;
    std::string& text;
    CallSpec::Input const& input;
    std::string const& name;
    bool forStdin;
};

// Where the next search for an opening brace starts, and what to do at one.
class UnusedSectionWalk {
public:
    explicit UnusedSectionWalk(std::string& text) : text(text) {}

    void Run() {
        size_t brace = text.find('{');
        while (brace != std::string::npos) {
            brace = text.find('{', Visit(brace));
        }
    }

private:
    // Returns where to search on.
    size_t Visit(size_t brace) {
        auto pair = FindPairedTokenSize(text.c_str(), brace, text.size(), '{', '}');
        size_t dollar = text.rfind('$', brace);
        if (pair.second != 0 && dollar != std::string::npos) {
            size_t const end = brace + pair.second;
            if (boost::regex_match(text.begin() + static_cast<long>(dollar),
                                   text.begin() + static_cast<long>(end),
                                   AnyConditionalSection())) {
                text.erase(dollar, end - dollar);
                return brace;
            }
        }
        return brace + (pair.second != 0 ? pair.second : 1);
    }

    std::string& text;
};

}  // namespace

void RemoveUnusedConditionals(std::string& text) {
    if (boost::regex_match(text, AnyConditionalSection())) {
        UnusedSectionWalk(text).Run();
    }
}

std::string SubstituteTemplate(std::string const& templateText, CallSpec::Input const& input,
                               CallSpec::InputSpec const& spec, bool forStdin) {
    if (templateText.find('$') == std::string::npos) {
        return templateText;
    }
    TemplateText work(templateText);
    for (auto const& parameter : spec.parameters) {
        std::string const& name = parameter->GetName();
        if (input.HasParameter(name)) {
            ParameterFiller(work, input, name, forStdin).Fill();
        }
    }
    RemoveUnusedConditionals(work.Text());
    return work.Render();
}

}  // namespace AutoCli
}  // namespace Tindra
