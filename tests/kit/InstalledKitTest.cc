// The installed kit, with nothing built against it yet: the library as the loader and the
// linker want it, package files that work wherever the kit is unpacked, the public headers,
// and the example plug-in installed with the tool.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/sysinfo.h>
#include <boost/regex.hpp>

#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "Kit.h"

namespace KitTest {
namespace {

namespace fs = std::filesystem;

std::string PkgConfigVariable(std::string const& name) {
    auto const words = SplitWords(PkgConfig("--variable=" + name));
    return words.empty() ? "" : words.front();
}

// Paths relative to root, like "tindra/metaobj/MetaInt.h".
std::set<std::string> HeadersUnder(std::string const& root) {
    std::set<std::string> headers;
    for (auto const& entry : fs::recursive_directory_iterator(root)) {
        if (entry.is_regular_file() && entry.path().extension() == ".h") {
            headers.insert(fs::relative(entry.path(), root).string());
        }
    }
    return headers;
}

// The targets of a header's #include lines, with their quotes or brackets.
std::vector<std::string> InclusionsOf(std::string const& path) {
    static boost::regex const inclusion("^#include\\s+(\\S+)");
    std::string const text = ReadFile(path);
    std::vector<std::string> targets;
    for (boost::sregex_iterator it(text.begin(), text.end(), inclusion), end; it != end; ++it) {
        targets.push_back((*it)[1]);
    }
    return targets;
}

TEST(InstalledKit, LibraryAndPackageFilesPointIntoTheKitAndNameNoPrivateDependency) {
    auto const& kit = Kit();
    std::string const real = "libtindra.so." TINDRA_VERSION;
    std::string const soname = "libtindra.so." TINDRA_SOVERSION;
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(kit.libDir + "/" + real)));
    EXPECT_EQ(real, fs::read_symlink(kit.libDir + "/" + soname).string());
    EXPECT_EQ(soname, fs::read_symlink(kit.libDir + "/libtindra.so").string());
    std::string const dynamic = RunTool({TINDRA_READELF, "-d", kit.libDir + "/" + real});
    EXPECT_NE(std::string::npos, dynamic.find("Library soname: [" + soname + "]")) << dynamic;

    EXPECT_EQ(fs::canonical(kit.includeDir), fs::canonical(PkgConfigVariable("includedir")));
    EXPECT_EQ(fs::canonical(kit.libDir), fs::canonical(PkgConfigVariable("libdir")));
    EXPECT_EQ(TINDRA_PLUGIN_DIR, PkgConfigVariable("plugindir"));
    std::string const versionScript = "-Wl,--version-script=";
    int scripts = 0;
    for (auto const& flag : SplitWords(PkgConfig("--variable=plugin_ldflags"))) {
        if (flag.compare(0, versionScript.size(), versionScript) == 0) {
            ++scripts;
            EXPECT_TRUE(fs::is_regular_file(flag.substr(versionScript.size()))) << flag;
        }
    }
    EXPECT_EQ(1, scripts);

    // Boost and libxml2 are linked privately; the export may still list them as dependent
    // libraries of the shared object, a link-time search hint that needs no package.
    std::vector<std::string> files = {kit.pkgConfigDir + "/tindra.pc"};
    for (auto const& entry : fs::directory_iterator(kit.cmakeDir)) {
        files.push_back(entry.path());
    }
    for (auto const& file : files) {
        std::istringstream text(ReadFile(file));
        for (std::string line; std::getline(text, line);) {
            if (line.find("IMPORTED_LINK_DEPENDENT_LIBRARIES") != std::string::npos) {
                continue;
            }
            for (std::string word :
                 {"Boost", "boost", "LibXml2", "xml2", TINDRA_SOURCE_DIR, TINDRA_BUILD_DIR}) {
                EXPECT_EQ(std::string::npos, line.find(word)) << file << ": " << line;
            }
        }
    }
}

