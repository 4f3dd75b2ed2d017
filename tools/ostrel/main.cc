// ostrel: the thin program around the engine. Everything else happens in libtindra.
#include <iostream>

#include "tindra/tindra.h"

int main(int argc, char** argv) {
    try {
        Tindra::AutoCli::CliDispatcher dispatcher;
        dispatcher.AddDefaultDirectories();
        dispatcher.HandleArgvInput(argc, argv);
    } catch (Tindra::TindraException const& error) {
        // An unknown namespace or command word: reported like every other error.
        std::cerr << "Errors: " << std::endl << error.what() << std::endl;
        return 1;
    }
}
