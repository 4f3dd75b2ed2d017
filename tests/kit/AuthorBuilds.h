#ifndef TINDRA_TESTS_KIT_AUTHORBUILDS_H
#define TINDRA_TESTS_KIT_AUTHORBUILDS_H

#include <string>

namespace KitTest {

// Plug-ins built outside the project against the installed kit, from the test authors'
// sources (tests/kit/authors) and the example's (examples/resource).
struct AuthorPlugins {
    std::string hello;     // "hello greet"
    std::string goodday;   // "goodday greet", the same classes as hello
    std::string resource;  // the example, "system resource get"
};

// With CMake and find_package(Tindra); also builds the two broken plug-ins.
struct CMakeBuild : AuthorPlugins {
    std::string tindraDir;  // where find_package found the kit
    std::string refusing;   // registers one command, then throws
    std::string noEntry;    // a library without the registration entry point
};

// Each builds on the first call.
CMakeBuild const& BuiltWithCMake();
AuthorPlugins const& BuiltWithPkgConfig();

}  // namespace KitTest

#endif
