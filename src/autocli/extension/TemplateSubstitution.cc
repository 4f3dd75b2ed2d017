#include "autocli/extension/TemplateSubstitution.h"

#include <vector>

#include "autocli/extension/ShellEscaping.h"
#include "autocli/extension/TemplatePatterns.h"
#include "autocli/extension/TemplateText.h"
#include "tindra/autocli/extension/ExtensionCommand.h"

namespace Tindra {
namespace AutoCli {

namespace {

char const kSingleQuote = '\'';
char const kDoubleQuote = '"';

// The template puts the occurrence between single quotes of its own.
bool IsBetweenSingleQuotes(std::string const& text, size_t begin, size_t end) {
    return begin > 0 && end < text.size() && text[begin - 1] == kSingleQuote &&
           text[end] == kSingleQuote;
}

// Replaces each match with the text made for that match; the text itself is replaced only
// at the end, so the maker may look at it.
template <typename MakeReplacement>
void ReplaceEach(std::string& text, boost::regex const& pattern, MakeReplacement make) {
    std::string replaced;
    size_t copied = 0;
    for (boost::sregex_iterator it(text.begin(), text.end(), pattern), end; it != end; ++it) {
        size_t begin = static_cast<size_t>(it->position());
        replaced.append(text, copied, begin - copied);
        replaced += make(begin, begin + static_cast<size_t>(it->length()));
        copied = begin + static_cast<size_t>(it->length());
    }
    replaced.append(text, copied, std::string::npos);
    text = std::move(replaced);
}

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

    // Each occurrence gets the value for its own place: quotes removed between the template's
    // single quotes, shell characters escaped elsewhere.
    void FillValues() {
        if (!Matches(Placeholder::Val)) {
            return;
        }
        std::string const& value = input.GetParameter(name);
        if (forStdin) {
            ReplaceAllLiterally(text, ReplacedPattern(Placeholder::Val, name), work.Insert(value));
            return;
        }
        std::string const quoted = work.Insert(SanitizeChar(value, kSingleQuote));
        std::string const unquoted = work.Insert(SanitizeInput(value));
        ReplaceEach(text, ReplacedPattern(Placeholder::Val, name), [&](size_t begin, size_t end) {
            return IsBetweenSingleQuotes(text, begin, end) ? quoted : unquoted;
        });
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
            joined = SanitizeInput(SanitizeChar(joined, '\0'));
        }
        std::string value = work.Insert(std::move(joined));
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
            std::string const value = work.Insert(ItemForMultilist(item, quote));
            assembled += " " + option + " ";
            assembled += quote ? kDoubleQuote + value + kDoubleQuote : value;
        }
        ReplaceAllLiterally(text, ReplacedPattern(Placeholder::Multilist, name), assembled);
    }

    std::string ItemForMultilist(std::string const& item, bool quote) const {
        if (forStdin) {
            return item;
        }
        if (!quote) {
            return SanitizeInput(item);
        }
        // Double quotes would still let the shell expand $, backquotes and backslashes.
        return EscapeInsideDoubleQuotes(SanitizeChar(item, kDoubleQuote));
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
