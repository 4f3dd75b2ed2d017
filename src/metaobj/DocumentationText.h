#ifndef TINDRA_SRC_METAOBJ_DOCUMENTATIONTEXT_H
#define TINDRA_SRC_METAOBJ_DOCUMENTATIONTEXT_H

namespace Tindra {
namespace MetaObj {

// Shown wherever a field or an output has no documentation of its own. A character array, so
// it is usable from any static initialiser regardless of translation-unit order.
inline constexpr char kDocumentationMissing[] = "Documentation missing";

}  // namespace MetaObj
}  // namespace Tindra

#endif
