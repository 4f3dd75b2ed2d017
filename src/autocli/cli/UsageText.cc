#include "autocli/cli/UsageText.h"

#include <iomanip>

namespace Tindra {
namespace AutoCli {

namespace {

// Option descriptions start in column 40, whatever the option's own width.
constexpr int kOptionColumnWidth = 39;

void WriteOption(std::ostream& out, char const* option, char const* description) {
    out << std::left << std::setw(kOptionColumnWidth) << option << std::right << description
        << std::endl;
}

}  // namespace

void WriteUsage(std::ostream& out, std::string const& dispatcherName) {
    out << dispatcherName << " [dispatcher options] <namespaces> <command> [options]" << std::endl;
    out << "      For a list of available namespaces run " << dispatcherName
        << " with no arguments.  " << std::endl;
    out << "      Objects can be listed by specifying just the namespace." << std::endl;
    out << "      Commands can be listed by specifying the namespace and object." << std::endl;
    out << std::endl;
    out << " Dispatcher Options: " << std::endl;
    WriteOption(out, "       --plugin-dir", "Add all the plug-ins from this directory");
    WriteOption(out, "       --plugin",
                "Add a specific file plugin.  (Multiple --plugin options can be passed.)");
    WriteOption(out, "       --formatter <formatter>",
                "Override the formatter to use for a given command");
    WriteOption(out, "       --format-param <key>=<value>",
                "Set a formatter parameter to give the formatter information about how to "
                "format the command");
    WriteOption(out, "       --screen-width <width>",
                "Use the specified screen width when formatting text");
    WriteOption(out, "    -h|--help", "Show this message.");
    out << std::endl;
}

}  // namespace AutoCli
}  // namespace Tindra
