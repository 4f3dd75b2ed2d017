#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/callspec/OutputSpec.h"

using namespace Tindra::CallSpec;
using namespace Tindra::MetaObj;

namespace {

using Messages = std::vector<std::string>;

std::shared_ptr<MetaStruct> File(char const* name = "passwd", bool withSize = true) {
    auto file = MetaStruct::New("File");
    file->SetField("Name", name);
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

// The structure comparison's own messages are pinned with the values; here, that the
// template is compared by names and kinds, and missing roots are named.
TEST(OutputSpecValidate, MissingRootsAndTemplateMismatches) {
    Messages errors;
    auto spec = OutputSpec::New();
    EXPECT_FALSE(spec->Validate(OutputWith(MetaInt::New(1L)), &errors));
    EXPECT_EQ("Root object cannot be set to null",
              ThrownMessage([&] { spec->SetRootObject(std::shared_ptr<MetaList>()); }));
    spec->SetRootObject(File());
    EXPECT_FALSE(spec->Validate(Output::New(), &errors));
    EXPECT_FALSE(spec->Validate(Output::New(), nullptr));
    EXPECT_EQ((Messages{"No root object set for output spec. Root object for output spec must be "
                        "set for proper validation of output.",
                        "No root object set for output. The command did not provide proper "
                        "output."}),
              errors);
    errors.clear();
    EXPECT_TRUE(spec->Validate(OutputWith(File("group")), &errors));
    EXPECT_TRUE(errors.empty());
    EXPECT_FALSE(spec->Validate(OutputWith(File("group", false)), &errors));
    EXPECT_EQ(2u, errors.size());
}
