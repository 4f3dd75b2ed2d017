// Parameter values are hostile; templates are the descriptor author's. Whatever the values,
// the filled command line must have the shell structure the template gives it: the same
// operators, substitutions, expansions and comments as with harmless values, every quote
// closed. Blanks may split a value into words; nothing else about it may reach the shell.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/FuzzSupport.h"
#include "fuzz/ShellStructure.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/extension/ExtensionCommand.h"
#include "tindra/callspec/Input.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/ParameterSpec.h"

namespace {

using namespace Tindra::CallSpec;
using Tindra::AutoCli::ExtensionCommand;

struct Parameter {
    char const* name;
    ParameterType type;
};
// Names sort as the substitution walks them; "aa" comes first, so values of "aa" are seen by
// the placeholders of the others.
Parameter const kParameters[] = {{"aa", ParamString}, {"bb", ParamString}, {"cc", ParamStringList}};

std::shared_ptr<ExtensionCommand> CommandWith(std::string const& templateText) {
    auto spec = InputSpec::New();
    for (auto const& parameter : kParameters) {
        spec->AddParameter(ParameterSpec::New(parameter.name, parameter.type));
    }
    auto command = ExtensionCommand::New();
    command->SetInputSpec(spec);
    command->SetExecuteCommand(templateText);
    return command;
}

struct Values {
    bool given[3] = {};
    std::vector<std::string> items[3];  // one for a and b, any number for c
};

std::string Fill(ExtensionCommand& command, Values const& values, bool harmless) {
    auto input = Input::New();
    input->SetInputSpec(command.GetInputSpecInternal());
    for (size_t i = 0; i < 3; ++i) {
        if (!values.given[i]) {
            continue;
        }
        for (std::string const& item : values.items[i]) {
            input->AddParameter(kParameters[i].name, harmless ? "v" : item);
        }
    }
    return command.SubstituteInput(input, false);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size) {
    FuzzedDataProvider input(data, size);
    Values values;
    for (size_t i = 0; i < 3; ++i) {
        values.given[i] = input.ConsumeBool();
        size_t const count = i < 2 ? 1 : input.ConsumeIntegralInRange(0, 3);
        for (size_t n = 0; n < count; ++n) {
            values.items[i].push_back(input.ConsumeRandomLengthString(40));
        }
    }
    std::string const templateText = input.ConsumeRemainingBytesAsString();
    for (char const* afterDollar : {"$$val{", "$$list{", "$$multilist{"}) {
        if (templateText.find(afterDollar) != std::string::npos) {
            return 0;  // such a value is cut to name characters: it only picks the variable read
        }
    }
    auto command = CommandWith(templateText);
    std::string harmless;
    try {
        harmless = Fill(*command, values, true);
    } catch (Tindra::TindraException const&) {
        return 0;  // a template that misuses a parameter ends the call with that message
    }
    Fuzz::ShellStructure const expected = Fuzz::ShellStructureOf(harmless);
    if (!expected.complete) {
        return 0;  // a template that is not a shell command line on its own proves nothing
    }
    std::string const filled = Fill(*command, values, false);
    if (filled.find('\0') != std::string::npos) {
        return 0;  // never handed to the shell: the command refuses a line with a zero byte
    }
    Fuzz::ShellStructure const actual = Fuzz::ShellStructureOf(filled);
    std::string detail = "template: " + templateText;
    for (size_t i = 0; i < 3; ++i) {
        for (std::string const& item : values.items[i]) {
            detail += std::string("\nvalue ") + kParameters[i].name +
                      (values.given[i] ? ": " : " (not given): ") + item;
        }
    }
    detail += "\nharmless: " + harmless + "\nfilled:   " + filled +
              "\nexpected: " + expected.ToString() + "\nactual:   " + actual.ToString();
    Fuzz::Require(actual == expected, "values keep the template's shell structure", detail);
    return 0;
}
