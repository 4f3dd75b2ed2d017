#ifndef TINDRA_CALLSPEC_OUTPUT_H
#define TINDRA_CALLSPEC_OUTPUT_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tindra/Export.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaObject.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace CallSpec {

// The result of one call: a root value, error messages in order, and what kind of output it is.
class TINDRA_EXPORT Output {
public:
    enum OutputType : uint32_t { Normal = 0, Help = 2 };

    Output() = default;
    virtual ~Output() = default;

    static std::shared_ptr<Output> New();

    void AddErrorMessage(std::string const& message) { errors.push_back(message); }
    void AddErrorMessage(char const* message) { errors.emplace_back(message); }
    void AddErrorMessage(std::string&& message) { errors.push_back(std::move(message)); }
    bool HasError() const { return !errors.empty(); }
    std::vector<std::string>& GetErrors() { return errors; }

    void SetRootObject(std::shared_ptr<MetaObj::MetaObject> const& value) { rootObject = value; }
    void SetRootObject(std::shared_ptr<MetaObj::MetaBool> const& value) { rootObject = value; }
    void SetRootObject(std::shared_ptr<MetaObj::MetaInt> const& value) { rootObject = value; }
    void SetRootObject(std::shared_ptr<MetaObj::MetaString> const& value) { rootObject = value; }
    void SetRootObject(std::shared_ptr<MetaObj::MetaList> const& value) { rootObject = value; }
    void SetRootObject(std::shared_ptr<MetaObj::MetaStruct> const& value) { rootObject = value; }
    std::shared_ptr<MetaObj::MetaObject> GetRootObject() const { return rootObject; }

    void SetOutputType(OutputType type) { outputType = type; }
    OutputType GetOutputType() const { return outputType; }

private:
    std::vector<std::string> errors;
    std::shared_ptr<MetaObj::MetaObject> rootObject;
    OutputType outputType = Normal;
};

}  // namespace CallSpec
}  // namespace Tindra

#endif
