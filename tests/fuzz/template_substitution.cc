// Parameter values are hostile; templates are the descriptor author's. Whatever the values, the
// filled command line must have the shell structure it has with harmless values, every quote
// closed. Blanks may split a value into words; nothing else about it may reach the shell.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cctype>
#include <cstring>

#include "fuzz/FuzzSupport.h"
#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/callspec/Input.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/ParameterSpec.h"

namespace {

using namespace Tindra::CallSpec;

// In the order the substitution walks them: values of "aa" meet the others' placeholders.
char const* const kNames[] = {"aa", "bb", "cc"};

// What the POSIX shell makes of a command line beyond its words, in order: operators, comments,
// substitutions and expansions (these also within double quotes), and a quote left open.
// Globbing and tilde expansion are left to the shell on purpose.
std::string ShellStructureOf(std::string const& line) {
    std::string const text = line.substr(0, line.find('\0'));  // the shell gets a C string
    auto const nameChar = [](char c) { return c == '_' || std::isalnum(c & 0xff); };
    std::string events;
    bool doubleQuoted = false, wordStart = true;
    for (size_t at = 0; at < text.size();) {
        char const c = text[at], next = at + 1 < text.size() ? text[at + 1] : '\0';
        bool const outside = !doubleQuoted;
        bool const separates = outside && std::strchr(" \t\n;&|<>()", c);
        if (c == '"') {
            doubleQuoted = outside;
            ++at;
        } else if (separates || c == '`') {
            events += c == ' ' || c == '\t' ? "" : std::string(1, c);
            ++at;
        } else if (outside && c == '#' && wordStart) {
            events += '#';
            at = std::min(text.find('\n', at), text.size());
        } else if (outside && c == '\'') {
            at = text.find('\'', at + 1) + 1;
            if (at == 0) {
                return events + " unterminated quote";
            }
        } else if (c == '$' && (next == '(' || next == '{')) {
            events += std::string("$") + next;
            at += 2;
        } else if (c == '$' && (nameChar(next) || (next != '\0' && std::strchr("@*#?-$!", next)))) {
            events += '$';  // the rest of a name is plain text
            at += 2;
        } else {
            // A backslash takes the next byte with it ("\<newline>" joins lines); within double
            // quotes only where it escapes. A lone dollar is literal.
            bool const escapes = outside || (next != '\0' && std::strchr("$`\"\\\n", next));
            at += c == '\\' && next != '\0' && escapes ? 2 : 1;
        }
        wordStart = separates;
    }
    return doubleQuoted ? events + " unterminated quote" : events;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size) {
    FuzzedDataProvider input(data, size);
    auto spec = InputSpec::New();
    std::vector<std::string> values[3];
    for (size_t i = 0; i < 3; ++i) {
        spec->AddParameter(ParameterSpec::New(kNames[i], i < 2 ? ParamString : ParamStringList));
        bool const given = input.ConsumeBool();
        for (size_t n = i < 2 ? 1 : input.ConsumeIntegralInRange<size_t>(0, 3); n > 0; --n) {
            values[i].push_back(input.ConsumeRandomLengthString(40));
        }
        values[i].resize(given ? values[i].size() : 0);
    }
    std::string const templateText = input.ConsumeRemainingBytesAsString();
    for (char const* afterDollar : {"$$val{", "$$list{", "$$multilist{"}) {
        if (templateText.find(afterDollar) != std::string::npos) {
            return 0;  // such a value is cut to name characters: it only picks the variable read
        }
    }
    auto command = Tindra::AutoCli::ExtensionCommand::New();
    command->SetInputSpec(spec);
    command->SetExecuteCommand(templateText);
    auto const fill = [&](bool harmless) {
        auto filled = Input::New();
        filled->SetInputSpec(spec);
        for (size_t i = 0; i < 3; ++i) {
            for (std::string const& value : values[i]) {
                filled->AddParameter(kNames[i], harmless ? "v" : value);
            }
        }
        return command->SubstituteInput(filled, false);
    };
    std::string harmless;
    try {
        harmless = fill(true);
    } catch (Tindra::TindraException const&) {
        return 0;  // a template that misuses a parameter ends the call with that message
    }
    // A template that is no command line on its own proves nothing; a line with a zero byte is
    // refused by the command, never handed to the shell.
    std::string const expected = ShellStructureOf(harmless);
    if (expected.find("unterminated") != std::string::npos) {
        return 0;
    }
    std::string const filled = fill(false), actual = ShellStructureOf(filled);
    Fuzz::Require(actual == expected || filled.find('\0') != std::string::npos,
                  "values keep the template's shell structure",
                  "template: " + templateText + "\nharmless: " + harmless + "\nfilled:   " +
                      filled + "\nexpected: " + expected + "\nactual:   " + actual);
    return 0;
}
