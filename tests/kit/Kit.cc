#include "Kit.h"

#include <dlfcn.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace KitTest {

namespace {

// Not the configured prefix: the kit must work from a place it was not built for.
char const* const kInstallPrefix = "/opt/tindra-kit";

InstalledKit Install() {
    std::string const stage = Work().path + "/stage";
    RunTool({TINDRA_CMAKE_COMMAND, "--install", TINDRA_BUILD_DIR, "--prefix", kInstallPrefix},
            {"DESTDIR=" + stage});
    InstalledKit kit;
    kit.prefix = stage + kInstallPrefix;
    kit.includeDir = kit.prefix + "/" + TINDRA_INSTALL_INCLUDEDIR;
    kit.libDir = kit.prefix + "/" + TINDRA_INSTALL_LIBDIR;
    kit.binDir = kit.prefix + "/" + TINDRA_INSTALL_BINDIR;
    kit.cmakeDir = kit.libDir + "/cmake/Tindra";
    kit.pkgConfigDir = kit.libDir + "/pkgconfig";
    kit.pluginDir = stage + TINDRA_PLUGIN_DIR;
    return kit;
}

// Replaced rather than added: given twice, some readers (the loader) take the last entry.
TestSupport::ChildResult RunWithEnvironment(std::vector<std::string> const& argv,
                                            std::vector<std::string> const& environment) {
    std::vector<std::pair<std::string, std::unique_ptr<std::string>>> saved;
    for (auto const& entry : environment) {
        std::string const name = entry.substr(0, entry.find('='));
        char const* old = getenv(name.c_str());
        saved.emplace_back(name, old ? std::make_unique<std::string>(old) : nullptr);
        setenv(name.c_str(), entry.substr(name.size() + 1).c_str(), 1);
    }
    auto const run = TestSupport::RunProgram(argv.front(), argv);
    for (auto const& entry : saved) {
        if (entry.second) {
            setenv(entry.first.c_str(), entry.second->c_str(), 1);
        } else {
            unsetenv(entry.first.c_str());
        }
    }
    return run;
}

}  // namespace

Tindra::Testing::TempDirectory const& Work() {
    static Tindra::Testing::TempDirectory const directory;
    return directory;
}

InstalledKit const& Kit() {
    static InstalledKit const kit = Install();
    return kit;
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

std::string PkgConfig(std::string const& query) {
    return RunTool({TINDRA_PKG_CONFIG, query, "tindra"},
                   {"PKG_CONFIG_LIBDIR=" + Kit().pkgConfigDir, "PKG_CONFIG_PATH="});
}

TestSupport::ChildResult RunInstalledOstrel(std::vector<std::string> const& args) {
    std::vector<std::string> argv = {Kit().binDir + "/ostrel"};
    argv.insert(argv.end(), args.begin(), args.end());
    // Installed programs carry no path to their library: the host's loader configuration
    // would provide it, the stage needs it said.
    return RunWithEnvironment(argv,
                              {"OSTREL_SKIP_DEFAULT_PLUGINS=1", "LD_LIBRARY_PATH=" + Kit().libDir});
}

TestSupport::ChildResult SteadyResourceReport(std::vector<std::string> loading) {
    loading.insert(
        loading.end(),
        {"--format-param", "fields:SystemResources=Memory Unit,Total Memory,Total Swap,Limits",
         "system", "resource", "get", "--limits", "--units", "KiB"});
    return RunInstalledOstrel(loading);
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
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

std::string DirectoryWith(std::string const& name, std::vector<std::string> const& files) {
    namespace fs = std::filesystem;
    std::string const directory = Work().path + "/" + name;
    fs::create_directories(directory);
    for (auto const& file : files) {
        fs::copy_file(file, directory + "/" + fs::path(file).filename().string(),
                      fs::copy_options::overwrite_existing);
    }
    return directory;
}

std::string LoaderComplaint(std::string const& path) {
    std::unique_ptr<void, int (*)(void*)> library(dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL),
                                                  dlclose);
    if (!library || dlsym(library.get(), "AutoCli_RegisterNamespaces") == nullptr) {
        return dlerror();
    }
    return "";
}

}  // namespace KitTest
