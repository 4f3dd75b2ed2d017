#ifndef TINDRA_SRC_AUTOCLI_EXTENSION_TEMPLATEPATTERNS_H
#define TINDRA_SRC_AUTOCLI_EXTENSION_TEMPLATEPATTERNS_H

#include <boost/regex.hpp>
#include <string>

namespace Tindra {
namespace AutoCli {

// The placeholders of templates, each as a test of the whole text and as the pattern that is
// replaced, built around the parameter's name.
enum class Placeholder { Val, If, List, Multilist };

boost::regex WholeTemplateTest(Placeholder kind, std::string const& name);
boost::regex ReplacedPattern(Placeholder kind, std::string const& name);

// A conditional section of any parameter, for removing those left unused.
boost::regex const& AnyConditionalSection();

}  // namespace AutoCli
}  // namespace Tindra

#endif
