// The installed kit: the library as the loader and the linker want it, and package files
// that work from wherever the kit is unpacked and name nothing of the library's insides.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "InstalledKit.h"
#include "Tools.h"

namespace KitTest {
namespace {

namespace fs = std::filesystem;

std::string PkgConfigVariable(std::string const& name) {
    auto const words = SplitWords(PkgConfig("--variable=" + name));
    return words.empty() ? "" : words.front();
}

TEST(InstalledKit, LibraryCarriesItsSonameBehindTheDevelopmentLinks) {
    auto const& kit = Kit();
    std::string const real = "libtindra.so." TINDRA_VERSION;
    std::string const soname = "libtindra.so." TINDRA_SOVERSION;
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(kit.libDir + "/" + real)));
    EXPECT_EQ(real, fs::read_symlink(kit.libDir + "/" + soname).string());
    EXPECT_EQ(soname, fs::read_symlink(kit.libDir + "/libtindra.so").string());
    std::string const dynamic = RunTool({TINDRA_READELF, "-d", kit.libDir + "/" + real});
    EXPECT_NE(std::string::npos, dynamic.find("Library soname: [" + soname + "]")) << dynamic;
}

TEST(InstalledKit, PkgConfigPointsIntoTheKitWhereverItIsUnpacked) {
    auto const& kit = Kit();
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
}

// Boost and libxml2 are linked privately. The export may still list them as dependent
// libraries of the shared object, a link-time search hint that needs no package.
TEST(InstalledKit, PackageFilesNameNeitherPrivateDependenciesNorTheBuild) {
    auto const& kit = Kit();
    std::vector<std::string> files = {kit.pkgConfigDir + "/tindra.pc"};
    for (auto const& entry : fs::directory_iterator(kit.cmakeDir)) {
        files.push_back(entry.path());
    }
    std::vector<std::string> const forbidden = {"Boost", "boost",           "LibXml2",
                                                "xml2",  TINDRA_SOURCE_DIR, TINDRA_BUILD_DIR};
    for (auto const& file : files) {
        std::istringstream text(ReadFile(file));
        int lineNumber = 0;
        for (std::string line; std::getline(text, line);) {
            ++lineNumber;
            if (line.find("IMPORTED_LINK_DEPENDENT_LIBRARIES") != std::string::npos) {
                continue;
            }
            for (auto const& word : forbidden) {
                EXPECT_EQ(std::string::npos, line.find(word))
                    << file << ":" << lineNumber << ": " << line;
            }
        }
    }
}

}  // namespace
}  // namespace KitTest
