// The installed kit: library, package files and public headers, then plug-ins built
// against it by an outside author.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <boost/regex.hpp>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "support/PrivateInstall.h"

namespace {

namespace fs = std::filesystem;
using TestSupport::ExpectRun;
using TestSupport::Installed;
using Words = std::vector<std::string>;

Tindra::Testing::TempDirectory const& Work() {
    return Installed().work;
}

// Runs argv[0] with NAME=value entries replacing inherited ones for good: given twice, some
// readers (the loader) take the last entry, and none of these misleads a later tool.
TestSupport::ChildResult RunWith(Words const& argv, Words const& environment) {
    for (auto const& entry : environment) {
        std::string const name = entry.substr(0, entry.find('='));
        setenv(name.c_str(), entry.c_str() + name.size() + 1, 1);
    }
    return TestSupport::RunProgram(argv.front(), argv);
}

// A build tool; a failure throws with everything it printed.
std::string RunTool(Words const& argv, Words const& environment = {}) {
    auto const run = RunWith(argv, environment);
    if (run.status != 0)
        throw std::runtime_error(argv.front() + " ended with status " + std::to_string(run.status) +
                                 ":\n" + run.out + run.err);
    return run.out;
}

// The private installation copied elsewhere, as a staged package is: the kit must work
// wherever it lies.
struct InstalledKit {
    std::string prefix, includeDir, libDir, binDir, cmakeDir, pkgConfigDir, pluginDir;
};
InstalledKit const& Kit() {
    static InstalledKit const kit = [] {
        std::string const prefix = Work().path + "/moved", lib = prefix + "/" TINDRA_INSTALL_LIBDIR;
        fs::copy(Installed().prefix, prefix,
                 fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        return InstalledKit{prefix,
                            prefix + "/" TINDRA_INSTALL_INCLUDEDIR,
                            lib,
                            prefix + "/" TINDRA_INSTALL_BINDIR,
                            lib + "/cmake/Tindra",
                            lib + "/pkgconfig",
                            prefix + "/" TINDRA_PLUGIN_DIR};
    }();
    return kit;
}

std::string PkgConfig(std::string const& query) {
    return RunTool({TINDRA_PKG_CONFIG, query, "tindra"},
                   {"PKG_CONFIG_LIBDIR=" + Kit().pkgConfigDir, "PKG_CONFIG_PATH="});
}

// Without the library path: the installed tool's run path must do.
TestSupport::ChildResult RunInstalledOstrel(Words args) {
    args.insert(args.begin(), Kit().binDir + "/ostrel");
    unsetenv("LD_LIBRARY_PATH");
    return RunWith(args, {"OSTREL_SKIP_DEFAULT_PLUGINS=1"});
}

// The example plug-in's figures that stay put between runs.
std::string const kSteadyReport =
    "--format-param 'fields:SystemResources=Memory Unit,Total Memory,Total Swap,Limits' "
    "system resource get --limits --units KiB";

Words SplitWords(std::string const& text) {
    std::istringstream stream(text);
    Words words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

std::string ReadFile(std::string const& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

std::string LoaderComplaint(std::string const& path) {
    std::unique_ptr<void, int (*)(void*)> library(dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL),
                                                  dlclose);
    bool const fine = library && dlsym(library.get(), "AutoCli_RegisterNamespaces") != nullptr;
    return fine ? "" : dlerror();
}

// Paths relative to root, like "tindra/metaobj/MetaInt.h".
std::set<std::string> HeadersUnder(std::string const& root) {
    std::set<std::string> headers;
    for (auto const& entry : fs::recursive_directory_iterator(root))
        if (entry.path().extension() == ".h")
            headers.insert(fs::relative(entry.path(), root).string());
    return headers;
}

TEST(InstalledKit, LibraryAndPackageFilesPointIntoTheKitAndNameNoPrivateDependency) {
    auto const& kit = Kit();
    std::string const real = "libtindra.so." TINDRA_VERSION,
                      soname = "libtindra.so." TINDRA_SOVERSION;
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(kit.libDir + "/" + real)));
    EXPECT_EQ(real, fs::read_symlink(kit.libDir + "/" + soname).string());
    EXPECT_EQ(soname, fs::read_symlink(kit.libDir + "/libtindra.so").string());
    // Installed programs find the library through their run path, wherever the kit lies.
    for (auto const& [file, entry] :
         {std::pair{kit.libDir + "/" + real, "Library soname: [" + soname + "]"},
          // Last entry: a sanitizer build puts its runtime's directory first.
          {kit.binDir + "/ostrel", std::string("$ORIGIN/../" TINDRA_INSTALL_LIBDIR "]")}}) {
        std::string const dynamic = RunTool({TINDRA_READELF, "-d", file});
        EXPECT_NE(std::string::npos, dynamic.find(entry)) << dynamic;
    }

    auto variable = [](std::string const& name) {
        return SplitWords(PkgConfig("--variable=" + name) + " -").front();
    };
    EXPECT_EQ(fs::canonical(kit.includeDir), fs::canonical(variable("includedir")));
    EXPECT_EQ(fs::canonical(kit.libDir), fs::canonical(variable("libdir")));
    EXPECT_EQ(fs::canonical(kit.pluginDir), fs::canonical(variable("plugindir")));
    // The plug-in link flags name the libdir checked here; the pkg-config build uses them.

    // Boost and libxml2 are private; the export may list them only as dependent libraries of
    // the shared object, a link-time search hint that needs no package.
    Words files = {kit.pkgConfigDir + "/tindra.pc"};
    for (auto const& entry : fs::directory_iterator(kit.cmakeDir))
        files.push_back(entry.path());
    for (auto const& file : files) {
        std::istringstream text(ReadFile(file));
        for (std::string line; std::getline(text, line);) {
            if (line.find("IMPORTED_LINK_DEPENDENT_LIBRARIES") != std::string::npos)
                continue;
            for (std::string word :
                 {"Boost", "boost", "LibXml2", "xml2", TINDRA_SOURCE_DIR, TINDRA_BUILD_DIR})
                EXPECT_EQ(std::string::npos, line.find(word)) << file << ": " << line;
        }
    }
}

TEST(InstalledKit, PublicHeadersAreCompleteSelfContainedAndReachForNothingPrivate) {
    static boost::regex const inclusion("^#include\\s+(\\S+)");
    std::string const umbrella = "tindra/tindra.h", root = Kit().includeDir;
    auto const headers = HeadersUnder(root);
    EXPECT_EQ(HeadersUnder(std::string(TINDRA_SOURCE_DIR) + "/include"), headers);
    std::string const umbrellaText = ReadFile(root + "/" + umbrella);
    Words const flags = {TINDRA_CXX_COMPILER,
                         "-std=c++17",
                         "-fsyntax-only",
                         "-Wall",
                         "-Wextra",
                         "-Werror",
                         "-I",
                         root};
    Words compile = flags;
    for (auto const& header : headers) {
        std::string const quoted = "\"" + header + "\"", text = ReadFile(root + "/" + header);
        EXPECT_TRUE(header == umbrella || umbrellaText.find(quoted) != std::string::npos)
            << umbrella << " lacks " << header;
        // Compiling cannot catch these: Boost and platform headers are in the default search
        // path. Standard C++ headers have no extension.
        for (boost::sregex_iterator it(text.begin(), text.end(), inclusion), end; it != end; ++it) {
            std::string const target = (*it)[1], name = target.substr(1, target.size() - 2);
            EXPECT_TRUE(target.front() == '"' ? headers.count(name) == 1
                                              : name.find_first_of("./") == std::string::npos)
                << header << " includes " << target;
        }
        // Twice, so a broken include guard shows too.
        compile.push_back(Work().Write("unit" + std::to_string(compile.size()) + ".cc",
                                       "#include " + quoted + "\n#include " + quoted + "\n"));
    }
    RunTool(compile);
    // Beside libxml2's own headers, in either order, the readers take its node type.
    std::string const call =
        "using namespace Tindra::AutoCli;\nvoid Read(xmlNode* node) { "
        "XmlUtil_GetContent(node); ExtractInputSpec(node); }\n";
    compile = flags;
    for (auto const& [name, first, second] :
         {std::tuple{"xml-first.cc", "libxml/tree.h", "tindra/tindra.h"},
          {"xml-last.cc", "tindra/tindra.h", "libxml/tree.h"}})
        compile.push_back(Work().Write(
            name, std::string("#include <") + first + ">\n#include <" + second + ">\n" + call));
    compile.push_back("-I" TINDRA_LIBXML2_INCLUDE);
    RunTool(compile);
}

// Plug-ins built from their own directories against the installed kit and run by the
// installed tool, with CMake and with pkg-config. One test per way of building, as builds are
// slow.
std::string const kAuthorSources = std::string(TINDRA_SOURCE_DIR) + "/tests/kit/authors";

// Configured with nothing but the kit's prefix; the library's own dependencies are its
// business, so the kit must not need them.
std::string BuildCMakeProject(std::string const& source, std::string const& name) {
    std::string const build = Work().path + "/cmake-" + name;
    RunTool({TINDRA_CMAKE_COMMAND, "-S", source, "-B", build, "-G", TINDRA_CMAKE_GENERATOR,
             "-DCMAKE_MAKE_PROGRAM=" TINDRA_MAKE_PROGRAM,
             "-DCMAKE_CXX_COMPILER=" TINDRA_CXX_COMPILER, "-DCMAKE_PREFIX_PATH=" + Kit().prefix,
             "-DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF", "-DCMAKE_DISABLE_FIND_PACKAGE_Boost=ON",
             "-DCMAKE_DISABLE_FIND_PACKAGE_LibXml2=ON"});
    RunTool({TINDRA_CMAKE_COMMAND, "--build", build, "--parallel", "2"});
    return build;
}

// hello and goodday are one source with other words, so they define the same classes.
TEST(AuthorBuild, CMakeBuiltPluginsRunAndBrokenOnesCostOnlyTheirOwnCommands) {
    std::string const authors = BuildCMakeProject(kAuthorSources, "authors");
    std::string const cache = ReadFile(authors + "/CMakeCache.txt");  // Tindra_DIR:PATH=...
    auto const found = cache.find('=', cache.find("\nTindra_DIR:"));
    EXPECT_EQ(fs::canonical(Kit().cmakeDir),
              fs::canonical(cache.substr(found + 1, cache.find('\n', found) - found - 1)));
    std::string const hello = authors + "/hello.so", goodday = authors + "/goodday.so";
    ExpectRun(RunInstalledOstrel({"--plugin", hello, "hello", "greet", "--name", "Ada"}), 0,
              "Hello, Ada\n", "");
    // Plug-ins share one global symbol scope: the one loaded second must still run its own code.
    ExpectRun(RunInstalledOstrel({"--plugin", hello, "--plugin", goodday, "goodday", "greet"}), 0,
              "Good day, world\n", "");
    ExpectRun(RunInstalledOstrel({"--plugin", goodday, "--plugin", hello, "hello", "greet"}), 0,
              "Hello, world\n", "");

    // The example rebuilt by an author reports as the installed one, which loads from the
    // prefix's plug-in directory beside all the bundled descriptors.
    auto const installed = Installed().Shell(TINDRA_BASH, "ostrel " + kSteadyReport);
    ASSERT_EQ(0, installed.status) << installed.err;
    EXPECT_EQ("", installed.err);
    std::string const resource =
        BuildCMakeProject(std::string(TINDRA_SOURCE_DIR) + "/examples/resource", "resource") +
        "/resource.so";
    ExpectRun(
        Installed().Shell(TINDRA_BASH, "OSTREL_SKIP_DEFAULT_PLUGINS=1 '" + Kit().binDir +
                                           "/ostrel' --plugin '" + resource + "' " + kSteadyReport),
        0, installed.out, "");

    // The loader failures not met by the tool's own tests, each reported in turn. The refusing
    // plug-in placed its command before it threw, so its library must stay loaded while the
    // tree holds it.
    std::string const refusing = authors + "/refusing.so", noEntry = authors + "/noentry.so";
    std::string const unable = "Unable to load plugin ";
    ExpectRun(RunInstalledOstrel({"--plugin", noEntry, "--plugin", refusing, "refusing", "greet"}),
              0, "Placed, world\n",
              unable + noEntry + ": Unable to get plugin registration point from " + noEntry +
                  " : " + LoaderComplaint(noEntry) + "\n" + unable + refusing +
                  ": Error while trying to register the plugin " + refusing +
                  " This plug-in refuses to register. The functionality in " + refusing +
                  " will not be available until this issue is resolved.\n");
}

// Every flag from pkg-config, without libxml2's include path: a plug-in loaded from its own
// directory.
TEST(AuthorBuild, PkgConfigBuiltPluginRunsFromItsDirectory) {
    std::string const directory = Work().path + "/pkg-config";
    fs::create_directories(directory);
    Words command = {TINDRA_CXX_COMPILER, "-fPIC", "-DGREETING_NAMESPACE=\"hello\"",
                     "-DGREETING_WORD=\"Hello\""};
    for (auto const& part :
         {SplitWords(PkgConfig("--cflags")),
          Words{kAuthorSources + "/Greeting.cpp", "-o", directory + "/hello.so"},
          SplitWords(PkgConfig("--libs")), SplitWords(PkgConfig("--variable=plugin_ldflags"))})
        command.insert(command.end(), part.begin(), part.end());
    RunTool(command);
    ExpectRun(RunInstalledOstrel({"--plugin-dir", directory, "hello", "greet", "-n", "Bo"}), 0,
              "Hello, Bo\n", "");
}

}  // namespace
