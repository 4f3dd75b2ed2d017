#include "tindra/metaobj/MetaList.h"

#include <boost/algorithm/string/join.hpp>

#include "metaobj/NestedRelease.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace MetaObj {

namespace {

constexpr size_t kPrintedCharactersPerItem = 15;

void Record(std::vector<std::string>* errors, std::string&& message) {
    if (errors != nullptr) {
        errors->push_back(std::move(message));
    }
}

std::shared_ptr<MetaStruct> LockedTemplate(MetaType listType,
                                           std::shared_ptr<MetaStruct> const& structure) {
    if (listType != Struct) {
        throw TindraException("Struct type expected for list.");
    }
    if (structure) {
        structure->LockStructure();
    }
    return structure;
}

}  // namespace

MetaList::MetaList(MetaType type, std::shared_ptr<MetaStruct> structure, FactoryFlag)
    : MetaObject(List), listStructure(std::move(structure)), listType(type) {}

MetaList::~MetaList() {
    NestedRelease::ReleaseChildrenOf(*this);
}

std::shared_ptr<MetaList> MetaList::New(MetaType type) {
    if (type != Int && type != Bool && type != String) {
        throw TindraException("Integer, boolean or string type expected for list.");
    }
    return std::make_shared<MetaList>(type, nullptr, FactoryFlag());
}

std::shared_ptr<MetaList> MetaList::New(MetaType type,
                                        std::shared_ptr<MetaStruct> const& structure) {
    return std::make_shared<MetaList>(type, LockedTemplate(type, structure), FactoryFlag());
}

std::shared_ptr<MetaList> MetaList::New(MetaType type, std::shared_ptr<MetaStruct>&& structure) {
    LockedTemplate(type, structure);
    return std::make_shared<MetaList>(type, std::move(structure), FactoryFlag());
}

std::shared_ptr<MetaList> MetaList::New(MetaType type,
                                        std::shared_ptr<MetaObject> const& structure) {
    return New(type, std::dynamic_pointer_cast<MetaStruct>(structure));
}

std::shared_ptr<MetaObject> MetaList::GetItem(unsigned int index) const {
    if (index >= objects.size()) {
        throw TindraException("Get requested on invalid index of MetaList");
    }
    return objects[index];
}

bool MetaList::Validate(std::shared_ptr<MetaObject> const& item, std::vector<std::string>* errors) {
    if (!item) {
        Record(errors, "Invalid NULL input");
        return false;
    }
    if (item->GetType() != listType) {
        Record(errors,
               "There was an error adding an item to this list.  The item being added was not "
               "the correct type for this list, so it was not added.");
        return false;
    }
    if (listType != Struct) {
        return true;
    }
    if (!listStructure) {
        Record(errors, "List created with NULL structure.  No items can be added to this list.");
        return false;
    }
    if (!listStructure->IsSameStructure(item, errors)) {
        Record(errors,
               "There was an error adding an item to this list.  The item being added did not "
               "match the declared structure of this list, so it was not added.");
        return false;
    }
    return true;
}

void MetaList::Add(std::shared_ptr<MetaObject> const& item) {
    if (!item) {
        throw TindraException("Null object passed to Add");
    }
    if (item->GetType() != listType) {
        throw TindraException("Invalid type specificed in MetaList.  Expected object of type " +
                              MetaTypeString(listType) + " got object of type " +
                              MetaTypeString(item->GetType()));
    }
    std::vector<std::string> errors;
    if (!Validate(item, &errors)) {
        throw TindraException("Invalid structure detected by MetaList::Add.  Type Errors were: (" +
                              std::to_string(errors.size()) +
                              ") : " + boost::algorithm::join(errors, ", "));
    }
    objects.push_back(item);
}

void MetaList::Add(std::shared_ptr<MetaBool> const& item) {
    Add(std::shared_ptr<MetaObject>(item));
}
void MetaList::Add(std::shared_ptr<MetaInt> const& item) {
    Add(std::shared_ptr<MetaObject>(item));
}
void MetaList::Add(std::shared_ptr<MetaString> const& item) {
    Add(std::shared_ptr<MetaObject>(item));
}
void MetaList::Add(std::shared_ptr<MetaStruct> const& item) {
    Add(std::shared_ptr<MetaObject>(item));
}
void MetaList::Add(bool value) {
    Add(MetaBool::New(value));
}
void MetaList::Add(long value) {
    Add(MetaInt::New(value));
}
void MetaList::Add(int value) {
    Add(MetaInt::New(static_cast<long>(value)));
}
void MetaList::Add(char const* value) {
    Add(MetaString::New(value));
}
void MetaList::Add(std::string const& value) {
    Add(MetaString::New(value));
}
void MetaList::Add(std::string&& value) {
    Add(MetaString::New(std::move(value)));
}

void MetaList::AddAll(std::vector<bool> const& values) {
    EnsureCapacity(values.size());
    for (bool const value : values) {
        Add(value);
    }
}

void MetaList::AddAll(std::vector<long> const& values) {
    EnsureCapacity(values.size());
    for (long const value : values) {
        Add(value);
    }
}

void MetaList::AddAll(std::vector<std::string> const& values) {
    EnsureCapacity(values.size());
    for (auto const& value : values) {
        Add(value);
    }
}

void MetaList::AddAll(std::vector<std::string>&& values) {
    EnsureCapacity(values.size());
    for (auto& value : values) {
        Add(std::move(value));
    }
}

void MetaList::Delete(unsigned int index) {
    if (index >= objects.size()) {
        throw TindraException("Delete requested on invalid index of MetaList");
    }
    objects.erase(objects.begin() + index);
}

void MetaList::Reserve(size_t n) {
    objects.reserve(n);
}

void MetaList::EnsureCapacity(size_t n) {
    size_t const needed = objects.size() + n;
    if (objects.capacity() < needed) {
        objects.reserve(needed);
    }
}

bool MetaList::IsSameStructure(std::shared_ptr<MetaObject> const& other,
                               std::vector<std::string>* errors) {
    if (!other) {
        Record(errors, "Mismatch on structure, NULL comparison");
        return false;
    }
    if (other.get() == this) {
        return true;  // a value always matches itself; shared sub-values need no walk
    }
    if (other->GetType() != List) {
        Record(errors, "Type mismatch!  Was expecting a " + MetaTypeString(GetType()) +
                           ", but got a " + MetaTypeString(other->GetType()));
        return false;
    }
    auto const checked = std::dynamic_pointer_cast<MetaList>(other);
    if (!checked || checked->listType != listType) {
        Record(errors, "Mismatch on list type");
        return false;
    }
    if (listType == Struct && listStructure && checked->listStructure &&
        !listStructure->IsSameStructure(checked->listStructure, errors)) {
        Record(errors, "List type mismatch list and input");
        return false;
    }
    return true;
}

std::string MetaList::ToString() const {
    std::string text;
    text.reserve(objects.size() * kPrintedCharactersPerItem);
    for (size_t i = 0; i < objects.size(); ++i) {
        if (i != 0) {
            text += ", ";
        }
        text += objects[i]->ToString();
    }
    return text;
}

}  // namespace MetaObj
}  // namespace Tindra
