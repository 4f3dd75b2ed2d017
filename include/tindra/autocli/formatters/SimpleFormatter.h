#ifndef TINDRA_AUTOCLI_FORMATTERS_SIMPLEFORMATTER_H
#define TINDRA_AUTOCLI_FORMATTERS_SIMPLEFORMATTER_H

#include <memory>
#include <ostream>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// The "simple" formatter: any value as indented plain text.
class TINDRA_EXPORT SimpleFormatter : public Formatter {
public:
    SimpleFormatter();

    bool Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                DisplayContext& display, std::ostream& out) override;
    void Format(std::shared_ptr<MetaObj::MetaObject> value, FormatParameters& params,
                std::ostream& out, int level);
    void FormatStruct(std::shared_ptr<MetaObj::MetaStruct> value, FormatParameters& params,
                      std::ostream& out, int level);
    void FormatList(std::shared_ptr<MetaObj::MetaList> value, FormatParameters& params,
                    std::ostream& out, int level);
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
