// ostrel: the thin program around the engine. Everything else happens in libtindra.
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <iostream>

#include "PluginDirectories.h"
#include "tindra/tindra.h"

namespace {

// A run builds its command tree and its output in many small pieces and then ends: growing the
// heap in large steps, and never giving it back midway, spares thousands of system calls.
void TuneAllocatorForOneShotRun() {
    mallopt(M_TOP_PAD, 16 << 20);
    mallopt(M_TRIM_THRESHOLD, 64 << 20);
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
}

// A standard descriptor the caller closed is taken by /dev/null, opened the wrong way round:
// no file the tool opens later can land there and receive its output, and writing to a closed
// standard output still fails (with EBADF) and is reported.
void OccupyClosedStandardDescriptors() {
    for (int fd : {0, 1, 2}) {
        if (fcntl(fd, F_GETFD) < 0) {
            int const wrongWay = fd == 1 ? O_RDONLY : O_WRONLY;
            int const opened = open("/dev/null", wrongWay);
            if (opened >= 0 && opened != fd) {
                dup2(opened, fd);
                close(opened);
            }
        }
    }
}

void Report(char const* text) {
    std::cerr << "Errors: " << std::endl << text << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
    OccupyClosedStandardDescriptors();
    TuneAllocatorForOneShotRun();
    // The tool writes through the C++ streams only: their own buffers make large outputs cheap.
    std::ios::sync_with_stdio(false);
    try {
        Tindra::AutoCli::CliDispatcher dispatcher;
        if (!Ostrel::DefaultPluginsSkipped()) {
            Ostrel::AddInstalledPluginDirectories(dispatcher);
        }
        dispatcher.HandleArgvInput(argc, argv);
    } catch (std::exception const& error) {
        // An unknown namespace or command word, or whatever got past the library: reported
        // like every other error, never as an abort.
        Report(error.what());
    } catch (...) {
        Report("an exception of unknown type");
    }
    return 1;
}
