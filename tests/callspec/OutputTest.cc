#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/callspec/OutputSpec.h"

using namespace Tindra::CallSpec;
using namespace Tindra::MetaObj;

namespace {

std::shared_ptr<MetaStruct> FileTemplate() {
    auto file = MetaStruct::New("File");
    file->SetField("Name", "");
    file->SetField("Size", 0L);
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
    auto const original = FileTemplate();
    spec->SetRootObject(original);
    EXPECT_EQ("Root object cannot be set to null",
              ThrownMessage([&] { spec->SetRootObject(std::shared_ptr<MetaList>()); }));
    EXPECT_EQ(original, spec->GetRootObject());
    EXPECT_EQ("Documentation missing", spec->GetDescription());
    spec->SetDescription("Files");
    EXPECT_EQ("Files", spec->GetDescription());
}

TEST(OutputSpecValidate, MissingRootsAreReportedOnlyToAGivenList) {
    std::vector<std::string> errors;
    auto spec = OutputSpec::New();
    EXPECT_FALSE(spec->Validate(OutputWith(MetaInt::New(1L)), &errors));
    spec->SetRootObject(MetaInt::New(0L));
    EXPECT_FALSE(spec->Validate(Output::New(), &errors));
    EXPECT_FALSE(spec->Validate(Output::New(), nullptr));
    EXPECT_EQ((std::vector<std::string>{"No root object set for output spec. Root object for "
                                        "output spec must be set for proper validation of output.",
                                        "No root object set for output. The command did not "
                                        "provide proper output."}),
              errors);
}

TEST(OutputSpecValidate, StructureTemplateChecksNamesAndKindsNotValues) {
    auto spec = OutputSpec::New();
    spec->SetRootObject(FileTemplate());

    auto good = MetaStruct::New("File");
    good->SetField("Name", "passwd");
    good->SetField("Size", 4096L);
    std::vector<std::string> errors;
    EXPECT_TRUE(spec->Validate(OutputWith(good), &errors));
    EXPECT_TRUE(errors.empty());

    auto lacking = MetaStruct::New("File");
    lacking->SetField("Name", "passwd");
    EXPECT_FALSE(spec->Validate(OutputWith(lacking), &errors));
    EXPECT_EQ(
        (std::vector<std::string>{"Mismatch on number of fields set in struct. Expected 2 found 1",
                                  "Missing field in input: Size"}),
        errors);
}

TEST(OutputSpecValidate, ListTemplateChecksItemKind) {
    auto spec = OutputSpec::New();
    spec->SetRootObject(MetaList::New(Int));
    std::vector<std::string> errors;
    EXPECT_TRUE(spec->Validate(OutputWith(MetaList::New(Int)), &errors));
    EXPECT_FALSE(spec->Validate(OutputWith(MetaList::New(String)), &errors));
    EXPECT_EQ((std::vector<std::string>{"Mismatch on list type"}), errors);
}
