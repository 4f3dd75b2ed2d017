#ifndef TINDRA_AUTOCLI_FORMATTERS_COMMANDHELPFORMATTER_H
#define TINDRA_AUTOCLI_FORMATTERS_COMMANDHELPFORMATTER_H

#include <memory>
#include <ostream>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// The "commandhelp" formatter: usage, description, options and examples of one command.
class TINDRA_EXPORT CommandHelpFormatter : public Formatter {
public:
    CommandHelpFormatter();

    bool Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                DisplayContext& display, std::ostream& out) override;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
