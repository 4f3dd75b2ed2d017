// Option lines are typed by the user: argument vectors (input starting with an even byte, words
// ending at zero bytes) and the lines of a command-line stream (odd byte). The parser must never
// throw or hang, and must hand out a path of plain words and pairs named as options are named.
#include <sstream>

#include "fuzz/FuzzSupport.h"
#include "tindra/autocli/cli/OptionParser.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/ParameterSpec.h"

namespace {

using Tindra::AutoCli::OptionParser;
using namespace Tindra::CallSpec;

void RequireOptionNames(std::vector<OptionParser::Pair> const& pairs, std::string const& line) {
    std::string const letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (auto const& [name, value] : pairs) {
        bool const named = !name.empty() && letters.find(name[0]) != std::string::npos &&
                           name.find_first_not_of(letters + "0123456789-") == std::string::npos;
        Fuzz::Require(named, "a pair is named as an option is", line + "\n" + name);
    }
}

void Check(OptionParser& parser, std::string const& line, bool fromStream) {
    for (std::string const& word : parser.GetCommandPath()) {
        Fuzz::Require(!parser.IsParameter(word), "the path holds no option", line + "\n" + word);
        Fuzz::Require(!fromStream || word.find('"') == std::string::npos,
                      "stream words are free of double quotes", line);
    }
    RequireOptionNames(parser.GetDispatcherParameters(), line);
    // Every kind of declaration that changes how a missing value is handled (a secret one would
    // wait for the terminal).
    auto spec = InputSpec::New();
    auto name = ParameterSpec::New("name", ParamString);
    name->SetShortName("n");
    name->SetRequired(true);
    spec->AddParameter(name);
    spec->AddParameter(ParameterSpec::New("verbose", ParamFlag));
    spec->AddParameter(ParameterSpec::New("count", ParamInt));
    spec->AddParameter(ParameterSpec::New("paths", ParamStringList));
    parser.SetInputSpec(spec);
    RequireOptionNames(parser.GetCommandParameters(), line);
    parser.ToString();
}

std::vector<std::string> Split(std::string const& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream in(text + separator);
    for (std::string part; std::getline(in, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    std::string const text(reinterpret_cast<char const*>(data) + 1, size - 1);
    if (data[0] & 1) {
        for (std::string const& line : Split(text, '\n')) {
            OptionParser parser;
            if (!parser.ParseString(line)) {
                Check(parser, line, true);
            }
        }
        return 0;
    }
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
