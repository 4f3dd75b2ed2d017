// Values nested far deeper than any document can hold: comparing and printing refuse them
// with a message, and releasing them does not exhaust the stack.
#include <gtest/gtest.h>

#include "support/ThrownMessage.h"
#include "tindra/metaobj/MetaList.h"

using namespace Tindra::MetaObj;

namespace {

// Lists of one structure each, levels deep; a list's template shares the item's fields.
std::shared_ptr<MetaObject> Chain(int levels) {
    std::shared_ptr<MetaObject> inner = MetaList::New(Int);
    for (int level = 0; level < levels; ++level) {
        auto item = MetaStruct::New("Level");
        item->SetField("Sub", inner);
        auto prototype = MetaStruct::New("Level");
        prototype->SetField("Sub", inner);
        auto list = MetaList::New(Struct, prototype);
        list->Add(item);
        inner = list;
    }
    return inner;
}

}  // namespace

TEST(DeepNesting, LimitIsNamedAndReleaseNeverRecurses) {
    std::vector<std::string> errors;
    auto const limit = Chain(1000);
    EXPECT_TRUE(limit->IsSameStructure(Chain(1000), &errors));
    EXPECT_TRUE(errors.empty());
    EXPECT_EQ(1000u * 15, limit->ToString().size());  // "{'Sub' => '" ... "', }" per level

    EXPECT_FALSE(Chain(1001)->IsSameStructure(Chain(1001), &errors));
    // The refusal at the 1001st structure, then 1000 structures' and 1001 lists' messages.
    ASSERT_EQ(2002u, errors.size());
    EXPECT_EQ("Structure nested more than 1000 levels deep, unable to compare it.", errors[0]);
    EXPECT_EQ("List type mismatch list and input", errors.back());
    auto const deep = Chain(20000);
    EXPECT_EQ("Structure nested more than 1000 levels deep, unable to print it.",
              ThrownMessage([&] { deep->ToString(); }));
    EXPECT_TRUE(deep->IsSameStructure(deep, nullptr));  // itself, without a walk
}
