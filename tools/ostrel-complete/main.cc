// ostrel-complete PROGRAM [WORD...] CURRENT
//
// Prints what may replace CURRENT on the command line "PROGRAM WORD...": a first line
// "words", "files" or "directories", then the candidate words, one per line. Plug-ins load
// as for the tool itself, plus those that the line's --plugin-dir and --plugin options name.
// A plug-in that fails to load only loses its own commands; nothing it says is printed.
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "Completer.h"
#include "PluginDirectories.h"
#include "SilencedOutput.h"
#include "tindra/tindra.h"

namespace {

// The option values are read by the tool's own parser, so they are the ones it would use.
void LoadPluginsNamedOnLine(Tindra::AutoCli::Dispatcher& dispatcher,
                            std::vector<std::string> const& typed) {
    Tindra::AutoCli::OptionParser parser;
    parser.ParseVector(typed);
    for (auto const& [option, value] : parser.GetDispatcherParameters()) {
        try {
            if (option == "plugin-dir" && !value.empty()) {
                dispatcher.AddExternalDirectory(value);
            }
        } catch (std::exception const&) {
        }
    }
    for (auto const& [option, value] : parser.GetDispatcherParameters()) {
        try {
            if (option == "plugin" && !value.empty()) {
                dispatcher.AddPlugin(value);
            }
        } catch (std::exception const&) {
        }
    }
}

void LoadPlugins(Tindra::AutoCli::Dispatcher& dispatcher, std::vector<std::string> const& typed) {
    Ostrel::SilencedOutput const silenced;
    try {
        if (!Ostrel::DefaultPluginsSkipped()) {
            Ostrel::AddInstalledPluginDirectories(dispatcher);
        }
        LoadPluginsNamedOnLine(dispatcher, typed);
    } catch (std::exception const&) {
    }
}

char const* KindWord(Ostrel::Completion::Kind kind) {
    switch (kind) {
        case Ostrel::Completion::Kind::Files:
            return "files";
        case Ostrel::Completion::Kind::Directories:
            return "directories";
        default:
            return "words";
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "Usage: " << argv[0] << " PROGRAM [WORD...] CURRENT" << std::endl;
        return 2;
    }
    std::vector<std::string> const typed(argv + 2, argv + argc - 1);
    Tindra::AutoCli::CliDispatcher dispatcher;
    LoadPlugins(dispatcher, typed);
    Ostrel::Completion completion;
    try {
        Ostrel::SilencedOutput const silenced;  // a declaration built on demand may complain
        completion = Ostrel::Completer(dispatcher).Complete(typed, argv[argc - 1]);
    } catch (std::exception const&) {
        completion = Ostrel::Completion();
    }
    std::cout << KindWord(completion.kind) << '\n';
    for (auto const& word : completion.words) {
        std::cout << word << '\n';
    }
    return 0;
}
