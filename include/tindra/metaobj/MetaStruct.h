#ifndef TINDRA_METAOBJ_METASTRUCT_H
#define TINDRA_METAOBJ_METASTRUCT_H

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tindra/Export.h"
#include "tindra/metaobj/MetaBool.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaString.h"

namespace Tindra {
namespace MetaObj {

class MetaList;
class NestedRelease;

// A record: a type name and named, documented fields, optionally tied to a definition.
class TINDRA_EXPORT MetaStruct final : public MetaObject {
public:
    struct Field {
        Field(std::shared_ptr<MetaObject> const& v, std::string const& doc)
            : value(v), documentation(doc) {}
        Field(Field&&) = default;
        Field& operator=(Field&&) = default;

        std::shared_ptr<MetaObject> value;
        std::string documentation;
    };

    MetaStruct(std::string&& typeName, FactoryFlag);
    MetaStruct(std::shared_ptr<MetaStruct> const& definition, FactoryFlag);
    ~MetaStruct();

    static std::shared_ptr<MetaStruct> New(std::string const& typeName);
    static std::shared_ptr<MetaStruct> New(std::string&& typeName);
    static std::shared_ptr<MetaStruct> New(char const* typeName);
    static std::shared_ptr<MetaStruct> New(std::shared_ptr<MetaStruct> const& definition);

    std::string const& GetTypeName() const { return typeName; }
    bool HasStructureDefinition() const { return structureDefinition != nullptr; }
    std::shared_ptr<MetaStruct> GetStructureDefinition() const { return structureDefinition; }
    void LockStructure() { locked = true; }

    bool HasField(std::string const& name) const;
    std::shared_ptr<MetaObject> GetField(std::string const& name) const;
    MetaType GetFieldType(std::string const& name) const;
    std::string const& GetFieldDocumentation(std::string const& name) const;
    std::vector<std::string> GetFieldNames() const;
    // Calls visit(name, value) for every field in name order, copying neither: printing a
    // large output walks millions of fields.
    template <typename Visitor>
    void ForEachField(Visitor&& visit) const {
        for (auto const& entry : fields) {
            visit(entry.first, *entry.second.value);
        }
    }
    size_t GetFieldCount() const { return fields.size(); }
    // Room for this many fields: a hint for builders that know the count beforehand.
    void ReserveFields(size_t count) { fields.reserve(count); }
    void RemoveField(std::string const& name);
    bool MatchesStructureDefinition();

    void SetField(std::string const& name, std::shared_ptr<MetaObject> const& value,
                  std::string const& documentation);

    void SetField(std::string const& name, std::shared_ptr<MetaObject> const& value);
    void SetField(char const* name, std::shared_ptr<MetaObject> const& value);
    void SetField(std::string const& name, std::shared_ptr<MetaBool> const& value);
    void SetField(char const* name, std::shared_ptr<MetaBool> const& value);
    void SetField(std::string const& name, std::shared_ptr<MetaInt> const& value);
    void SetField(char const* name, std::shared_ptr<MetaInt> const& value);
    void SetField(std::string const& name, std::shared_ptr<MetaString> const& value);
    void SetField(char const* name, std::shared_ptr<MetaString> const& value);
    void SetField(std::string const& name, std::shared_ptr<MetaList> const& value);
    void SetField(char const* name, std::shared_ptr<MetaList> const& value);
    void SetField(std::string const& name, std::shared_ptr<MetaStruct> const& value);
    void SetField(char const* name, std::shared_ptr<MetaStruct> const& value);
    void SetField(std::string const& name, bool value);
    void SetField(char const* name, bool value);
    void SetField(std::string const& name, long value);
    void SetField(char const* name, long value);
    void SetField(std::string const& name, int value);
    void SetField(char const* name, int value);
    void SetField(std::string const& name, std::string const& value);
    void SetField(char const* name, std::string const& value);
    void SetField(std::string const& name, std::string&& value);
    void SetField(char const* name, std::string&& value);
    void SetField(std::string const& name, char const* value);
    void SetField(char const* name, char const* value);
    void SetField(std::string const& name, std::vector<std::string> const& value);
    void SetField(char const* name, std::vector<std::string> const& value);
    void SetField(std::string const& name, std::vector<std::string>&& value);
    void SetField(char const* name, std::vector<std::string>&& value);
    void SetField(std::string const& name, std::vector<long> const& value);
    void SetField(char const* name, std::vector<long> const& value);
    void SetField(std::string const& name, std::vector<bool> const& value);
    void SetField(char const* name, std::vector<bool> const& value);

    bool IsSameStructure(std::shared_ptr<MetaObject> const& other,
                         std::vector<std::string>* errors) override;
    std::string ToString() const override;

    static std::string const _docEmpty;
    static std::string const _docMissingStaticString;

private:
    friend class NestedRelease;

    // Kept sorted by name: one block per structure instead of one node per field, and the
    // order every reader sees.
    using FieldEntry = std::pair<std::string, Field>;
    using FieldEntries = std::vector<FieldEntry>;

    FieldEntries::const_iterator FindField(std::string const& name) const;
    FieldEntries::iterator FindField(std::string const& name);
    void StoreField(std::string const& name, Field&& field);

    FieldEntries fields;
    std::shared_ptr<MetaStruct> structureDefinition;
    std::string typeName;
    bool locked = false;
};

}  // namespace MetaObj
}  // namespace Tindra

#endif
