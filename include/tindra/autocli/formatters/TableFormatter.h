#ifndef TINDRA_AUTOCLI_FORMATTERS_TABLEFORMATTER_H
#define TINDRA_AUTOCLI_FORMATTERS_TABLEFORMATTER_H

#include <memory>
#include <ostream>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// The "table" formatter: a list of structures as an aligned text table.
class TINDRA_EXPORT TableFormatter : public Formatter {
public:
    TableFormatter();

    bool Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                DisplayContext& display, std::ostream& out) override;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
