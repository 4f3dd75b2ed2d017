// The installed kit, moved elsewhere as a staged package is: library, package files and public
// headers, then plug-ins built against it by an outside author and run by the installed tool.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <boost/regex.hpp>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/PrivateInstall.h"

namespace {

namespace fs = std::filesystem;
using TestSupport::ExpectRun;
using TestSupport::Installed;
using TestSupport::RunTool;
using Words = std::vector<std::string>;

std::string const& Kit() {
    static std::string const prefix = [] {
        std::string const moved = Installed().work.path + "/moved";
        fs::copy(Installed().prefix, moved,
                 fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        return moved;
    }();
    return prefix;
}
std::string const kLib = "/" TINDRA_INSTALL_LIBDIR, kInclude = "/" TINDRA_INSTALL_INCLUDEDIR;

Words PkgConfig(std::string const& query) {
    std::istringstream text(
        RunTool({TINDRA_PKG_CONFIG, query, "tindra"},
                {"PKG_CONFIG_LIBDIR=" + Kit() + kLib + "/pkgconfig", "PKG_CONFIG_PATH="}));
    return {std::istream_iterator<std::string>(text), {}};
}

// Without a library path: the installed tool's run path must do.
TestSupport::ChildResult RunInstalledOstrel(Words args) {
    args.insert(args.begin(), Kit() + "/" TINDRA_INSTALL_BINDIR "/ostrel");
    return TestSupport::RunProgram(args[0], args, "",
                                   {"OSTREL_SKIP_DEFAULT_PLUGINS=1", "LD_LIBRARY_PATH"});
}

std::string ReadFile(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
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
    std::string const lib = Kit() + kLib, real = "libtindra.so." TINDRA_VERSION,
                      soname = "libtindra.so." TINDRA_SOVERSION;
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(lib + "/" + real)));
    EXPECT_EQ(real, fs::read_symlink(lib + "/" + soname).string());
    EXPECT_EQ(soname, fs::read_symlink(lib + "/libtindra.so").string());
    // Installed programs find the library through their run path, wherever the kit lies; the
    // last entry, as a sanitizer build puts its runtime's directory first.
    for (auto const& [file, entry] :
         {std::pair{lib + "/" + real, "Library soname: [" + soname + "]"},
          {Kit() + "/" TINDRA_INSTALL_BINDIR "/ostrel", "$ORIGIN/.." + kLib + "]"}}) {
        std::string const dynamic = RunTool({TINDRA_READELF, "-d", file});
        EXPECT_NE(std::string::npos, dynamic.find(entry)) << dynamic;
    }
    for (auto const& [variable, directory] : {std::pair{"includedir", Kit() + kInclude},
                                              {"libdir", lib},
                                              {"plugindir", Kit() + "/" TINDRA_PLUGIN_DIR}})
        EXPECT_EQ(fs::canonical(directory),
                  fs::canonical(PkgConfig("--variable=" + std::string(variable)).at(0)));

    // Boost and libxml2 are private; the export may list them only as dependent libraries of
    // the shared object, a link-time search hint that needs no package.
    static boost::regex const leak(
        "^(?![^\\n]*IMPORTED_LINK_DEPENDENT_LIBRARIES)[^\\n]*("
        "Boost|boost|LibXml2|xml2|\\Q" TINDRA_SOURCE_DIR "\\E|\\Q" TINDRA_BUILD_DIR "\\E)[^\\n]*");
    Words files = {lib + "/pkgconfig/tindra.pc"};
    for (auto const& entry : fs::directory_iterator(lib + "/cmake/Tindra"))
        files.push_back(entry.path());
    for (auto const& file : files) {
        std::string const text = ReadFile(file);
        boost::smatch line;
        EXPECT_FALSE(boost::regex_search(text, line, leak)) << file << ": " << line[0];
    }
}

// Each header compiles alone, twice so a broken include guard shows too, without libxml2's
// include path; and after libxml2's own headers.
TEST(InstalledKit, PublicHeadersAreCompleteSelfContainedAndReachForNothingPrivate) {
    std::string const root = Kit() + kInclude, umbrella = ReadFile(root + "/tindra/tindra.h");
    auto const headers = HeadersUnder(root);
    EXPECT_EQ(HeadersUnder(std::string(TINDRA_SOURCE_DIR) + "/include"), headers);
    // Compiling cannot catch Boost or platform headers, which are in the default search path;
    // standard C++ headers have no extension.
    static boost::regex const foreign("^#include\\s*<[^>]*[./]");
    Words compile = {TINDRA_CXX_COMPILER, "-std=c++17", "-fsyntax-only", "-Wall",
                     "-Werror",           "-Wextra",    "-I" + root};
    for (auto const& header : headers) {
        std::string const quoted = "\"" + header + "\"";
        EXPECT_TRUE(header == "tindra/tindra.h" || umbrella.find(quoted) != std::string::npos)
            << "tindra/tindra.h lacks " << header;
        EXPECT_FALSE(boost::regex_search(ReadFile(root + "/" + header), foreign)) << header;
        compile.push_back(Installed().work.Write("unit" + std::to_string(compile.size()) + ".cc",
                                                 "#include " + quoted + "\n#include " + quoted));
    }
    RunTool(compile);
    compile.resize(7);
    compile.insert(compile.end(), {"-I" TINDRA_LIBXML2_INCLUDE,
                                   Installed().work.Write("xml-first.cc",
                                                          "#include <libxml/tree.h>\n"
                                                          "#include <tindra/tindra.h>\n")});
    RunTool(compile);
}

