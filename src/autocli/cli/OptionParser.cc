#include "tindra/autocli/cli/OptionParser.h"

#include <iostream>
#include <sstream>

#include "autocli/cli/CommandLineSplitter.h"
#include "autocli/cli/OptionWordShape.h"
#include "platform/TerminalEchoGuard.h"

namespace Tindra {
namespace AutoCli {

namespace {

std::stack<std::string> StackOf(std::vector<std::string> const& words) {
    std::stack<std::string> stack;
    for (auto word = words.rbegin(); word != words.rend(); ++word) {
        stack.push(*word);
    }
    return stack;
}

std::vector<std::string> ValuesNamed(std::vector<OptionParser::Pair> const& pairs,
                                     std::string const& name) {
    std::vector<std::string> values;
    for (auto const& pair : pairs) {
        if (pair.first == name) {
            values.push_back(pair.second);
        }
    }
    return values;
}

bool HasPairNamed(std::vector<OptionParser::Pair> const& pairs, std::string const& name) {
    for (auto const& pair : pairs) {
        if (pair.first == name) {
            return true;
        }
    }
    return false;
}

// The guard comes first, so that nothing typed after the prompt appears is echoed; it prints
// the prompt again when the process continues after a stop.
std::string ReadLineWithoutEcho(std::string const& prompt) {
    Platform::TerminalEchoGuard silence(0, prompt);
    std::cout << prompt << std::flush;
    std::string line;
    std::getline(std::cin, line);
    return line;
}

void DumpPairs(std::ostringstream& out, std::vector<OptionParser::Pair> const& pairs) {
    for (auto const& pair : pairs) {
        out << "\n   --" << pair.first << " = '" << pair.second << "'";
    }
}

}  // namespace

OptionParser::OptionParser() : dispatcher("ostrel") {}

OptionParser::OptionParser(std::string const& dispatcher) : dispatcher(dispatcher) {}

void OptionParser::ParseArgv(int argc, char const* const* argv) {
    if (argc < 1) {
        return;
    }
    dispatcher = argv[0];
    ParseVector(std::vector<std::string>(argv + 1, argv + argc));
}

void OptionParser::ParseVector(std::vector<std::string> const& words) {
    std::stack<std::string> stack = StackOf(words);
    ParseStack(stack);
}

bool OptionParser::ParseString(std::string const& line) {
    std::vector<std::string> words = SplitCommandLine(line);
    if (words.empty()) {
        return true;
    }
    ParseVector(words);
    return false;
}

void OptionParser::ParseStack(std::stack<std::string>& words) {
    if (words.empty()) {
        return;
    }
    dispatcherParameters = ParseParameters(words);
    commandPath = ParsePath(words);
    pending = words;
}

bool OptionParser::IsParameter(std::string const& word) const {
    return ShapeOfOptionWord(word) != OptionWordShape::Word;
}

bool OptionParser::ParseParameter(std::string const& word, std::string& name, std::string& value) {
    switch (ShapeOfOptionWord(word, &name, &value)) {
        case OptionWordShape::Option:
            return false;
        case OptionWordShape::OptionWithValue:
            return true;
        case OptionWordShape::Word:
            break;
    }
    parseErrors.push_back("Attempt to parse option failed.  Input was : " + word);
    return false;
}

std::vector<OptionParser::Pair> OptionParser::ParseParameters(std::stack<std::string>& words) {
    std::vector<Pair> pairs;
    while (!words.empty() && IsParameter(words.top())) {
        std::string word = words.top();
        words.pop();
        std::string name;
        std::string value;
        if (!ParseParameter(word, name, value)) {
            // Every option takes the next word as its value when that word is no option;
            // the parameter's kind is checked later, by validation.
            if (!words.empty() && !IsParameter(words.top())) {
                value = words.top();
                words.pop();
            } else {
                ReadMissingValue(word, name, value);
            }
        }
        pairs.emplace_back(std::move(name), std::move(value));
    }
    return pairs;
}

void OptionParser::ReadMissingValue(std::string const& word, std::string const& name,
                                    std::string& value) {
    if (!inputSpec) {
        return;
    }
    for (auto const& parameter : inputSpec->parameters) {
        if (parameter->GetName() != name && parameter->GetShortName() != name) {
            continue;
        }
        if (parameter->IsSecret()) {
            value = ReadLineWithoutEcho("Enter value for '" + parameter->GetName() + "': ");
            std::cout << std::endl;
        } else if (parameter->GetType() != CallSpec::ParamFlag && parameter->GetName() != "help") {
            parseErrors.push_back(word + " must have value");
        }
        return;
    }
}

std::list<std::string> OptionParser::ParsePath(std::stack<std::string>& words) {
    std::list<std::string> path;
    while (!words.empty() && !IsParameter(words.top())) {
        path.push_back(words.top());
        words.pop();
    }
    return path;
}

void OptionParser::ProcessCommandArguments() {
    if (pending.empty()) {
        return;
    }
    commandParameters = ParseParameters(pending);
    if (pending.empty()) {
        return;
    }
    std::string message = "Found Extra non-parameter arguments at the end of input: ";
    for (; !pending.empty(); pending.pop()) {
        message += "'" + pending.top() + "' ";
    }
    parseErrors.push_back(std::move(message));
}

std::vector<OptionParser::Pair>& OptionParser::GetCommandParameters() {
    ProcessCommandArguments();
    return commandParameters;
}

std::vector<std::string> OptionParser::GetCommandParameter(std::string const& name) {
    return ValuesNamed(GetCommandParameters(), name);
}

bool OptionParser::HasCommandParameter(std::string const& name) {
    return HasPairNamed(GetCommandParameters(), name);
}

std::vector<std::string> OptionParser::GetDispatcherParameter(std::string const& name) const {
    return ValuesNamed(dispatcherParameters, name);
}

bool OptionParser::HasDispatcherParameter(std::string const& name) const {
    return HasPairNamed(dispatcherParameters, name);
}

std::string OptionParser::GetSilentString() {
    return ReadLineWithoutEcho("");
}

std::string OptionParser::ToString() {
    ProcessCommandArguments();
    std::ostringstream out;
    out << "Parsed: " << (parsed ? 1 : 0);
    out << "\nDispatcher: " << dispatcher;
    out << "\nErrors: ";
    for (auto const& error : parseErrors) {
        out << "\n   " << error;
    }
    out << "\nPath: ";
    for (auto const& word : commandPath) {
        out << "'" << word << "'";
    }
    out << "\nDispatch Params: ";
    DumpPairs(out, dispatcherParameters);
    out << "\nCommand Params: ";
    DumpPairs(out, commandParameters);
    out << "\n";
    return out.str();
}

}  // namespace AutoCli
}  // namespace Tindra
