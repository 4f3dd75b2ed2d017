#ifndef TINDRA_AUTOCLI_FORMATTERS_CLIDISPATCHERHELPFORMATTER_H
#define TINDRA_AUTOCLI_FORMATTERS_CLIDISPATCHERHELPFORMATTER_H

#include <memory>
#include <ostream>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// The "clihelp" formatter: the listing of a namespace.
class TINDRA_EXPORT CliDispatcherHelpFormatter : public Formatter {
public:
    CliDispatcherHelpFormatter();

    bool Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                DisplayContext& display, std::ostream& out) override;
    static bool ExtractString(std::string const& name,
                              std::shared_ptr<MetaObj::MetaStruct> structure, std::string& result);
    bool HandleList(std::string const& kind, std::shared_ptr<MetaObj::MetaList> nodes,
                    DisplayContext& display, std::ostream& out);
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
