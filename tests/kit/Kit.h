#ifndef TINDRA_TESTS_KIT_KIT_H
#define TINDRA_TESTS_KIT_KIT_H

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/tree/TempDirectory.h"

namespace KitTest {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

inline Tindra::Testing::TempDirectory const& Work() {
    static Tindra::Testing::TempDirectory const directory;
    return directory;
}

// Runs argv[0] with NAME=value entries replacing inherited ones for good: given twice, some
// readers (the loader) take the last entry, and none of these misleads a later tool.
inline TestSupport::ChildResult RunWith(Words const& argv, Words const& environment) {
    for (auto const& entry : environment) {
        std::string const name = entry.substr(0, entry.find('='));
        setenv(name.c_str(), entry.c_str() + name.size() + 1, 1);
    }
    return TestSupport::RunProgram(argv.front(), argv);
}

// A build tool; a failure throws with everything it printed.
inline std::string RunTool(Words const& argv, Words const& environment = {}) {
    auto const run = RunWith(argv, environment);
    if (run.status != 0)
        throw std::runtime_error(argv.front() + " ended with status " + std::to_string(run.status) +
                                 ":\n" + run.out + run.err);
    return run.out;
}

// The build staged under a DESTDIR like a package, so the absolute plug-in directory lands in
// the stage too; the prefix is not the configured one, as the kit must work anywhere.
struct InstalledKit {
    std::string prefix, includeDir, libDir, binDir, cmakeDir, pkgConfigDir, pluginDir;
};
inline InstalledKit const& Kit() {
    static InstalledKit const kit = [] {
        std::string const stage = Work().path + "/stage", prefix = "/opt/tindra-kit";
        RunTool({TINDRA_CMAKE_COMMAND, "--install", TINDRA_BUILD_DIR, "--prefix", prefix},
                {"DESTDIR=" + stage});
        std::string const lib = stage + prefix + "/" TINDRA_INSTALL_LIBDIR;
        return InstalledKit{stage + prefix,
                            stage + prefix + "/" TINDRA_INSTALL_INCLUDEDIR,
                            lib,
                            stage + prefix + "/" TINDRA_INSTALL_BINDIR,
                            lib + "/cmake/Tindra",
                            lib + "/pkgconfig",
                            stage + TINDRA_PLUGIN_DIR};
    }();
    return kit;
}

inline std::string PkgConfig(std::string const& query) {
    return RunTool({TINDRA_PKG_CONFIG, query, "tindra"},
                   {"PKG_CONFIG_LIBDIR=" + Kit().pkgConfigDir, "PKG_CONFIG_PATH="});
}

// Installed programs carry no path to their library; the stage needs it said.
inline TestSupport::ChildResult RunInstalledOstrel(Words args) {
    args.insert(args.begin(), Kit().binDir + "/ostrel");
    return RunWith(args, {"OSTREL_SKIP_DEFAULT_PLUGINS=1", "LD_LIBRARY_PATH=" + Kit().libDir});
}

// The example plug-in's figures that stay put between runs.
inline TestSupport::ChildResult SteadyResourceReport(Words loading) {
    loading.insert(loading.end(), {"--format-param",
                                   "fields:SystemResources=Memory Unit,Total Memory,Total "
                                   "Swap,Limits",
                                   "system", "resource", "get", "--limits", "--units", "KiB"});
    return RunInstalledOstrel(loading);
}

inline Words SplitWords(std::string const& text) {
    std::istringstream stream(text);
    Words words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

inline std::string ReadFile(std::string const& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

inline std::string DirectoryWith(std::string const& name, Words const& files) {
    std::string const directory = Work().path + "/" + name;
    fs::create_directories(directory);
    for (auto const& file : files)
        fs::copy_file(file, directory + "/" + fs::path(file).filename().string(),
                      fs::copy_options::overwrite_existing);
    return directory;
}

inline std::string LoaderComplaint(std::string const& path) {
    std::unique_ptr<void, int (*)(void*)> library(dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL),
                                                  dlclose);
    bool const fine = library && dlsym(library.get(), "AutoCli_RegisterNamespaces") != nullptr;
    return fine ? "" : dlerror();
}

inline void ExpectRun(TestSupport::ChildResult const& run, int status, std::string const& out,
                      std::string const& err) {
    EXPECT_EQ(out, run.out);
    EXPECT_EQ(err, run.err);
    EXPECT_EQ(status, run.status);
}

}  // namespace KitTest

#endif
