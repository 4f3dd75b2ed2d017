#ifndef TINDRA_TESTS_SUPPORT_DESCRIPTORFILES_H
#define TINDRA_TESTS_SUPPORT_DESCRIPTORFILES_H

#include <dirent.h>
#include <stdlib.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace DescriptorTest {

// A scratch directory of descriptor files, removed with everything in it at the end.
class DescriptorFiles {
public:
    DescriptorFiles() {
        char pattern[] = "/tmp/tindra-descriptors-XXXXXX";
        if (mkdtemp(pattern) == nullptr) {
            throw std::runtime_error("mkdtemp failed");
        }
        directory = pattern;
    }
    DescriptorFiles(DescriptorFiles const&) = delete;
    DescriptorFiles& operator=(DescriptorFiles const&) = delete;
    ~DescriptorFiles() {
        if (DIR* listing = opendir(directory.c_str())) {
            while (dirent* entry = readdir(listing)) {
                std::string const name = entry->d_name;
                if (name != "." && name != "..") {
                    unlink((directory + "/" + name).c_str());
                }
            }
            closedir(listing);
        }
        rmdir(directory.c_str());
    }

    // Writes a file and returns its path.
    std::string Write(std::string const& name, std::string const& content) const {
        std::string const path = directory + "/" + name;
        std::ofstream(path) << content;
        return path;
    }

    std::string const& Directory() const { return directory; }

private:
    std::string directory;
};

// A descriptor document with version 1.0.0 around the given elements.
inline std::string Descriptor(std::string const& body) {
    return "<?xml version=\"1.0\"?>\n<plugin>\n<version>1.0.0</version>\n" + body + "</plugin>\n";
}

inline std::string NamespaceElement(std::string const& path, std::string const& description) {
    return "<namespace path=\"" + path + "\"><description>" + description +
           "</description></namespace>";
}

// A complete command whose parts can be replaced one by one.
struct CommandParts {
    std::string path = "demo.run";
    std::string description = "<description>Runs</description>";
    std::string metaData;
    std::string inputSpec = "<input-spec/>";
    std::string outputSpec = "<output-spec><int/></output-spec>";
    std::string formatParameters = "<format-parameters/>";
    std::string execute = "<execute>echo</execute>";
    std::string standardInput;

    std::string Element() const {
        return "<command path=\"" + path + "\">" + description + metaData + inputSpec + outputSpec +
               formatParameters + execute + standardInput + "</command>";
    }
};

}  // namespace DescriptorTest

#endif
