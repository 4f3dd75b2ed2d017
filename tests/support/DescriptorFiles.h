#ifndef TINDRA_TESTS_SUPPORT_DESCRIPTORFILES_H
#define TINDRA_TESTS_SUPPORT_DESCRIPTORFILES_H

#include <string>

#include "support/tree/TempDirectory.h"

namespace DescriptorTest {

// A scratch directory of descriptor or fixture files.
using DescriptorFiles = Tindra::Testing::TempDirectory;

// A descriptor document with version 1.0.0 around the given elements.
inline std::string Descriptor(std::string const& body) {
    return "<?xml version=\"1.0\"?>\n<plugin>\n<version>1.0.0</version>\n" + body + "</plugin>\n";
}

inline std::string NamespaceElement(std::string const& path, std::string const& description) {
    return "<namespace path=\"" + path + "\"><description>" + description +
           "</description></namespace>";
}

// An optional parameter of a command; inner follows its description.
inline std::string OptionalParameter(std::string const& name, std::string const& type,
                                     std::string const& inner = "",
                                     std::string const& attributes = "") {
    return "<parameter name=\"" + name + "\" type=\"" + type + "\" required=\"false\"" +
           attributes + "><description>d</description>" + inner + "</parameter>";
}

// A descriptor of namespace "demo" holding the command elements, written among the files.
inline std::string DemoPlugin(DescriptorFiles const& files, std::string const& name,
                              std::string const& commands) {
    return files.Write(name, Descriptor("<namespaces>" + NamespaceElement("demo", "Demo") +
                                        "</namespaces><commands>" + commands + "</commands>"));
}

// A complete command whose parts can be replaced one by one.
struct CommandParts {
    std::string path = "demo.run";
    std::string description = "<description>Runs</description>";
    std::string metaData;
    std::string inputSpec = "<input-spec/>";
    std::string outputSpec = "<output-spec><int/></output-spec>";
    std::string formatParameters = "<format-parameters/>";
    std::string execute = "<execute>echo</execute>";

    std::string Element() const {
        return "<command path=\"" + path + "\">" + description + metaData + inputSpec + outputSpec +
               formatParameters + execute + "</command>";
    }
};

}  // namespace DescriptorTest

#endif
