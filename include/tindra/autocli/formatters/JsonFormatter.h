#ifndef TINDRA_AUTOCLI_FORMATTERS_JSONFORMATTER_H
#define TINDRA_AUTOCLI_FORMATTERS_JSONFORMATTER_H

#include <memory>
#include <ostream>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// The "json" formatter.
class TINDRA_EXPORT JsonFormatter : public Formatter {
public:
    JsonFormatter();

    bool Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                DisplayContext& display, std::ostream& out) override;
    void Format(std::shared_ptr<MetaObj::MetaObject> value, std::ostream& out, int level);
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
