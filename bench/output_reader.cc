// Reads one output document file the way an extension command's output is read, for
// output_reader.sh to time and measure. Prints what was read so the work cannot be skipped.
#include <fstream>
#include <iostream>

#include "tindra/TindraException.h"
#include "tindra/metaobj/MetaList.h"
#include "xml/OutputDocumentReader.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: output_reader DOCUMENT.xml" << std::endl;
        return 2;
    }
    std::ifstream file(argv[1], std::ios::binary);
    if (!file) {
        std::cerr << "cannot open " << argv[1] << std::endl;
        return 2;
    }
    // Fed piece by piece, as an extension command's output is read from its pipe.
    Tindra::AutoCli::OutputDocumentStream stream;
    char chunk[64 * 1024];
    while (file.read(chunk, sizeof chunk) || file.gcount() > 0) {
        stream.Feed(chunk, static_cast<size_t>(file.gcount()));
    }
    try {
        auto value = stream.Finish();
        if (!value) {
            std::cout << "no value" << std::endl;
            return 1;
        }
        if (value->GetType() == Tindra::MetaObj::List) {
            std::cout << static_cast<Tindra::MetaObj::MetaList&>(*value).GetCount() << " items"
                      << std::endl;
        }
    } catch (Tindra::TindraException const& error) {
        std::cerr << error.what() << std::endl;
        return 1;
    }
}
