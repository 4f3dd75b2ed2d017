#ifndef TINDRA_METAOBJ_METALIST_H
#define TINDRA_METAOBJ_METALIST_H

#include <memory>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/metaobj/MetaBool.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaString.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace MetaObj {

// A homogeneous sequence; lists of structures check each item against one template.
class TINDRA_EXPORT MetaList final : public MetaObject {
public:
    MetaList(MetaType listType, std::shared_ptr<MetaStruct> structure, FactoryFlag);
    ~MetaList();

    static std::shared_ptr<MetaList> New(MetaType listType);
    static std::shared_ptr<MetaList> New(MetaType listType,
                                         std::shared_ptr<MetaStruct> const& structure);
    static std::shared_ptr<MetaList> New(MetaType listType,
                                         std::shared_ptr<MetaStruct>&& structure);
    static std::shared_ptr<MetaList> New(MetaType listType,
                                         std::shared_ptr<MetaObject> const& structure);

    MetaType GetListType() const { return listType; }
    std::shared_ptr<MetaStruct>& GetListStructure() { return listStructure; }
    std::vector<std::shared_ptr<MetaObject>>& GetObjects() { return objects; }
    size_t GetCount() const { return objects.size(); }
    std::shared_ptr<MetaObject> GetItem(unsigned int index) const;
    std::shared_ptr<MetaObject>& operator[](unsigned int index) { return objects[index]; }

    void Add(std::shared_ptr<MetaObject> const& item);
    void Add(std::shared_ptr<MetaBool> const& item);
    void Add(std::shared_ptr<MetaInt> const& item);
    void Add(std::shared_ptr<MetaString> const& item);
    void Add(std::shared_ptr<MetaStruct> const& item);
    void Add(bool value);
    void Add(long value);
    void Add(int value);
    void Add(char const* value);
    void Add(std::string const& value);
    void Add(std::string&& value);
    void AddAll(std::vector<bool> const& values);
    void AddAll(std::vector<long> const& values);
    void AddAll(std::vector<std::string> const& values);
    void AddAll(std::vector<std::string>&& values);
    void Delete(unsigned int index);
    void Reserve(size_t n);
    void EnsureCapacity(size_t n);
    bool Validate(std::shared_ptr<MetaObject> const& item, std::vector<std::string>* errors);

    bool IsSameStructure(std::shared_ptr<MetaObject> const& other,
                         std::vector<std::string>* errors) override;
    std::string ToString() const override;

private:
    std::shared_ptr<MetaStruct> listStructure;
    std::vector<std::shared_ptr<MetaObject>> objects;
    MetaType listType;
};

}  // namespace MetaObj
}  // namespace Tindra

#endif
