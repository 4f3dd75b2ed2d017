#include "tindra/callspec/OutputSpec.h"

#include "metaobj/DocumentationText.h"
#include "tindra/TindraException.h"

namespace Tindra {
namespace CallSpec {

std::string const OutputSpec::_docMissingStaticString = MetaObj::kDocumentationMissing;

namespace {

// Function-local, so a declaration built by another static initialiser still reads it safely.
std::string const& MissingDocumentation() {
    static std::string const text = MetaObj::kDocumentationMissing;
    return text;
}

void Record(std::vector<std::string>* errors, char const* message) {
    if (errors != nullptr) {
        errors->emplace_back(message);
    }
}

}  // namespace

std::shared_ptr<OutputSpec> OutputSpec::New() {
    return std::make_shared<OutputSpec>();
}

std::string const& OutputSpec::GetDescription() const {
    return description.empty() ? MissingDocumentation() : description;
}

void OutputSpec::SetRootObject(std::shared_ptr<MetaObj::MetaObject>&& value) {
    if (!value) {
        throw TindraException("Root object cannot be set to null");
    }
    rootObject = std::move(value);
}

void OutputSpec::SetRootObject(std::shared_ptr<MetaObj::MetaObject> const& value) {
    SetRootObject(std::shared_ptr<MetaObj::MetaObject>(value));
}
void OutputSpec::SetRootObject(std::shared_ptr<MetaObj::MetaBool> const& value) {
    SetRootObject(std::shared_ptr<MetaObj::MetaObject>(value));
}
void OutputSpec::SetRootObject(std::shared_ptr<MetaObj::MetaInt> const& value) {
    SetRootObject(std::shared_ptr<MetaObj::MetaObject>(value));
}
void OutputSpec::SetRootObject(std::shared_ptr<MetaObj::MetaString> const& value) {
    SetRootObject(std::shared_ptr<MetaObj::MetaObject>(value));
}
void OutputSpec::SetRootObject(std::shared_ptr<MetaObj::MetaList> const& value) {
    SetRootObject(std::shared_ptr<MetaObj::MetaObject>(value));
}
void OutputSpec::SetRootObject(std::shared_ptr<MetaObj::MetaStruct> const& value) {
    SetRootObject(std::shared_ptr<MetaObj::MetaObject>(value));
}

// The template is the reference: its kind, fields and list templates decide; values never do.
bool OutputSpec::Validate(std::shared_ptr<Output> const& output,
                          std::vector<std::string>* errors) const {
    if (!rootObject) {
        Record(errors,
               "No root object set for output spec. Root object for output spec must be set for "
               "proper validation of output.");
        return false;
    }
    auto const actual = output ? output->GetRootObject() : nullptr;
    if (!actual) {
        Record(errors, "No root object set for output. The command did not provide proper output.");
        return false;
    }
    return rootObject->IsSameStructure(actual, errors);
}

}  // namespace CallSpec
}  // namespace Tindra
