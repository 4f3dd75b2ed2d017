#ifndef TINDRA_AUTOCLI_FORMATTERS_PYTHONFORMATTER_H
#define TINDRA_AUTOCLI_FORMATTERS_PYTHONFORMATTER_H

#include <memory>
#include <ostream>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// The "python" formatter: a one-line literal that eval() can read.
class TINDRA_EXPORT PythonFormatter : public Formatter {
public:
    PythonFormatter();

    bool Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                DisplayContext& display, std::ostream& out) override;
    void Format(std::shared_ptr<MetaObj::MetaObject> value, std::ostream& out, int level);
    static bool IsAllAscii(std::string const& text);
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
