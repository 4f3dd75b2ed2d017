#ifndef TINDRA_TESTS_FUZZ_FUZZSUPPORT_H
#define TINDRA_TESTS_FUZZ_FUZZSUPPORT_H

// What every fuzz target includes: a canonical text of values, the way a target reports a broken
// property, and silence for libxml2's diagnostics.
#include <libxml/xmlerror.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tindra/TindraException.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Fuzz {

using namespace Tindra::MetaObj;

// Kinds, type names and list prototypes spelled out: two values describe the same exactly when
// they are the same value.
inline std::string Describe(std::shared_ptr<MetaObject> const& value) {
    if (!value) {
        return "<none>";
    }
    std::string text = MetaTypeString(value->GetType()) + "[";
    if (auto structure = std::dynamic_pointer_cast<MetaStruct>(value)) {
        text += structure->GetTypeName() + ":";
        for (auto const& name : structure->GetFieldNames()) {
            text += name + "=" + Describe(structure->GetField(name)) + ";";
        }
    } else if (auto list = std::dynamic_pointer_cast<MetaList>(value)) {
        text += MetaTypeString(list->GetListType()) + " of " + Describe(list->GetListStructure());
        for (auto const& item : list->GetObjects()) {
            text += "," + Describe(item);
        }
    } else {
        text += value->ToString();
    }
    return text + "]";
}

// libFuzzer keeps the input that broke the property; control bytes are shown as \xNN.
inline void Require(bool holds, char const* property, std::string const& detail) {
    if (!holds) {
        std::fprintf(stderr, "property broken: %s\n", property);
        for (unsigned char c : detail + "\n") {
            std::fprintf(stderr, (c < 0x20 && c != '\n') || c == 0x7f ? "\\x%02x" : "%c", c);
        }
        std::abort();
    }
}

inline void QuietGeneric(void*, char const*, ...) {}

}  // namespace Fuzz

// Broken documents by the million: the parser's complaints are not findings.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    xmlSetStructuredErrorFunc(nullptr, [](void*, xmlError*) {});
    xmlSetGenericErrorFunc(nullptr, &Fuzz::QuietGeneric);
    return 0;
}

#endif
