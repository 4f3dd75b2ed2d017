#include "tindra/autocli/formatters/CommandHelpFormatter.h"

#include <algorithm>

#include "autocli/formatters/Spaces.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/formatters/FieldHelpers.h"

namespace Tindra {
namespace AutoCli {

using MetaObj::MetaBool;
using MetaObj::MetaList;
using MetaObj::MetaStruct;

namespace {

char const* const kSecretWarning =
    "\nWARNING: Providing secret values on the command line is insecure because it may be logged "
    "or preserved in history files. Instead, specify this option with no value on the command "
    "line, and enter the value on the supplied prompt.";

// Width of "  -x|--", the option prefix of a one-letter short name.
constexpr int kPrefixWidth = 7;

bool GetBoolField(MetaStruct const& structure, std::string const& name) {
    auto const field = structure.GetField(name);
    auto const* flag = dynamic_cast<MetaBool const*>(field.get());
    return flag != nullptr && flag->GetValue();
}

std::vector<std::shared_ptr<MetaStruct>> Structures(std::shared_ptr<MetaList> const& list) {
    std::vector<std::shared_ptr<MetaStruct>> structures;
    if (list) {
        for (auto const& item : list->GetObjects()) {
            if (auto structure = std::dynamic_pointer_cast<MetaStruct>(item)) {
                structures.push_back(std::move(structure));
            }
        }
    }
    return structures;
}

std::string OptionDescription(std::shared_ptr<MetaStruct> const& option) {
    bool const required = GetBoolField(*option, "Required");
    bool const secret = GetBoolField(*option, "Secret");
    std::string text = GetStringField(option, "Description");
    if (required || secret) {
        text += required && secret ? " (required secret)" : required ? " (required)" : " (secret)";
    }
    if (secret) {
        text += kSecretWarning;
    }
    return text;
}

void WriteOptions(std::shared_ptr<MetaList> const& list, DisplayContext const& display,
                  std::ostream& out) {
    auto const options = Structures(list);
    size_t longest = 0;
    for (auto const& option : options) {
        longest = std::max(longest, GetStringField(option, "Name").size() + 1);
    }
    int const nameWidth = static_cast<int>(longest) + 2;
    for (auto const& option : options) {
        out.setf(std::ios_base::left, std::ios_base::adjustfield);
        std::string const shortName = GetStringField(option, "Short Name");
        out << (shortName.empty() ? "     --" : "  -" + shortName + "|--");
        std::string const name = GetStringField(option, "Name");
        out << name;
        WriteSpaces(out,
                    name.size() < static_cast<size_t>(nameWidth) ? nameWidth - name.size() : 0);
        AutoCli_FitString(kPrefixWidth + nameWidth, display.width, OptionDescription(option), true,
                          out, true, 0, true);
        out.unsetf(std::ios_base::left);
    }
}

void WriteExamples(std::shared_ptr<MetaList> const& list, DisplayContext const& display,
                   std::ostream& out) {
    if (!list || list->GetCount() == 0) {
        return;
    }
    out << "\nExamples: \n\n";
    for (auto const& example : Structures(list)) {
        AutoCli_FitString(4, display.width, GetStringField(example, "Description"), false, out,
                          true, 0, false);
        out << GetStringField(example, "Syntax");
        AutoCli_FitString(8, display.width, std::string(), false, out, true, 0, false);
        out << '\n';
    }
}

}  // namespace

CommandHelpFormatter::CommandHelpFormatter() : Formatter("commandhelp") {
    description = "Handle --help output for commands";
}

bool CommandHelpFormatter::Format(std::shared_ptr<CallSpec::Output> output, FormatParameters&,
                                  DisplayContext& display, std::ostream& out) {
    auto const help =
        std::dynamic_pointer_cast<MetaStruct>(output ? output->GetRootObject() : nullptr);
    if (!help || help->GetTypeName() != "OstrelCommandHelp") {
        throw TindraException(
            "Error: Unexpected type for output, formatter expected a struct with help information");
    }
    out << "Usage: " << GetStringField(help, "Dispatcher") << ' ' << GetStringField(help, "Path")
        << " <options>\n\n";
    out << "Description: " << GetStringField(help, "Description") << "\n\n";
    WriteOptions(std::dynamic_pointer_cast<MetaList>(help->GetField("Param List")), display, out);
    WriteExamples(std::dynamic_pointer_cast<MetaList>(help->GetField("Example List")), display,
                  out);
    return true;
}

}  // namespace AutoCli
}  // namespace Tindra
