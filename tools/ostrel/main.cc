// ostrel: the thin program around the engine. Everything else happens in libtindra.
#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <iostream>

#include "PluginDirectories.h"
#include "tindra/tindra.h"

namespace {

// Lets tests and diagnostics run the tool with only the built-in commands, whatever is
// installed in the standard plug-in directories.
bool SkipDefaultPlugins() {
    char const* skip = std::getenv("OSTREL_SKIP_DEFAULT_PLUGINS");
    return skip != nullptr && std::strcmp(skip, "1") == 0;
}

// A run builds its command tree and its output in many small pieces and then ends: growing the
// heap in large steps, and never giving it back midway, spares thousands of system calls.
void TuneAllocatorForOneShotRun() {
    mallopt(M_TOP_PAD, 16 << 20);
    mallopt(M_TRIM_THRESHOLD, 64 << 20);
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
}

}  // namespace

int main(int argc, char** argv) {
    TuneAllocatorForOneShotRun();
    // The tool writes through the C++ streams only: their own buffers make large outputs cheap.
    std::ios::sync_with_stdio(false);
    try {
        Tindra::AutoCli::CliDispatcher dispatcher;
        if (!SkipDefaultPlugins()) {
            Ostrel::AddInstalledPluginDirectories(dispatcher);
        }
        dispatcher.HandleArgvInput(argc, argv);
    } catch (Tindra::TindraException const& error) {
        // An unknown namespace or command word: reported like every other error.
        std::cerr << "Errors: " << std::endl << error.what() << std::endl;
        return 1;
    }
}
