#ifndef TINDRA_TESTS_SUPPORT_DESCRIPTORFILES_H
#define TINDRA_TESTS_SUPPORT_DESCRIPTORFILES_H

#include <ftw.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

namespace DescriptorTest {

// A scratch directory of descriptor or fixture files, removed with all it holds at the end.
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
        nftw(
            directory.c_str(),
            [](char const* path, struct stat const*, int, FTW*) { return remove(path); }, 16,
            FTW_DEPTH | FTW_PHYS);
    }

    // Writes a file, creating the directories of a relative name, and returns its path.
    std::string Write(std::string const& name, std::string const& content) const {
        for (size_t slash = name.find('/'); slash != std::string::npos;
             slash = name.find('/', slash + 1)) {
            mkdir((directory + "/" + name.substr(0, slash)).c_str(), 0755);
        }
        std::string const path = directory + "/" + name;
        std::ofstream(path, std::ios::binary) << content;
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
