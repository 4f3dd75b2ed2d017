#ifndef TINDRA_CALLSPEC_INPUTSPEC_H
#define TINDRA_CALLSPEC_INPUTSPEC_H

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/callspec/Output.h"
#include "tindra/callspec/ParameterSpec.h"

namespace Tindra {
namespace CallSpec {

class Input;

// The declared input of a command: its parameters, sorted by long name, and its contexts.
class TINDRA_EXPORT InputSpec {
public:
    static std::shared_ptr<InputSpec> New();

    void AddParameter(std::shared_ptr<ParameterSpec> const& parameter);
    void SetContextSupported(std::string const& key) { contexts.insert(key); }
    bool IsContextSupported(std::string const& key) const { return contexts.count(key) != 0; }
    bool Validate(std::shared_ptr<Input> const& input, std::shared_ptr<Output> const& output) const;
    // The declaration of that long name, or empty.
    std::shared_ptr<ParameterSpec> FindParameter(std::string const& name) const;

    // Read directly by help output and option parsing.
    std::vector<std::shared_ptr<ParameterSpec>> parameters;

private:
    std::set<std::string> contexts;
};

}  // namespace CallSpec
}  // namespace Tindra

#endif
