#include <gtest/gtest.h>

#include <sstream>

#include "FormatterTestSupport.h"
#include "tindra/autocli/formatters/JsonFormatter.h"
#include "tindra/autocli/formatters/TableFormatter.h"
#include "tindra/autocli/formatters/XmlFormatter.h"

namespace FormatterTest {
namespace {

// Carries the tag of an integer without being one: formatters must look at the class, not only
// at the tag, before reading a value as an integer.
class Impostor final : public MetaObject {
public:
    Impostor() : MetaObject(MetaType::Int) {}
    std::string ToString() const override { return "impostor"; }
};

TEST(KindChecks, TagThatDisagreesWithTheClass) {
    auto const impostor = std::make_shared<Impostor>();
    EXPECT_EQ(Render<JsonFormatter>(impostor), "Error reading a int\n\n");
    std::ostringstream xml;
    XmlFormatter().Format(impostor, xml, 2);
    EXPECT_EQ(xml.str(), "Error reading a int\n");

    // A table cell shows the value's own text, aligned as its tag says.
    auto row = MetaStruct::New("Odd");
    row->SetField("N", std::shared_ptr<MetaObject>(impostor));
    auto rows = MetaList::New(MetaType::Struct, row);
    rows->Add(row);
    EXPECT_EQ(Render<TableFormatter>(rows, Params({{"fields", "N,N"}})),
              "N         N\n"
              "--------  -\n"
              "impostor  impostor  \n");
}

}  // namespace
}  // namespace FormatterTest
