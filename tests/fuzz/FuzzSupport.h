#ifndef TINDRA_TESTS_FUZZ_FUZZSUPPORT_H
#define TINDRA_TESTS_FUZZ_FUZZSUPPORT_H

// What the fuzz targets share: a canonical text of values, silence for libxml2's diagnostics,
// and the way a target reports a broken property.

#include <libxml/xmlerror.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "tindra/TindraException.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Fuzz {

using namespace Tindra::MetaObj;

// Every kind, type name and list prototype spelled out, so that two values compare equal
// exactly when they are the same value.
inline std::string Describe(std::shared_ptr<MetaObject> const& value) {
    if (!value) {
        return "<none>";
    }
    std::string text;
    switch (value->GetType()) {
        case Int:
            return "Int(" + value->ToString() + ")";
        case Bool:
            return "Bool(" + value->ToString() + ")";
        case String:
            return "String[" + value->ToString() + "]";
        case Struct: {
            auto& structure = static_cast<MetaStruct&>(*value);
            for (auto const& name : structure.GetFieldNames()) {
                text += "[" + name + "]=" + Describe(structure.GetField(name)) + ";";
            }
            return "Struct " + structure.GetTypeName() + "{" + text + "}";
        }
        case List: {
            auto& list = static_cast<MetaList&>(*value);
            for (auto const& item : list.GetObjects()) {
                text += Describe(item) + ",";
            }
            auto prototype = list.GetListStructure();
            return "List<" + MetaTypeString(list.GetListType()) +
                   (prototype ? " of " + Describe(prototype) : "") + ">(" + text + ")";
        }
    }
    return "<unknown kind>";
}

// The described value the reading gives, or "throws: " and the message: user input may only
// ever fail with the library's own exception.
template <typename Read>
std::string Outcome(Read read) {
    try {
        return Describe(read());
    } catch (Tindra::TindraException const& error) {
        return std::string("throws: ") + error.what();
    }
}

inline void QuietStructured(void*, xmlError*) {}
inline void QuietGeneric(void*, char const*, ...) {}

// The fuzzers feed broken documents by the million; the parser's complaints are not findings.
inline void SilenceXmlDiagnostics() {
    xmlSetStructuredErrorFunc(nullptr, &QuietStructured);
    xmlSetGenericErrorFunc(nullptr, &QuietGeneric);
}

// Control bytes and zero bytes written as \xNN, so that a report shows every byte.
inline std::string Visible(std::string const& text) {
    std::string shown;
    for (unsigned char c : text) {
        if ((c < 0x20 && c != '\n') || c == 0x7f) {
            char escaped[5];
            std::snprintf(escaped, sizeof escaped, "\\x%02x", c);
            shown += escaped;
        } else {
            shown += static_cast<char>(c);
        }
    }
    return shown;
}

// A property that must hold for every input; libFuzzer keeps the input that broke it.
inline void Require(bool holds, char const* property, std::string const& detail) {
    if (!holds) {
        std::fprintf(stderr, "property broken: %s\n%s\n", property, Visible(detail).c_str());
        std::abort();
    }
}

}  // namespace Fuzz

#endif