std::string const kAuthorSources = std::string(TINDRA_SOURCE_DIR) + "/tests/kit/authors";

// Built from their own directory with nothing but the kit's prefix: the library's own
// dependencies are its business. hello and goodday are one source with other words, so they
// define the same classes; the shipped example is built and run beside them.
TEST(AuthorBuild, CMakeBuiltPluginsRunAndBrokenOnesCostOnlyTheirOwnCommands) {
    std::string const build = Installed().work.path + "/authors";
    RunTool({TINDRA_CMAKE_COMMAND, "-S", kAuthorSources, "-B", build, "-G", TINDRA_CMAKE_GENERATOR,
             "-DCMAKE_MAKE_PROGRAM=" TINDRA_MAKE_PROGRAM,
             "-DCMAKE_CXX_COMPILER=" TINDRA_CXX_COMPILER, "-DCMAKE_PREFIX_PATH=" + Kit(),
             "-DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF", "-DCMAKE_DISABLE_FIND_PACKAGE_Boost=ON",
             "-DCMAKE_DISABLE_FIND_PACKAGE_LibXml2=ON"});
    RunTool({TINDRA_CMAKE_COMMAND, "--build", build, "--parallel", "2"});
    EXPECT_NE(std::string::npos,
              ReadFile(build + "/CMakeCache.txt")
                  .find("\nTindra_DIR:PATH=" + Kit() + kLib + "/cmake/Tindra\n"));
    std::string const hello = build + "/hello.so", goodday = build + "/goodday.so";
    // Plug-ins share one global symbol scope: the one loaded second must still run its own code.
    ExpectRun(RunInstalledOstrel({"--plugin", hello, "--plugin", goodday, "goodday", "greet"}), 0,
              "Good day, world\n", "");
    ExpectRun(RunInstalledOstrel(
                  {"--plugin", goodday, "--plugin", hello, "hello", "greet", "--name", "Ada"}),
              0, "Hello, Ada\n", "");

    auto const example = RunInstalledOstrel(
        {"--plugin", build + "/resource/resource.so", "system", "resource", "get", "--limits"});
    EXPECT_EQ(std::make_pair(0, std::string()), std::make_pair(example.status, example.err));
    EXPECT_NE(std::string::npos, example.out.find("Limits")) << example.out;

    // The loader failures not met by the tool's own tests, each reported in turn. The refusing
    // plug-in placed its command before it threw, so its library must stay loaded while the
    // tree holds it.
    std::string const refusing = build + "/refusing.so", noEntry = build + "/noentry.so";
    std::unique_ptr<void, int (*)(void*)> library(dlopen(noEntry.c_str(), RTLD_LAZY | RTLD_LOCAL),
                                                  dlclose);
    ASSERT_TRUE(library && dlsym(library.get(), "AutoCli_RegisterNamespaces") == nullptr);
    std::string const complaint = dlerror();
    std::string const unable = "Unable to load plugin ";
    ExpectRun(RunInstalledOstrel({"--plugin", noEntry, "--plugin", refusing, "refusing", "greet"}),
              0, "Placed, world\n",
              unable + noEntry + ": Unable to get plugin registration point from " + noEntry +
                  " : " + complaint + "\n" + unable + refusing +
                  ": Error while trying to register the plugin " + refusing +
                  " This plug-in refuses to register. The functionality in " + refusing +
                  " will not be available until this issue is resolved.\n");
}

// Every flag from pkg-config, plus libxml2 for a plug-in that reads XML with each public
// reader of the library, loaded from its own directory.
TEST(AuthorBuild, PkgConfigBuiltPluginReadsXmlWithThePublicReaders) {
    std::string const directory = Installed().work.path + "/pkg-config";
    fs::create_directories(directory);
    Words command = {TINDRA_CXX_COMPILER, "-fPIC", "-I" TINDRA_LIBXML2_INCLUDE};
    for (auto const& part :
         {PkgConfig("--cflags"),
          Words{kAuthorSources + "/Readers.cpp", "-o", directory + "/readers.so"},
          PkgConfig("--libs"), Words{TINDRA_LIBXML2_LIBRARY},
          PkgConfig("--variable=plugin_ldflags")})
        command.insert(command.end(), part.begin(), part.end());
    RunTool(command);
    ExpectRun(RunInstalledOstrel({"--plugin-dir", directory, "readers", "greet"}), 0,
              "disk.get|Shows a disk.|last|512|-42|secret|a+|A|table|ops|Bool|Unable to parse "
              "Input Parameter.  Missing required attribute: 'name', world\n",
              "");
}

}  // namespace
