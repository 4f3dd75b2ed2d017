#ifndef TINDRA_AUTOCLI_FORMATTERS_FORMATPARAMETERS_H
#define TINDRA_AUTOCLI_FORMATTERS_FORMATPARAMETERS_H

#include <map>
#include <string>
#include <vector>

#include "tindra/Export.h"

namespace Tindra {
namespace AutoCli {

// A formatter name and the string parameters that travel with one formatting request.
class TINDRA_EXPORT FormatParameters {
public:
    FormatParameters() = default;
    FormatParameters(FormatParameters const&) = default;
    FormatParameters(FormatParameters&&) = default;
    FormatParameters& operator=(FormatParameters const&) = default;
    FormatParameters& operator=(FormatParameters&&) = default;
    ~FormatParameters() = default;

    void SetFormatter(std::string name) { formatter = std::move(name); }
    void SetFormatter(char const* name) { formatter = name; }
    std::string const& GetFormatter() const { return formatter; }

    std::map<std::string, std::string>& GetParameters() { return parameters; }
    std::map<std::string, std::string> const& GetParameters() const { return parameters; }
    bool HasParameter(std::string const& key) const { return parameters.count(key) != 0; }
    std::string const& GetParameter(std::string const& key) const;
    void SetParameter(std::string key, std::string value);
    void SetParameter(char const* key, char const* value);
    std::vector<std::string> GetParameterAsList(std::string const& key) const;
    void OverrideValues(FormatParameters& other);

private:
    std::string formatter;
    std::map<std::string, std::string> parameters;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
