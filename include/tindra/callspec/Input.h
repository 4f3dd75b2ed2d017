#ifndef TINDRA_CALLSPEC_INPUT_H
#define TINDRA_CALLSPEC_INPUT_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/ParameterSpec.h"

namespace Tindra {
namespace CallSpec {

// One call's actual input: text values per parameter name, plus caller-supplied contexts.
class TINDRA_EXPORT Input {
public:
    using ParameterMap = std::map<std::string, std::vector<std::string>>;

    Input() = default;
    virtual ~Input() = default;

    static std::shared_ptr<Input> New();

    ParameterMap& GetParameters() { return parameters; }
    void AddParameter(std::string const& name, std::string const& value);
    void SetInputSpec(std::shared_ptr<InputSpec> const& spec);
    std::shared_ptr<InputSpec> GetInputSpec() const { return inputSpec; }

    bool HasParameter(std::string const& name) const;
    bool HasParameter(char const* name) const;
    bool IsFlagSet(std::string const& name) const;
    bool IsFlagSet(char const* name) const;
    ParameterType GetParameterType(std::string const& name) const;
    std::string const& GetParameter(std::string const& name) const;
    std::string const& GetParameter(char const* name) const;
    long GetParameterInt(std::string const& name) const;
    long GetParameterInt(char const* name) const;
    bool GetParameterBool(std::string const& name) const;
    bool GetParameterBool(char const* name) const;
    void GetParameterList(std::string const& name, std::vector<std::string>& out) const;
    void GetParameterList(char const* name, std::vector<std::string>& out) const;
    std::string GetParameterListAsString(std::string const& name, char separator, bool quote) const;
    void GetParameterIntList(std::string const& name, std::vector<long>& out) const;
    void GetParameterBoolList(std::string const& name, std::vector<bool>& out) const;

    void SetContext(std::string const& key, std::string const& value) { context[key] = value; }
    std::string const& GetContext(std::string const& key) const;

private:
    ParameterMap parameters;
    std::map<std::string, std::string> context;
    std::shared_ptr<InputSpec> inputSpec;
};

}  // namespace CallSpec
}  // namespace Tindra

#endif
