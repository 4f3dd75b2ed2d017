#ifndef TINDRA_AUTOCLI_FORMATTERS_FORMATTER_H
#define TINDRA_AUTOCLI_FORMATTERS_FORMATTER_H

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/DisplayContext.h"
#include "tindra/autocli/formatters/FormatParameters.h"
#include "tindra/callspec/Output.h"

namespace Tindra {
namespace AutoCli {

// One parameter a formatter documents for its users.
struct TINDRA_EXPORT FormatterParam {
    FormatterParam(std::string n, std::string d, bool f = false)
        : name(std::move(n)), description(std::move(d)), flag(f) {}
    ~FormatterParam() = default;

    std::string name;
    std::string description;
    bool flag;
};

// Turns a call's output into text.
class TINDRA_EXPORT Formatter {
public:
    explicit Formatter(std::string const& name) : name(name) {}
    virtual ~Formatter() = default;

    virtual bool Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                        DisplayContext& display, std::ostream& out) = 0;

    std::string const& GetName() const { return name; }
    std::string const& GetDescription() const { return description; }
    std::vector<FormatterParam> const& GetParams() const { return params; }

protected:
    std::string description;
    std::vector<FormatterParam> params;

private:
    std::string name;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
