#ifndef TINDRA_TESTS_SUPPORT_TREE_TEMPDIRECTORY_H
#define TINDRA_TESTS_SUPPORT_TREE_TEMPDIRECTORY_H

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace Tindra::Testing {

// A fresh directory, removed with its contents.
class TempDirectory {
public:
    TempDirectory() : path((std::filesystem::temp_directory_path() / "tindra-XXXXXX").string()) {
        if (mkdtemp(path.data()) == nullptr)
            throw std::filesystem::filesystem_error("mkdtemp", path, std::error_code());
    }
    TempDirectory(TempDirectory const&) = delete;
    TempDirectory& operator=(TempDirectory const&) = delete;
    ~TempDirectory() { std::filesystem::remove_all(path); }

    // Writes a file, creating the directories of a relative name, and returns its path.
    std::string Write(std::string const& name, std::string const& content) const {
        std::filesystem::path const file = path + "/" + name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file.string();
    }

    std::string path;
};

}  // namespace Tindra::Testing

#endif
