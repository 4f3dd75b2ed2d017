#ifndef TINDRA_CALLSPEC_PARAMETERCONSTRAINT_H
#define TINDRA_CALLSPEC_PARAMETERCONSTRAINT_H

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/callspec/Output.h"

namespace Tindra {
namespace CallSpec {

enum ParameterConstraintType : uint32_t {
    ConstraintNone = 0,
    ConstraintIntRange = 1,
    ConstraintIntEnum = 2,
    ConstraintStringEnum = 3,
    ConstraintRegex = 4
};

// Narrows the values a parameter accepts: a range, an integer set, a string set or a pattern.
class TINDRA_EXPORT ParameterConstraint {
public:
    explicit ParameterConstraint(ParameterConstraintType type) : type(type) {}
    static std::shared_ptr<ParameterConstraint> New(ParameterConstraintType type);

    ParameterConstraintType GetType() const { return type; }

    void SetIntRange(long minimum, long maximum);
    void GetIntRange(long& minimum, long& maximum) const;
    void AddIntEnum(long value);
    std::vector<long>& GetIntEnum() { return intEnum; }
    void AddStringEnum(std::string const& value, std::string const& description);
    void AddStringEnum(char const* value, char const* description);
    void AddStringEnum(char const* value);
    std::vector<std::string>& GetStringEnum() { return stringEnum; }
    std::map<std::string, std::string>& GetStringEnumWithDesc() { return stringEnumDesc; }
    void SetStringRegex(std::string const& expression) { regex = expression; }
    std::string const& GetStringRegex() const { return regex; }

    std::string ToString() const;
    bool Validate(std::string const& value, std::string const& parameterName,
                  std::shared_ptr<Output> const& output) const;

private:
    ParameterConstraintType type;
    long min = 0;
    long max = 0;
    std::vector<long> intEnum;
    std::vector<std::string> stringEnum;
    std::map<std::string, std::string> stringEnumDesc;
    std::string regex;
};

}  // namespace CallSpec
}  // namespace Tindra

#endif
