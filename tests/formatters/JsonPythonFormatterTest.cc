#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/formatters/JsonFormatter.h"
#include "tindra/autocli/formatters/PythonFormatter.h"

namespace FormatterTest {
namespace {

std::shared_ptr<MetaStruct> ExampleDisk() {
    auto disk = MetaStruct::New("Disk");
    disk->SetField("Name", "sda");
    disk->SetField("Paths", std::vector<std::string>{"a", "b"});
    disk->SetField("Size", 512L);
    return disk;
}

std::string Json(std::shared_ptr<MetaObject> const& root) {
    JsonFormatter formatter;
    return Render(formatter, root);
}

std::string Python(std::shared_ptr<MetaObject> const& root) {
    PythonFormatter formatter;
    return Render(formatter, root);
}

TEST(JsonFormatter, Example) {
    EXPECT_EQ(Json(ExampleDisk()),
              "\n{\n   \"Name\": \"sda\",\n   \"Paths\": \n   [\n   \"a\", \n   \"b\"\n   ],\n"
              "   \"Size\": 512\n}\n");
}

TEST(JsonFormatter, StructuresInListsStartOnTheirOwnLine) {
    auto item = MetaStruct::New("I");
    item->SetField("A", true);
    auto items = MetaList::New(MetaType::Struct, item);
    items->Add(item);
    auto root = MetaStruct::New("R");
    root->SetField("L", items);
    EXPECT_EQ(Json(root),
              "\n{\n   \"L\": \n   [\n   \n            {\n               \"A\": true\n"
              "            }\n   ]\n}\n");
}

TEST(JsonFormatter, ScalarsAndEscapes) {
    EXPECT_EQ(Json(MetaInt::New(-42)), "-42\n");
    EXPECT_EQ(Json(MetaString::New("a/b\t\x7f\xc3\"\\\b\f\r\n\x0b z")),
              "\"a\\/b\\t\\u007f\\u00c3\\\"\\\\\\b\\f\\r\\n\\u000b z\"\n");
    EXPECT_EQ(Json(MetaStruct::New("E")), "\n{\n}\n");
    EXPECT_EQ(Json(MetaList::New(MetaType::Bool)), "\n[\n]\n");
}

TEST(PythonFormatter, Example) {
    EXPECT_EQ(Python(ExampleDisk()),
              "{\"Name\": \"\"\"sda\"\"\", \"Paths\": [\"\"\"a\"\"\", \"\"\"b\"\"\", ], "
              "\"Size\": 512, }\n");
}

TEST(PythonFormatter, ScalarsEscapesAndMissingValue) {
    EXPECT_EQ(Python(MetaString::New("\"hi\"\nC:\\x")), "\"\"\"\\\"hi\\\"\\nC:\\x\"\"\"\n");
    EXPECT_EQ(Python(MetaBool::New(true)), "True\n");
    EXPECT_EQ(Python(MetaStruct::New("E")), "{}\n");
    EXPECT_EQ(Python(MetaList::New(MetaType::Int)), "[]\n");
    EXPECT_EQ(ThrownMessage([] { Python(nullptr); }),
              "Invalid MetaObject passed to Format in PythonFormatter");
    EXPECT_TRUE(PythonFormatter::IsAllAscii(""));
    EXPECT_TRUE(PythonFormatter::IsAllAscii("plain \x7f"));
    EXPECT_FALSE(PythonFormatter::IsAllAscii("caf\xc3\xa9"));
}

}  // namespace
}  // namespace FormatterTest
