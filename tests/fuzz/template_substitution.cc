// Parameter values are hostile; templates are the descriptor author's. Whatever the values, the
// filled command line must have the shell structure it has with harmless values, every quote
// closed. Blanks may split a value into words; nothing else about it may reach the shell.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz/FuzzSupport.h"
#include "fuzz/ShellStructure.h"
#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/callspec/Input.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/ParameterSpec.h"

using namespace Tindra::CallSpec;

// In the order the substitution walks them: values of "aa" meet the others' placeholders.
char const* const kNames[] = {"aa", "bb", "cc"};

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size) {
    FuzzedDataProvider input(data, size);
    std::vector<std::string> values[3];
    for (size_t i = 0; i < 3; ++i) {
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
    auto spec = InputSpec::New();
    for (size_t i = 0; i < 3; ++i) {
        spec->AddParameter(ParameterSpec::New(kNames[i], i < 2 ? ParamString : ParamStringList));
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
    std::string const expected = Fuzz::ShellStructureOf(harmless);
    if (expected.find("unterminated") != std::string::npos) {
        return 0;  // a template that is no command line on its own proves nothing
    }
    std::string const filled = fill(false);
    if (filled.find('\0') != std::string::npos) {
        return 0;  // never handed to the shell: the command refuses a line with a zero byte
    }
    std::string const actual = Fuzz::ShellStructureOf(filled);
    Fuzz::Require(actual == expected, "values keep the template's shell structure",
                  "template: " + templateText + "\nharmless: " + harmless + "\nfilled:   " +
                      filled + "\nexpected: " + expected + "\nactual:   " + actual);
    return 0;
}
