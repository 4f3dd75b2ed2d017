#ifndef TINDRA_TESTS_EXTENSION_VALUEDESCRIPTION_H
#define TINDRA_TESTS_EXTENSION_VALUEDESCRIPTION_H

#include <memory>
#include <string>

#include "tindra/TindraException.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaStruct.h"

// The prefix of every error met while building a value from command output.
inline std::string const kOutputWrap =
    "Error parsing command output.  Unable to build a proper metaobject from output tag.  output "
    "must contain properly formatted tags of type bool, int, string, structure and list. Error "
    "was : ";

// A canonical text of a value with every kind, type name and list template spelled out, so
// that two values compare equal exactly when they are the same value.
inline std::string DescribeValue(std::shared_ptr<Tindra::MetaObj::MetaObject> const& value) {
    using namespace Tindra::MetaObj;
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
                text += "[" + name + "]=" + DescribeValue(structure.GetField(name)) + ";";
            }
            return "Struct " + structure.GetTypeName() + "{" + text + "}";
        }
        case List: {
            auto& list = static_cast<MetaList&>(*value);
            for (auto const& item : list.GetObjects()) {
                text += DescribeValue(item) + ",";
            }
            auto prototype = list.GetListStructure();
            return "List<" + MetaTypeString(list.GetListType()) +
                   (prototype ? " of " + DescribeValue(prototype) : "") + ">(" + text + ")";
        }
    }
    return "<unknown kind>";
}

// The described value the parse gives, or "throws: " and its message.
template <typename Parse>
std::string Outcome(Parse parse, std::string const& text) {
    try {
        return DescribeValue(parse(text));
    } catch (Tindra::TindraException const& error) {
        return std::string("throws: ") + error.what();
    }
}

#endif
