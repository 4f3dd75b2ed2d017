// The example plug-in as installed with the project and as rebuilt from its sources by an
// author, reporting what the kernel says.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/sysinfo.h>

#include <string>
#include <vector>

#include "AuthorBuilds.h"
#include "InstalledKit.h"
#include "RunExpectations.h"

namespace KitTest {
namespace {

std::vector<std::string> Args(std::vector<std::string> loading,
                              std::vector<std::string> const& command) {
    loading.insert(loading.end(), command.begin(), command.end());
    return loading;
}

// Only values that stay put between runs: no uptime, load or free memory.
std::vector<std::string> const kSteadyReport = {
    "--format-param",
    "fields:SystemResources=Memory Unit,Total Memory,Total Swap,Limits",
    "system",
    "resource",
    "get",
    "--limits",
    "--units",
    "KiB"};

std::string Kibibytes(unsigned long blocks, unsigned int blockSize) {
    return std::to_string(static_cast<unsigned long long>(blocks) * blockSize / 1024);
}

std::string LimitText(rlim_t value) {
    return value == RLIM_INFINITY ? "unlimited" : std::to_string(value);
}

// The lines printed under a limit's header, up to the blank line that ends its entry.
std::string LimitEntry(std::string const& report, std::string const& resource) {
    auto const header = report.find(" " + resource + ":\n");
    if (header == std::string::npos) {
        return "";
    }
    auto const start = report.find('\n', header) + 1;
    return report.substr(start, report.find("\n\n", start) - start + 1);
}

TEST(ResourceExample, InstalledAndRebuiltPluginsReportTheKernelsFigures) {
    auto const installed =
        RunInstalledOstrel(Args({"--plugin-dir", Kit().pluginDir}, kSteadyReport));
    ASSERT_EQ(0, installed.status) << installed.err;
    EXPECT_EQ("", installed.err);
    EXPECT_EQ(0u, installed.out.rfind("Host resources:\n", 0)) << "the command's own header";
    ExpectRun(RunInstalledOstrel(Args({"--plugin", BuiltWithCMake().resource}, kSteadyReport)), 0,
              installed.out, "");
    ExpectRun(RunInstalledOstrel(Args({"--plugin", BuiltWithPkgConfig().resource}, kSteadyReport)),
              0, installed.out, "");

    struct sysinfo host {};
    ASSERT_EQ(0, sysinfo(&host));
    EXPECT_NE(std::string::npos,
              installed.out.find("   Memory Unit : KiB\n"
                                 "   Total Memory: " +
                                 Kibibytes(host.totalram, host.mem_unit) +
                                 "\n"
                                 "   Total Swap  : " +
                                 Kibibytes(host.totalswap, host.mem_unit) + "\n"))
        << installed.out;
    // The tool inherits this process's limits.
    struct rlimit files {};
    ASSERT_EQ(0, getrlimit(RLIMIT_NOFILE, &files));
    std::string const entry = LimitEntry(installed.out, "nofile");
    EXPECT_NE(std::string::npos, entry.find("Soft: " + LimitText(files.rlim_cur) + "\n")) << entry;
    EXPECT_NE(std::string::npos, entry.find("Hard: " + LimitText(files.rlim_max) + "\n")) << entry;
    EXPECT_NE(std::string::npos, entry.find("Unit: files\n")) << entry;
}

TEST(ResourceExample, UnitOutsideItsSetIsRefusedBeforeTheCommandRuns) {
    ExpectRun(RunInstalledOstrel(
                  {"--plugin-dir", Kit().pluginDir, "system", "resource", "get", "-u", "TB"}),
              1, "",
              "Errors: \nInvalid data constraint for parameter 'units'. Expected a single value "
              "from the set  [B, KiB, MiB, GiB] got 'TB'\n");
}

}  // namespace
}  // namespace KitTest
