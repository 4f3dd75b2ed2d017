#include "tindra/autocli/cli/CliDispatcher.h"

#include <fcntl.h>

#include <boost/regex.hpp>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <set>

#include "autocli/cli/CheckedStandardOutput.h"
#include "autocli/cli/NamespaceListing.h"
#include "autocli/cli/UsageText.h"
#include "autocli/tree/ExceptionText.h"
#include "platform/ErrnoText.h"
#include "platform/Fd.h"
#include "platform/FdInputBuffer.h"
#include "platform/TerminalSize.h"
#include "tindra/TindraException.h"
#include "tindra/autocli/formatters/CliDispatcherHelpFormatter.h"

namespace Tindra {
namespace AutoCli {

namespace {

// Set by --screen-width and kept for the rest of the process, later stream lines included.
int32_t screenWidthSetting = 0;
constexpr int32_t kMaxScreenWidth = 9999;

// strtol with base 0 (decimal, 0x hexadecimal, leading-0 octal); a non-number gives 0, and so
// does a number beyond 32 bits: both leave the terminal's width in force.
int32_t ParseScreenWidth(std::string const& text) {
    long value = std::strtol(text.c_str(), nullptr, 0);
    if (value < std::numeric_limits<int32_t>::min() ||
        value > std::numeric_limits<int32_t>::max()) {
        return 0;
    }
    return static_cast<int32_t>(value);
}

boost::regex const& FormatParameterShape() {
    static boost::regex const shape("^([a-zA-Z0-9 .\\-:]+)=(.+)$");
    return shape;
}

bool IsKnownDispatcherParameter(std::string const& name) {
    static std::set<std::string> const known = {
        "h", "help", "formatter", "plugin-dir", "plugin", "format-param", "screen-width"};
    return known.count(name) != 0;
}

// Moves the parser's errors into the output; true when there were any.
bool CopyParseErrors(OptionParser& parser, std::shared_ptr<CallSpec::Output> const& output) {
    for (auto const& error : parser.GetParseErrors()) {
        output->AddErrorMessage(error);
    }
    return !parser.GetParseErrors().empty();
}

void ApplyFormatterChoice(OptionParser& parser, FormatParameters& format,
                          std::shared_ptr<CallSpec::Output> const& output) {
    auto names = parser.GetDispatcherParameter("formatter");
    if (names.size() > 1) {
        output->AddErrorMessage("Only one --formatter option can be passed to a command");
    } else if (names.size() == 1 && names.front().empty()) {
        output->AddErrorMessage(
            "--formatter requires the name of the formatter to use for this command");
    } else if (names.size() == 1) {
        format.SetFormatter(names.front());
    }
}

void ApplyFormatParameters(OptionParser& parser, FormatParameters& format,
                           std::shared_ptr<CallSpec::Output> const& output) {
    for (auto const& value : parser.GetDispatcherParameter("format-param")) {
        boost::smatch match;
        if (boost::regex_match(value, match, FormatParameterShape())) {
            format.SetParameter(match[1], match[2]);
        } else {
            output->AddErrorMessage("Unable to read format parameter " + value);
        }
    }
}

std::string JoinedPath(std::list<std::string> const& path) {
    std::string joined;
    for (auto const& word : path) {
        joined += (joined.empty() ? "" : " ") + word;
    }
    return joined;
}

// Lends a stream another buffer while it lives.
class StreamBufferSwap {
public:
    StreamBufferSwap(std::istream& stream, std::streambuf& buffer)
        : stream(stream), previous(stream.rdbuf(&buffer)) {}
    ~StreamBufferSwap() {
        stream.rdbuf(previous);
        stream.clear();
    }
    StreamBufferSwap(StreamBufferSwap const&) = delete;
    StreamBufferSwap& operator=(StreamBufferSwap const&) = delete;

private:
    std::istream& stream;
    std::streambuf* previous;
};

// A stream that cannot be read (a directory, an I/O error) fails instead of looking empty.
bool ParseStreamWithReadCheck(CliDispatcher& dispatcher, std::istream& stream,
                              Platform::FdInputBuffer const& buffer, std::string const& what) {
    bool result = dispatcher.ParseStreamInput(stream);
    if (buffer.Error() != 0) {
        std::cerr << "Unable to read " << what << ": " << Platform::ErrnoText(buffer.Error())
                  << std::endl;
        return false;
    }
    return result;
}

}  // namespace

void CliDispatcher::HandleArgvInput(int argc, char const* const* argv) {
    CheckedStandardOutput standardOutput(argc > 0 && argv[0] != nullptr ? argv[0] : "ostrel");
    OptionParser parser;
    parser.ParseArgv(argc, argv);
    CheckedStandardOutput::Exit(HandleOptions(parser, true));
}

bool CliDispatcher::HandleOptions(OptionParser& parser, bool allowInput) {
    auto output = CommandOutput::New();
    FormatParameters format;
    if (CopyParseErrors(parser, output)) {
        PrintError(output);
        return false;
    }
    dispatcherName = parser.GetDispatcher();
    if (!HandleDispatcherOptions(parser, format, output)) {
        CheckedStandardOutput::Exit(false);
    }
    DisplayContext display;
    GetDisplayContext(display);
    if (allowInput && parser.HasDispatcherParameter("input")) {
        return HandleInputOption(parser);
    }

    std::list<std::string> path(parser.GetCommandPath().begin(), parser.GetCommandPath().end());
    // An unknown word throws; it is the caller's to report.
    auto node = GetRootNamespace()->ResolveNode(path);
    bool result = false;
    // Whatever a plug-in's code throws fails this command line only.
    try {
        if (!node || node->GetType() != NamespaceNode::COMMAND_NODE) {
            PrintChildren(node ? node : GetRootNamespace(), output);
        } else {
            result = RunCommand(parser, node, path, format, display, output);
        }
    } catch (...) {
        output->AddErrorMessage("Error on command " + JoinedPath(path) + " : " +
                                CurrentExceptionText());
        result = false;
    }
    if (output->HasError()) {
        PrintError(output);
        result = false;
    }
    return result;
}

bool CliDispatcher::HandleInputOption(OptionParser& parser) {
    auto files = parser.GetDispatcherParameter("input");
    if (files.size() != 1) {
        std::cerr << "Only one --input dispatch parameter is allowed" << std::endl;
        return false;
    }
    if (files.front() == "STDIN") {
        // Read through std::cin, so that a secret prompt on a line takes the next line.
        Platform::FdInputBuffer buffer(0);
        StreamBufferSwap swap(std::cin, buffer);
        return ParseStreamWithReadCheck(*this, std::cin, buffer, "standard input");
    }
    Platform::UniqueFd fd(::open(files.front().c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    if (!fd.IsOpen()) {
        std::cerr << "Unable to open file " << files.front() << std::endl;
        return false;
    }
    Platform::FdInputBuffer buffer(fd.Get());
    std::istream file(&buffer);
    return ParseStreamWithReadCheck(*this, file, buffer, "file " + files.front());
}

// The command's arguments are checked against its declaration before anything runs, so
// missing values and stray words stop the command like any other error.
bool CliDispatcher::RunCommand(OptionParser& parser, std::shared_ptr<NamespaceNode> node,
                               std::list<std::string> const& path, FormatParameters& format,
                               DisplayContext& display, std::shared_ptr<CommandOutput> output) {
    auto input = CommandInput::New();
    input->SetDispatcher(dispatcherName);
    input->SetCommandPath(path);
    if (auto command = std::dynamic_pointer_cast<CommandSpec>(node)) {
        parser.SetInputSpec(command->GetInputSpec());
    }
    parser.ProcessCommandArguments();
    CopyParseErrors(parser, output);
    if (output->HasError()) {
        return false;
    }
    for (auto const& pair : parser.GetCommandParameters()) {
        input->AddParameter(pair.first, pair.second);
    }
    bool executed = ExecuteCommand(input, output);
    if (output->HasError()) {
        return false;
    }
    FormatParameters chosen = ChooseFormat(input, output, format);
    if (!executed || output->HasError()) {
        return false;
    }
    return FormatOutput(output, chosen, display, std::cout);
}

// The command's own defaults (or the help layout), overridden by what the command line says.
FormatParameters CliDispatcher::ChooseFormat(std::shared_ptr<CommandInput> input,
                                             std::shared_ptr<CommandOutput> output,
                                             FormatParameters& format) {
    FormatParameters chosen;
    if (output->GetOutputType() == CallSpec::Output::Normal) {
        chosen = GetDefaultOutputFormatParameters(input, output);
    } else if (output->GetOutputType() == CallSpec::Output::Help) {
        chosen = GetHelpFormatParams();
    }
    chosen.OverrideValues(format);
    return chosen;
}

bool CliDispatcher::HandleDispatcherOptions(OptionParser& parser, FormatParameters& format,
                                            std::shared_ptr<CallSpec::Output> output) {
    ValidateDispatcherParameters(parser, output);
    if (parser.HasDispatcherParameter("h") || parser.HasDispatcherParameter("help")) {
        WriteUsage(std::cout, dispatcherName);
        return false;
    }
    auto widths = parser.GetDispatcherParameter("screen-width");
    if (!widths.empty()) {
        screenWidthSetting = ParseScreenWidth(widths.back());
    }
    ApplyFormatterChoice(parser, format, output);
    AddPluginDirectories(parser);
    AddPluginFiles(parser);
    ApplyFormatParameters(parser, format, output);
    return true;
}

void CliDispatcher::AddPluginDirectories(OptionParser& parser) {
    for (auto const& directory : parser.GetDispatcherParameter("plugin-dir")) {
        if (!directory.empty()) {
            AddExternalDirectory(directory);
        }
    }
}

void CliDispatcher::AddPluginFiles(OptionParser& parser) {
    for (auto const& file : parser.GetDispatcherParameter("plugin")) {
        if (file.empty()) {
            continue;
        }
        try {
            AddPlugin(file);
        } catch (...) {
            std::cerr << "Unable to load plugin " << file << ": " << CurrentExceptionText()
                      << std::endl;
        }
    }
}

void CliDispatcher::ValidateDispatcherParameters(OptionParser& parser,
                                                 std::shared_ptr<CallSpec::Output> output) {
    for (auto const& pair : parser.GetDispatcherParameters()) {
        if (!IsKnownDispatcherParameter(pair.first)) {
            output->AddErrorMessage("Unknown dispatcher parameter: " + pair.first);
        }
    }
}

bool CliDispatcher::ParseStreamInput(std::istream& stream) {
    bool result = true;
    std::string line;
    while (std::getline(stream, line)) {
        OptionParser parser;
        if (!parser.ParseString(line)) {
            result = HandleOptions(parser, false);
        }
    }
    return result;
}

void CliDispatcher::PrintChildren(std::shared_ptr<NamespaceNode> node,
                                  std::shared_ptr<CommandOutput> output) {
    output->SetRootObject(BuildNamespaceListing(dispatcherName, node));
    CliDispatcherHelpFormatter formatter;
    FormatParameters parameters = GetHelpFormatParams();
    DisplayContext display;
    GetDisplayContext(display);
    formatter.Format(output, parameters, display, std::cout);
}

void CliDispatcher::PrintError(std::shared_ptr<CallSpec::Output> output) {
    if (!output->HasError()) {
        return;
    }
    std::cerr << "Errors: " << std::endl;
    for (auto const& error : output->GetErrors()) {
        std::cerr << error << std::endl;
    }
}

void CliDispatcher::GetDisplayContext(DisplayContext& context) {
    Platform::GetTerminalSize(1, context.width, context.height);
    if (screenWidthSetting >= 1 && screenWidthSetting <= kMaxScreenWidth) {
        context.width = static_cast<uint16_t>(screenWidthSetting);
    }
}

FormatParameters CliDispatcher::GetHelpFormatParams() const {
    FormatParameters parameters;
    parameters.SetFormatter("commandhelp");
    return parameters;
}

}  // namespace AutoCli
}  // namespace Tindra
