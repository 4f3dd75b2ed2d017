#include "Tools.h"

#include <dlfcn.h>
#include <stdlib.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace KitTest {

ScopedEnvironment::ScopedEnvironment(std::vector<std::string> const& entries) {
    for (auto const& entry : entries) {
        auto const equals = entry.find('=');
        std::string const name = entry.substr(0, equals);
        char const* old = getenv(name.c_str());
        saved.push_back({name, old != nullptr, old != nullptr ? old : ""});
        setenv(name.c_str(), entry.substr(equals + 1).c_str(), 1);
    }
}

ScopedEnvironment::~ScopedEnvironment() {
    for (auto entry = saved.rbegin(); entry != saved.rend(); ++entry) {
        if (entry->wasSet) {
            setenv(entry->name.c_str(), entry->value.c_str(), 1);
        } else {
            unsetenv(entry->name.c_str());
        }
    }
}

TestSupport::ChildResult RunWithEnvironment(std::vector<std::string> const& argv,
                                            std::vector<std::string> const& environment) {
    ScopedEnvironment scoped(environment);
    return TestSupport::RunProgram(argv.front(), argv);
}

std::string RunTool(std::vector<std::string> const& argv,
                    std::vector<std::string> const& environment) {
    auto const run = RunWithEnvironment(argv, environment);
    if (run.status != 0) {
        std::string command;
        for (auto const& word : argv) {
            command += word + " ";
        }
        throw std::runtime_error(command + "ended with status " + std::to_string(run.status) +
                                 ":\n" + run.out + run.err);
    }
    return run.out;
}

std::vector<std::string> SplitWords(std::string const& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

std::string ReadFile(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void WriteFile(std::string const& path, std::string const& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file) {
        throw std::runtime_error("cannot write " + path);
    }
}

std::string LoaderComplaint(std::string const& path) {
    std::unique_ptr<void, int (*)(void*)> library(dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL),
                                                  dlclose);
    if (!library) {
        return dlerror();
    }
    if (dlsym(library.get(), "AutoCli_RegisterNamespaces") == nullptr) {
        return dlerror();
    }
    return "";
}

}  // namespace KitTest
