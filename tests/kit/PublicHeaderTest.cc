// The installed headers are all an author gets: exactly the public ones, each usable on its
// own, none reaching for the library's private dependencies, the platform or src/.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "InstalledKit.h"
#include "Tools.h"

namespace KitTest {
namespace {

namespace fs = std::filesystem;

std::string const kUmbrella = "tindra/tindra.h";

// Paths relative to root, like "tindra/metaobj/MetaInt.h", sorted.
std::set<std::string> HeadersUnder(std::string const& root) {
    std::set<std::string> headers;
    for (auto const& entry : fs::recursive_directory_iterator(root)) {
        if (entry.is_regular_file() && entry.path().extension() == ".h") {
            headers.insert(fs::relative(entry.path(), root).string());
        }
    }
    return headers;
}

struct Inclusion {
    bool quoted;
    std::string name;
};

std::vector<Inclusion> InclusionsOf(std::string const& path) {
    std::vector<Inclusion> inclusions;
    std::istringstream text(ReadFile(path));
    for (std::string line; std::getline(text, line);) {
        std::istringstream words(line);
        std::string directive;
        std::string target;
        words >> directive;
        if (directive == "#include" && words >> target && target.size() > 2) {
            inclusions.push_back({target.front() == '"', target.substr(1, target.size() - 2)});
        }
    }
    return inclusions;
}

std::set<std::string> const& StandardLibraryHeaders() {
    static char const* const names =
        "algorithm any array atomic bitset cassert cctype cerrno cfenv cfloat charconv chrono "
        "cinttypes climits clocale cmath codecvt complex condition_variable csetjmp csignal "
        "cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque "
        "exception execution filesystem forward_list fstream functional future "
        "initializer_list iomanip ios iosfwd iostream istream iterator limits list locale map "
        "memory memory_resource mutex new numeric optional ostream queue random ratio regex "
        "scoped_allocator set shared_mutex sstream stack stdexcept streambuf string "
        "string_view system_error thread tuple type_traits typeindex typeinfo unordered_map "
        "unordered_set utility valarray variant vector";
    static std::set<std::string> const headers = [] {
        auto const words = SplitWords(names);
        return std::set<std::string>(words.begin(), words.end());
    }();
    return headers;
}

TEST(PublicHeaders, InstalledAreExactlyThoseOfTheSourceTree) {
    EXPECT_EQ(HeadersUnder(std::string(TINDRA_SOURCE_DIR) + "/include"),
              HeadersUnder(Kit().includeDir));
}

TEST(PublicHeaders, UmbrellaIncludesEveryOtherHeader) {
    auto expected = HeadersUnder(Kit().includeDir);
    expected.erase(kUmbrella);
    std::set<std::string> included;
    for (auto const& inclusion : InclusionsOf(Kit().includeDir + "/" + kUmbrella)) {
        included.insert(inclusion.name);
    }
    std::vector<std::string> missing;
    std::set_difference(expected.begin(), expected.end(), included.begin(), included.end(),
                        std::back_inserter(missing));
    std::string lines;
    for (auto const& header : missing) {
        lines += "#include \"" + header + "\"\n";
    }
    EXPECT_EQ("", lines) << kUmbrella << " lacks these lines";
}

// Each translation unit includes its header twice, so a broken include guard shows too.
TEST(PublicHeaders, EachCompilesOnItsOwnAgainstOnlyTheInstalledIncludeDirectory) {
    std::string const units = WorkDirectory() + "/header-units";
    fs::create_directories(units);
    std::vector<std::string> command = {
        TINDRA_CXX_COMPILER, "-std=c++17", "-fsyntax-only", "-Wall", "-Wextra",
        "-Werror",           "-I",         Kit().includeDir};
    int count = 0;
    for (auto const& header : HeadersUnder(Kit().includeDir)) {
        std::string const unit = units + "/unit" + std::to_string(++count) + ".cc";
        WriteFile(unit, "#include \"" + header + "\"\n#include \"" + header + "\"\n");
        command.push_back(unit);
    }
    RunTool(command);
}

// Compiling alone cannot catch these: Boost and the platform headers sit in the compiler's
// default search path.
TEST(PublicHeaders, IncludeOnlyEachOtherAndTheStandardLibrary) {
    auto const headers = HeadersUnder(Kit().includeDir);
    for (auto const& header : headers) {
        for (auto const& inclusion : InclusionsOf(Kit().includeDir + "/" + header)) {
            if (inclusion.quoted) {
                EXPECT_EQ(1u, headers.count(inclusion.name))
                    << header << " includes \"" << inclusion.name << "\"";
            } else {
                EXPECT_EQ(1u, StandardLibraryHeaders().count(inclusion.name))
                    << header << " includes <" << inclusion.name << ">";
            }
        }
    }
}

}  // namespace
}  // namespace KitTest
