#ifndef TINDRA_AUTOCLI_FORMATTERS_FIELDHELPERS_H
#define TINDRA_AUTOCLI_FORMATTERS_FIELDHELPERS_H

#include <memory>
#include <ostream>
#include <string>

#include "tindra/Export.h"
#include "tindra/autocli/formatters/FormatParameters.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

// Follows a dotted path of field names into nested structures.
TINDRA_EXPORT std::shared_ptr<MetaObj::MetaObject> GetSubField(
    std::shared_ptr<MetaObj::MetaStruct> structure, std::string const& path);
// The field's text when it is a string value, else the empty string.
TINDRA_EXPORT std::string GetStringField(std::shared_ptr<MetaObj::MetaStruct> structure,
                                         std::string const& name);
// Three spaces per level; nothing below level 1.
TINDRA_EXPORT std::string GetIndent(int level);
// One field value as text, with the request's printf format and units applied.
TINDRA_EXPORT std::string AutoCli_FormatField(std::string const& typeName,
                                              std::string const& fieldName,
                                              std::shared_ptr<MetaObj::MetaObject> value,
                                              FormatParameters& params);
// Writes text at column indent, wrapped at blanks to stay within width.
TINDRA_EXPORT void AutoCli_FitString(int const& indent, int const& width, std::string const& text,
                                     bool indented, std::ostream& out, bool endLine, char breakChar,
                                     bool splitLines);

}  // namespace AutoCli
}  // namespace Tindra

#endif
