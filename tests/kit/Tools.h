#ifndef TINDRA_TESTS_KIT_TOOLS_H
#define TINDRA_TESTS_KIT_TOOLS_H

#include <string>
#include <vector>

#include "support/ChildProcess.h"

namespace KitTest {

// Sets NAME=value entries in this process's environment for its lifetime, so that children
// see them in place of inherited values, not next to them.
class ScopedEnvironment {
public:
    explicit ScopedEnvironment(std::vector<std::string> const& entries);
    ScopedEnvironment(ScopedEnvironment const&) = delete;
    ScopedEnvironment& operator=(ScopedEnvironment const&) = delete;
    ~ScopedEnvironment();

private:
    struct Saved {
        std::string name;
        bool wasSet;
        std::string value;
    };
    std::vector<Saved> saved;
};

// Runs a program (argv[0] is its path) with extra environment entries.
TestSupport::ChildResult RunWithEnvironment(std::vector<std::string> const& argv,
                                            std::vector<std::string> const& environment);

// Runs a build tool (argv[0] is its path); a failure throws with everything it printed, so a
// broken kit shows up as the tool's own complaint.
std::string RunTool(std::vector<std::string> const& argv,
                    std::vector<std::string> const& environment = {});

// Words separated by blanks, as a shell splits a command substitution.
std::vector<std::string> SplitWords(std::string const& text);

std::string ReadFile(std::string const& path);
void WriteFile(std::string const& path, std::string const& text);

// What the dynamic loader says about a file: why it cannot be loaded, why it has no
// registration entry point, or "" when it has one.
std::string LoaderComplaint(std::string const& path);

}  // namespace KitTest

#endif
