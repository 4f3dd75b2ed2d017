// The option line is typed by the user: argument vectors and the lines of a command-line
// stream. The parser must never throw, never hang on a pathological word, and always hand out
// a path of ordinary words and pairs named as options are named.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/FuzzSupport.h"
#include "tindra/autocli/cli/OptionParser.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/ParameterSpec.h"

namespace {

using Tindra::AutoCli::OptionParser;
using namespace Tindra::CallSpec;

// A command's declarations of every kind that changes how a missing value is handled (a
// secret one would wait for the terminal, so there is none).
std::shared_ptr<InputSpec> CommandSpec() {
    auto spec = InputSpec::New();
    auto name = ParameterSpec::New("name", ParamString);
    name->SetShortName("n");
    name->SetRequired(true);
    spec->AddParameter(name);
    spec->AddParameter(ParameterSpec::New("verbose", ParamFlag));
    spec->AddParameter(ParameterSpec::New("count", ParamInt));
    spec->AddParameter(ParameterSpec::New("paths", ParamStringList));
    return spec;
}

bool IsOptionName(std::string const& name) {
    auto const letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    if (name.empty() || !letter(name[0])) {
        return false;
    }
    for (char c : name.substr(1)) {
        if (!letter(c) && !(c >= '0' && c <= '9') && c != '-') {
            return false;
        }
    }
    return true;
}

void CheckPairs(std::vector<OptionParser::Pair> const& pairs, std::string const& line) {
    for (auto const& [name, value] : pairs) {
        Fuzz::Require(IsOptionName(name), "a pair is named as an option is", line + "\n" + name);
    }
}

void Check(OptionParser& parser, std::string const& line, bool fromStream) {
    for (std::string const& word : parser.GetCommandPath()) {
        Fuzz::Require(!parser.IsParameter(word), "the path holds no option", line + "\n" + word);
        if (fromStream) {
            Fuzz::Require(word.find('"') == std::string::npos,
                          "stream words are free of double quotes", line);
        }
    }
    CheckPairs(parser.GetDispatcherParameters(), line);
    parser.SetInputSpec(CommandSpec());
    CheckPairs(parser.GetCommandParameters(), line);
    parser.ToString();
}

std::vector<std::string> Split(std::string const& text, char separator) {
    std::vector<std::string> parts;
    size_t start = 0;
    for (size_t end; (end = text.find(separator, start)) != std::string::npos; start = end + 1) {
        parts.push_back(text.substr(start, end - start));
    }
    parts.push_back(text.substr(start));
    return parts;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    std::string const text(reinterpret_cast<char const*>(data) + 1, size - 1);
    if (data[0] & 1) {
        // A command-line stream: one command line per line.
        for (std::string const& line : Split(text, '\n')) {
            OptionParser parser;
            if (!parser.ParseString(line)) {
                Check(parser, line, true);
            }
        }
        return 0;
    }
    // An argument vector: words end at zero bytes, the first is the program name.
    std::vector<std::string> const words = Split(text, '\0');
    std::vector<char const*> argv;
    for (std::string const& word : words) {
        argv.push_back(word.c_str());
    }
    OptionParser parser;
    parser.ParseArgv(static_cast<int>(argv.size()), argv.data());
    Fuzz::Require(parser.GetDispatcher() == words[0], "the program name is the dispatcher", text);
    Check(parser, text, false);
    return 0;
}
