#ifndef TINDRA_CALLSPEC_PARAMETERSPEC_H
#define TINDRA_CALLSPEC_PARAMETERSPEC_H

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tindra/Export.h"
#include "tindra/callspec/Output.h"
#include "tindra/callspec/ParameterConstraint.h"

namespace Tindra {
namespace CallSpec {

enum ParameterType : uint32_t {
    ParamString = 0,
    ParamInt = 1,
    ParamBool = 2,
    ParamFlag = 3,
    ParamStringList = 4,
    ParamIntList = 5,
    ParamBoolList = 6
};

// Declares one named parameter of a command and checks the text values given for it.
class TINDRA_EXPORT ParameterSpec {
public:
    ParameterSpec(std::string&& name, ParameterType type);

    static std::shared_ptr<ParameterSpec> New(std::string const& name, ParameterType type);
    static std::shared_ptr<ParameterSpec> New(std::string&& name, ParameterType type);
    static std::shared_ptr<ParameterSpec> New(char const* name, ParameterType type);

    std::string const& GetName() const { return name; }
    std::string const& GetShortName() const { return shortName; }
    ParameterType GetType() const { return type; }
    ParameterType GetParameterType() const { return type; }
    bool IsRequired() const { return required; }
    bool IsSecret() const { return secret; }
    std::shared_ptr<ParameterConstraint> GetConstraint() const { return constraint; }

    void SetShortName(std::string const& value);
    void SetShortName(char const* value);
    void SetDescription(std::string const& text) { description = text; }
    void SetDescription(std::string&& text) { description = std::move(text); }
    void SetDescription(char const* text) { description = text; }
    void SetRequired(bool value) { required = value; }
    void SetSecret(bool value);
    void SetConstraint(std::shared_ptr<ParameterConstraint> const& value);

    bool AllowMultiple() const;
    static bool GetInt(std::string const& text, long& out);
    static bool GetBool(std::string const& text, bool& out);
    std::string GetDescription(bool expand) const;
    bool Validate(std::vector<std::string> const& values,
                  std::shared_ptr<Output> const& output) const;

private:
    ParameterType type;
    std::string name;
    std::string shortName;
    std::string description;
    std::shared_ptr<ParameterConstraint> constraint;
    bool required = true;
    bool secret = false;
};

}  // namespace CallSpec
}  // namespace Tindra

#endif
