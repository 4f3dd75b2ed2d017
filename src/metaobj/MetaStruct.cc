#include "tindra/metaobj/MetaStruct.h"

#include <algorithm>

#include "metaobj/DocumentationText.h"
#include "metaobj/NestedRelease.h"
#include "metaobj/NestingDepth.h"
#include "tindra/TindraException.h"
#include "tindra/metaobj/MetaList.h"

namespace Tindra {
namespace MetaObj {

std::string const MetaStruct::_docEmpty;
std::string const MetaStruct::_docMissingStaticString = kDocumentationMissing;

namespace {

// Function-local copies of the two statics: a structure may be built by another translation
// unit's static initialiser, before the class statics above exist.
std::string const& EmptyDocumentation() {
    static std::string const text;
    return text;
}

std::string const& MissingDocumentation() {
    static std::string const text = kDocumentationMissing;
    return text;
}

size_t const kLinearSearchLimit = 8;

std::string const& CheckedTypeName(std::string const& typeName) {
    if (!IsValidStructName(typeName)) {
        throw TindraException("Invalid name specified for MetaStruct: " + typeName);
    }
    return typeName;
}

template <typename Values>
std::shared_ptr<MetaList> NewFilledList(MetaType itemType, Values&& values) {
    auto list = MetaList::New(itemType);
    list->AddAll(std::forward<Values>(values));
    return list;
}

}  // namespace

MetaStruct::MetaStruct(std::string&& name, FactoryFlag)
    : MetaObject(Struct), typeName(std::move(name)) {}

MetaStruct::MetaStruct(std::shared_ptr<MetaStruct> const& definition, FactoryFlag)
    : MetaObject(Struct), structureDefinition(definition), typeName(definition->typeName) {}

MetaStruct::~MetaStruct() {
    NestedRelease::ReleaseChildrenOf(*this);
}

std::shared_ptr<MetaStruct> MetaStruct::New(std::string const& name) {
    return std::make_shared<MetaStruct>(std::string(CheckedTypeName(name)), FactoryFlag());
}

std::shared_ptr<MetaStruct> MetaStruct::New(std::string&& name) {
    CheckedTypeName(name);
    return std::make_shared<MetaStruct>(std::move(name), FactoryFlag());
}

std::shared_ptr<MetaStruct> MetaStruct::New(char const* name) {
    return New(std::string(name));
}

std::shared_ptr<MetaStruct> MetaStruct::New(std::shared_ptr<MetaStruct> const& definition) {
    if (!definition) {
        throw TindraException("Invalid NULL structure definition for MetaStruct");
    }
    auto instance = std::make_shared<MetaStruct>(definition, FactoryFlag());
    definition->LockStructure();
    return instance;
}

MetaStruct::FieldEntries::const_iterator MetaStruct::FindField(std::string const& name) const {
    // Most structures have a handful of fields: comparing for equality beats ordering them.
    if (fields.size() <= kLinearSearchLimit) {
        return std::find_if(fields.begin(), fields.end(),
                            [&name](FieldEntry const& entry) { return entry.first == name; });
    }
    auto const found = std::lower_bound(
        fields.begin(), fields.end(), name,
        [](FieldEntry const& entry, std::string const& key) { return entry.first < key; });
    return found != fields.end() && found->first == name ? found : fields.end();
}

MetaStruct::FieldEntries::iterator MetaStruct::FindField(std::string const& name) {
    auto const found = static_cast<MetaStruct const&>(*this).FindField(name);
    return fields.begin() + (found - fields.cbegin());
}

void MetaStruct::StoreField(std::string const& name, Field&& field) {
    // Fields usually arrive in order or replace one: look at the end before searching.
    if (fields.empty() || fields.back().first < name) {
        fields.emplace_back(name, std::move(field));
        return;
    }
    auto const place = std::lower_bound(
        fields.begin(), fields.end(), name,
        [](FieldEntry const& entry, std::string const& key) { return entry.first < key; });
    if (place->first == name) {
        place->second = std::move(field);
    } else {
        fields.emplace(place, name, std::move(field));
    }
}

bool MetaStruct::HasField(std::string const& name) const {
    return FindField(name) != fields.end();
}

std::shared_ptr<MetaObject> MetaStruct::GetField(std::string const& name) const {
    auto const found = FindField(name);
    return found == fields.end() ? nullptr : found->second.value;
}

MetaType MetaStruct::GetFieldType(std::string const& name) const {
    auto const found = FindField(name);
    if (found == fields.end()) {
        throw 1;  // callers of this accessor catch the plain integer
    }
    return found->second.value->GetType();
}

std::string const& MetaStruct::GetFieldDocumentation(std::string const& name) const {
    auto const found = FindField(name);
    if (found == fields.end()) {
        throw TindraException("Field " + name + " is not present in the structure " + typeName);
    }
    std::string const& documentation = found->second.documentation;
    return documentation.empty() ? MissingDocumentation() : documentation;
}

std::vector<std::string> MetaStruct::GetFieldNames() const {
    std::vector<std::string> names;
    names.reserve(fields.size());
    for (auto const& field : fields) {
        names.push_back(field.first);
    }
    return names;
}

void MetaStruct::RemoveField(std::string const& name) {
    if (locked) {
        throw TindraException("Structure is locked, unable to remove fields");
    }
    auto const found = FindField(name);
    if (found != fields.end()) {
        fields.erase(found);
    }
}

bool MetaStruct::MatchesStructureDefinition() {
    if (!structureDefinition) {
        return true;
    }
    // Non-owning view of this structure: the comparison does not keep it.
    std::shared_ptr<MetaObject> const self(std::shared_ptr<MetaObject>(), this);
    return structureDefinition->IsSameStructure(self, nullptr);
}

void MetaStruct::SetField(std::string const& name, std::shared_ptr<MetaObject> const& value,
                          std::string const& documentation) {
    if (!value) {
        throw TindraException("Invalid NULL value was assigned to the field " + name +
                              " in the structure " + typeName);
    }
    IsValidFieldName(name);  // accepts every name; kept as the single place to restrict them
    if (locked) {
        auto const found = FindField(name);
        if (found == fields.end()) {
            throw TindraException("Unable to set new field " + name +
                                  " on structure. Structure has been locked");
        }
        found->second = Field(value, documentation);
        return;
    }
    if (structureDefinition && !structureDefinition->HasField(name)) {
        throw TindraException("Unable to set new field " + name +
                              " on structure.  The field does not match the Structure "
                              "definition for this MetaStruct.");
    }
    StoreField(name, Field(value, documentation));
}

bool MetaStruct::IsSameStructure(std::shared_ptr<MetaObject> const& other,
                                 std::vector<std::string>* errors) {
    auto record = [errors](std::string&& message) {
        if (errors != nullptr) {
            errors->push_back(std::move(message));
        }
    };
    if (!other) {
        record("Invalid NULL input to MetaStruct validation.");
        return false;
    }
    if (other.get() == this) {
        return true;  // shared sub-values (a list's prototype and first item) need no walk
    }
    NestingDepth const depth;
    if (depth.Exceeded()) {
        record("Structure nested more than " + std::to_string(NestingDepth::kLimit) +
               " levels deep, unable to compare it.");
        return false;
    }
    if (other->GetType() != Struct) {
        record("Type Mismatch in MetaStruct Validation: Expected type " +
               MetaTypeString(GetType()) + " got type " + MetaTypeString(other->GetType()));
        return false;
    }
    auto const* checked = dynamic_cast<MetaStruct const*>(other.get());
    if (!checked) {
        record("Unable to cast to MetaStruct, runtime error?");
        return false;
    }
    if (typeName != checked->typeName) {
        record("Type names do not match.");
    }
    bool result = true;
    if (fields.size() != checked->fields.size()) {
        record("Mismatch on number of fields set in struct. Expected " +
               std::to_string(fields.size()) + " found " + std::to_string(checked->fields.size()));
        result = false;
    }
    auto const& others = checked->fields;
    for (size_t index = 0; index < fields.size(); ++index) {
        auto const& field = fields[index];
        // Structures of one type hold the same names in the same order.
        bool const aligned = index < others.size() && others[index].first == field.first;
        auto const found = aligned ? others.begin() + static_cast<std::ptrdiff_t>(index)
                                   : checked->FindField(field.first);
        if (found == others.end()) {
            record("Missing field in input: " + field.first);
            return false;
        }
        auto const& expected = field.second.value;
        auto const& actual = found->second.value;
        if (expected->GetType() != actual->GetType() ||
            !expected->IsSameStructure(actual, errors)) {
            record("Type mismatch on field: " + field.first);
            return false;
        }
    }
    return result;
}

std::string MetaStruct::ToString() const {
    NestingDepth const depth;
    if (depth.Exceeded()) {
        throw TindraException("Structure nested more than " + std::to_string(NestingDepth::kLimit) +
                              " levels deep, unable to print it.");
    }
    std::string text = "{";
    for (auto const& field : fields) {
        text += '\'';
        text += field.first;
        text += "' => '";
        text += field.second.value->ToString();
        text += "', ";
    }
    text += '}';
    return text;
}

// Convenience overloads: every one lands in the documented SetField above.

void MetaStruct::SetField(std::string const& name, std::shared_ptr<MetaObject> const& value) {
    SetField(name, value, EmptyDocumentation());
}
void MetaStruct::SetField(char const* name, std::shared_ptr<MetaObject> const& value) {
    SetField(std::string(name), value, EmptyDocumentation());
}

void MetaStruct::SetField(std::string const& name, std::shared_ptr<MetaBool> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(value));
}
void MetaStruct::SetField(char const* name, std::shared_ptr<MetaBool> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(value));
}
void MetaStruct::SetField(std::string const& name, std::shared_ptr<MetaInt> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(value));
}
void MetaStruct::SetField(char const* name, std::shared_ptr<MetaInt> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(value));
}
void MetaStruct::SetField(std::string const& name, std::shared_ptr<MetaString> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(value));
}
void MetaStruct::SetField(char const* name, std::shared_ptr<MetaString> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(value));
}
void MetaStruct::SetField(std::string const& name, std::shared_ptr<MetaList> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(value));
}
void MetaStruct::SetField(char const* name, std::shared_ptr<MetaList> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(value));
}
void MetaStruct::SetField(std::string const& name, std::shared_ptr<MetaStruct> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(value));
}
void MetaStruct::SetField(char const* name, std::shared_ptr<MetaStruct> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(value));
}
void MetaStruct::SetField(std::string const& name, bool value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaBool::New(value)));
}
void MetaStruct::SetField(char const* name, bool value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaBool::New(value)));
}
void MetaStruct::SetField(std::string const& name, long value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaInt::New(value)));
}
void MetaStruct::SetField(char const* name, long value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaInt::New(value)));
}
void MetaStruct::SetField(std::string const& name, int value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaInt::New(static_cast<long>(value))));
}
void MetaStruct::SetField(char const* name, int value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaInt::New(static_cast<long>(value))));
}
void MetaStruct::SetField(std::string const& name, std::string const& value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaString::New(value)));
}
void MetaStruct::SetField(char const* name, std::string const& value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaString::New(value)));
}
void MetaStruct::SetField(std::string const& name, std::string&& value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaString::New(std::move(value))));
}
void MetaStruct::SetField(char const* name, std::string&& value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaString::New(std::move(value))));
}
void MetaStruct::SetField(std::string const& name, char const* value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaString::New(value)));
}
void MetaStruct::SetField(char const* name, char const* value) {
    SetField(name, std::shared_ptr<MetaObject>(MetaString::New(value)));
}
void MetaStruct::SetField(std::string const& name, std::vector<std::string> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(NewFilledList(String, value)));
}
void MetaStruct::SetField(char const* name, std::vector<std::string> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(NewFilledList(String, value)));
}
void MetaStruct::SetField(std::string const& name, std::vector<std::string>&& value) {
    SetField(name, std::shared_ptr<MetaObject>(NewFilledList(String, std::move(value))));
}
void MetaStruct::SetField(char const* name, std::vector<std::string>&& value) {
    SetField(name, std::shared_ptr<MetaObject>(NewFilledList(String, std::move(value))));
}
void MetaStruct::SetField(std::string const& name, std::vector<long> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(NewFilledList(Int, value)));
}
void MetaStruct::SetField(char const* name, std::vector<long> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(NewFilledList(Int, value)));
}
void MetaStruct::SetField(std::string const& name, std::vector<bool> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(NewFilledList(Bool, value)));
}
void MetaStruct::SetField(char const* name, std::vector<bool> const& value) {
    SetField(name, std::shared_ptr<MetaObject>(NewFilledList(Bool, value)));
}

}  // namespace MetaObj
}  // namespace Tindra
