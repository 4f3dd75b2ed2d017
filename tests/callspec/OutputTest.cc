#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/callspec/OutputSpec.h"

using namespace Tindra::CallSpec;
using namespace Tindra::MetaObj;

namespace {

using Messages = std::vector<std::string>;

std::shared_ptr<MetaStruct> File(bool withSize = true) {
    auto file = MetaStruct::New("File");
    file->SetField("Name", "passwd");
    if (withSize) {
        file->SetField("Size", 4096L);
    }
    return file;
}

std::shared_ptr<Output> OutputWith(std::shared_ptr<MetaObject> const& root) {
    auto output = Output::New();
    output->SetRootObject(root);
    return output;
}

}  // namespace

TEST(OutputSpec, RefusesAnEmptyTemplateAndKeepsTheOldOne) {
    auto spec = OutputSpec::New();
    auto const original = File();
    spec->SetRootObject(original);
    EXPECT_EQ("Root object cannot be set to null",
              ThrownMessage([&] { spec->SetRootObject(std::shared_ptr<MetaList>()); }));
    EXPECT_EQ(original, spec->GetRootObject());
    EXPECT_EQ("Documentation missing", spec->GetDescription());
}

TEST(OutputSpecValidate, MissingRootsAreReportedOnlyToAGivenList) {
    Messages errors;
    auto spec = OutputSpec::New();
    EXPECT_FALSE(spec->Validate(OutputWith(MetaInt::New(1L)), &errors));
    spec->SetRootObject(MetaInt::New(0L));
    EXPECT_FALSE(spec->Validate(Output::New(), &errors));
    EXPECT_FALSE(spec->Validate(Output::New(), nullptr));
    EXPECT_EQ((Messages{"No root object set for output spec. Root object for output spec must be "
                        "set for proper validation of output.",
                        "No root object set for output. The command did not provide proper "
                        "output."}),
              errors);
}

TEST(OutputSpecValidate, TemplatesCheckNamesAndKindsNotValues) {
    auto spec = OutputSpec::New();
    spec->SetRootObject(File());
    Messages errors;
    auto other = File();
    other->SetField("Name", "group");
    EXPECT_TRUE(spec->Validate(OutputWith(other), &errors));
    EXPECT_TRUE(errors.empty());
    EXPECT_FALSE(spec->Validate(OutputWith(File(false)), &errors));
    EXPECT_EQ((Messages{"Mismatch on number of fields set in struct. Expected 2 found 1",
                        "Missing field in input: Size"}),
              errors);
}
