#ifndef TINDRA_AUTOCLI_TREE_COMMANDOUTPUT_H
#define TINDRA_AUTOCLI_TREE_COMMANDOUTPUT_H

#include <memory>
#include <string>

#include "tindra/Export.h"
#include "tindra/callspec/Output.h"

namespace Tindra {
namespace AutoCli {

// A call's output together with its formatted text.
class TINDRA_EXPORT CommandOutput : public CallSpec::Output {
public:
    static std::shared_ptr<CommandOutput> New();

    void SetFormattedString(std::string const& text) { formattedString = text; }
    std::string& GetFormattedString() { return formattedString; }

private:
    std::string formattedString;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
