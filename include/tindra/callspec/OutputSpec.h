#ifndef TINDRA_CALLSPEC_OUTPUTSPEC_H
#define TINDRA_CALLSPEC_OUTPUTSPEC_H

#include <memory>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/callspec/Output.h"

namespace Tindra {
namespace CallSpec {

// What a command returns: a template value that real output is checked against.
class TINDRA_EXPORT OutputSpec {
public:
    static std::shared_ptr<OutputSpec> New();

    void SetDescription(std::string const& text) { description = text; }
    std::string const& GetDescription() const;

    void SetRootObject(std::shared_ptr<MetaObj::MetaObject>&& value);
    void SetRootObject(std::shared_ptr<MetaObj::MetaObject> const& value);
    void SetRootObject(std::shared_ptr<MetaObj::MetaBool> const& value);
    void SetRootObject(std::shared_ptr<MetaObj::MetaInt> const& value);
    void SetRootObject(std::shared_ptr<MetaObj::MetaString> const& value);
    void SetRootObject(std::shared_ptr<MetaObj::MetaList> const& value);
    void SetRootObject(std::shared_ptr<MetaObj::MetaStruct> const& value);
    std::shared_ptr<MetaObj::MetaObject> GetRootObject() const { return rootObject; }

    bool Validate(std::shared_ptr<Output> const& output, std::vector<std::string>* errors) const;

    static std::string const _docMissingStaticString;

private:
    std::shared_ptr<MetaObj::MetaObject> rootObject;
    std::string description;
};

}  // namespace CallSpec
}  // namespace Tindra

#endif