TEST(InstalledKit, PublicHeadersAreCompleteSelfContainedAndReachForNothingPrivate) {
    std::string const umbrella = "tindra/tindra.h";
    auto const headers = HeadersUnder(Kit().includeDir);
    EXPECT_EQ(HeadersUnder(std::string(TINDRA_SOURCE_DIR) + "/include"), headers);
    std::string const umbrellaText = ReadFile(Kit().includeDir + "/" + umbrella);
    std::vector<std::string> compile = {
        TINDRA_CXX_COMPILER, "-std=c++17", "-fsyntax-only", "-Wall", "-Wextra",
        "-Werror",           "-I",         Kit().includeDir};
    for (auto const& header : headers) {
        std::string const quoted = "\"" + header + "\"";
        EXPECT_TRUE(header == umbrella || umbrellaText.find(quoted) != std::string::npos)
            << umbrella << " lacks " << header;
        // Compiling alone cannot catch these: Boost and the platform headers sit in the
        // compiler's default search path. Standard C++ headers have no extension.
        for (auto const& target : InclusionsOf(Kit().includeDir + "/" + header)) {
            std::string const name = target.substr(1, target.size() - 2);
            EXPECT_TRUE(target.front() == '"' ? headers.count(name) == 1
                                              : name.find_first_of("./") == std::string::npos)
                << header << " includes " << target;
        }
        // Twice, so a broken include guard shows too.
        compile.push_back(Work().Write("unit" + std::to_string(compile.size()) + ".cc",
                                       "#include " + quoted + "\n#include " + quoted + "\n"));
    }
    RunTool(compile);
}

std::string Kibibytes(unsigned long blocks, unsigned int blockSize) {
    return std::to_string(static_cast<unsigned long long>(blocks) * blockSize / 1024);
}

std::string LimitText(rlim_t value) {
    return value == RLIM_INFINITY ? "unlimited" : std::to_string(value);
}

TEST(InstalledKit, ExamplePluginReportsTheKernelsFiguresAndRefusesUnknownUnits) {
    auto const installed = SteadyResourceReport({"--plugin-dir", Kit().pluginDir});
    ASSERT_EQ(0, installed.status) << installed.err;
    EXPECT_EQ("", installed.err);
    EXPECT_EQ(0u, installed.out.rfind("Host resources:\n", 0)) << "the command's own header";
    struct sysinfo host {};
    ASSERT_EQ(0, sysinfo(&host));
    EXPECT_NE(std::string::npos,
              installed.out.find("   Memory Unit : KiB\n   Total Memory: " +
                                 Kibibytes(host.totalram, host.mem_unit) + "\n   Total Swap  : " +
                                 Kibibytes(host.totalswap, host.mem_unit) + "\n"))
        << installed.out;
    // The tool inherits this process's limits; the entry runs from its header to a blank line.
    struct rlimit files {};
    ASSERT_EQ(0, getrlimit(RLIMIT_NOFILE, &files));
    auto const start = installed.out.find(" nofile:\n");
    ASSERT_NE(std::string::npos, start) << installed.out;
    std::string const entry =
        installed.out.substr(start, installed.out.find("\n\n", start) - start + 1);
    EXPECT_NE(std::string::npos, entry.find("Soft: " + LimitText(files.rlim_cur) + "\n")) << entry;
    EXPECT_NE(std::string::npos, entry.find("Hard: " + LimitText(files.rlim_max) + "\n")) << entry;
    EXPECT_NE(std::string::npos, entry.find("Unit: files\n")) << entry;

    ExpectRun(RunInstalledOstrel(
                  {"--plugin-dir", Kit().pluginDir, "system", "resource", "get", "-u", "TB"}),
              1, "",
              "Errors: \nInvalid data constraint for parameter 'units'. Expected a single value "
              "from the set  [B, KiB, MiB, GiB] got 'TB'\n");
}

}  // namespace
}  // namespace KitTest
