#ifndef TINDRA_AUTOCLI_FORMATTERS_XMLFORMATTER_H
#define TINDRA_AUTOCLI_FORMATTERS_XMLFORMATTER_H

#include <memory>
#include <ostream>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// Escapes the characters that may not stand as they are in XML text and attributes.
TINDRA_EXPORT std::string SantizeString(std::string text);

// The "xml" formatter: the output as an XML document with its meta-data.
class TINDRA_EXPORT XmlFormatter : public Formatter {
public:
    XmlFormatter();

    bool Format(std::shared_ptr<CallSpec::Output> output, FormatParameters& params,
                DisplayContext& display, std::ostream& out) override;
    void Format(std::shared_ptr<MetaObj::MetaObject> value, std::ostream& out, int level);
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
