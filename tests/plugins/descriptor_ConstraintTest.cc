// Reading <constraint> and <enum> elements: which child counts, how integers are read, and
// the messages for missing data.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "autocli/plugins/DescriptorReaders.h"
#include "descriptor_Snippet.h"
#include "support/ThrownMessage.h"

namespace {

using DescriptorTest::Snippet;
using Tindra::AutoCli::ExtractEnum;
using Tindra::AutoCli::ExtractParamConstraint;
using Tindra::CallSpec::ParameterConstraint;
using Pairs = std::vector<std::pair<std::string, std::string>>;

std::shared_ptr<ParameterConstraint> Read(std::string const& type, std::string const& body) {
    Snippet const snippet("<constraint type=\"" + type + "\">" + body + "</constraint>");
    return ExtractParamConstraint(snippet.Root());
}

std::string ReadError(std::string const& type, std::string const& body) {
    return ThrownMessage([&] { Read(type, body); });
}

Pairs ReadEnum(std::string const& body) {
    Snippet const snippet("<enum>" + body + "</enum>");
    return ExtractEnum(snippet.Root());
}

std::string const kNoData =
    "Error parsing parameter constraint.  There was no data included inside the <constraint> "
    "tag for the given constraint type";

TEST(ConstraintReaderTest, UnknownOrMissingTypeIsNamedInTheMessage) {
    std::string const prefix =
        "Missing or invalid constraint 'type', must be one of [stringenum, intenum, regex, "
        "range] got '";
    EXPECT_EQ(prefix + "enum'", ReadError("enum", "<enum/>"));
    EXPECT_EQ(prefix + "Range'", ReadError("Range", "<range min=\"1\" max=\"2\"/>"));
    EXPECT_EQ(prefix + "'", ReadError("", ""));
}

TEST(ConstraintReaderTest, StringSetKeepsOrderAndDescriptions) {
    auto constraint = Read("stringenum",
                           "<enum><enum-value value=\"b\">bee</enum-value>"
                           "<enum-value value=\"a\">ay</enum-value></enum>");
    EXPECT_EQ(Tindra::CallSpec::ConstraintStringEnum, constraint->GetType());
    EXPECT_EQ((std::vector<std::string>{"b", "a"}), constraint->GetStringEnum());
    EXPECT_EQ((std::map<std::string, std::string>{{"a", "ay"}, {"b", "bee"}}),
              constraint->GetStringEnumWithDesc());
}

TEST(ConstraintReaderTest, IntegerSetReadsLeadingDigitsAndDropsDescriptions) {
    auto constraint = Read("intenum",
                           "<enum><enum-value value=\"1\">one</enum-value>"
                           "<enum-value value=\" -2\">minus two</enum-value>"
                           "<enum-value value=\"3x\">three</enum-value></enum>");
    EXPECT_EQ(Tindra::CallSpec::ConstraintIntEnum, constraint->GetType());
    EXPECT_EQ((std::vector<long>{1, -2, 3}), constraint->GetIntEnum());
    std::string const prefix = "Error parsing integer enumeration. Expected integer, but got ";
    EXPECT_EQ(prefix + "abc",
              ReadError("intenum", "<enum><enum-value value=\"abc\">x</enum-value></enum>"));
    EXPECT_EQ(prefix + "9223372036854775808",
              ReadError("intenum",
                        "<enum><enum-value value=\"9223372036854775808\">x"
                        "</enum-value></enum>"));
    EXPECT_EQ("Duplicate Value found in ParameterConstraint::AddIntEnum",
              ReadError("intenum",
                        "<enum><enum-value value=\"4\">x</enum-value>"
                        "<enum-value value=\"04\">y</enum-value></enum>"));
}

TEST(ConstraintReaderTest, OnlyTheLastMatchingChildCountsButAnyDataIsFound) {
    auto constraint = Read("intenum",
                           "<enum><enum-value value=\"1\">one</enum-value></enum>"
                           "<regex>ignored</regex>"
                           "<enum><enum-value value=\"2\">two</enum-value></enum>");
    EXPECT_EQ(std::vector<long>{2}, constraint->GetIntEnum());
    // The second enum holds nothing, yet the first one already found data.
    auto emptied =
        Read("stringenum", "<enum><enum-value value=\"a\">ay</enum-value></enum><enum/>");
    EXPECT_TRUE(emptied->GetStringEnum().empty());
    auto range = Read("range", "<range min=\"1\" max=\"2\"/><range min=\"5\" max=\"9\"/>");
    long minimum = 0;
    long maximum = 0;
    range->GetIntRange(minimum, maximum);
    EXPECT_EQ(5, minimum);
    EXPECT_EQ(9, maximum);
}

TEST(ConstraintReaderTest, MissingDataIsReported) {
    EXPECT_EQ(kNoData, ReadError("stringenum", "<regex>x</regex>"));
    EXPECT_EQ(kNoData, ReadError("intenum", "<enum><enum-value value=\"1\"/></enum>"));
    EXPECT_EQ(kNoData, ReadError("regex", "<enum/>"));
    EXPECT_EQ(kNoData, ReadError("range", ""));
    EXPECT_EQ("Error parsing regex from parameter constraint.Missing or empty 'regex' tag",
              ReadError("regex", "<regex></regex>"));
}

TEST(ConstraintReaderTest, RegexIsStoredUncompiled) {
    auto constraint = Read("regex", "<regex>[0-9]+(</regex>");
    EXPECT_EQ(Tindra::CallSpec::ConstraintRegex, constraint->GetType());
    EXPECT_EQ("[0-9]+(", constraint->GetStringRegex());
}

TEST(ConstraintReaderTest, RangeNeedsTwoIntegers) {
    std::string const rangeError =
        "Error parsing 'range' parameter constraint.  Range requires both 'min' and 'max' "
        "attributes and that both are integers.";
    EXPECT_EQ(rangeError, ReadError("range", "<range min=\"1\"/>"));
    EXPECT_EQ(rangeError, ReadError("range", "<range min=\"\" max=\"4\"/>"));
    EXPECT_EQ(rangeError, ReadError("range", "<range min=\"1\" max=\"ten\"/>"));
    EXPECT_EQ("Invalid values for SetIntRange, constraints must have a min value <= max value",
              ReadError("range", "<range min=\"10\" max=\"1\"/>"));
    auto constraint = Read("range", "<range min=\" -5\" max=\"12abc\"/>");
    long minimum = 0;
    long maximum = 0;
    constraint->GetIntRange(minimum, maximum);
    EXPECT_EQ(-5, minimum);
    EXPECT_EQ(12, maximum);
}

TEST(EnumReaderTest, EveryPieceOfContentIsOnePair) {
    EXPECT_EQ((Pairs{{"a", "first"}, {"b", "x"}, {"b", " note "}, {"b", "y"}}),
              ReadEnum("<!-- lead -->\n<enum-value value=\"a\">first</enum-value>\n"
                       "<enum-value value=\"b\">x<!-- note -->y</enum-value>"
                       "<enum-value value=\"c\"/><enum-value value=\"d\"></enum-value>"));
    EXPECT_EQ((Pairs{{"e", "cdata"}}),
              ReadEnum("<enum-value value=\"e\"><![CDATA[cdata]]></enum-value>"));
}

TEST(EnumReaderTest, UnexpectedTagsAndMissingValuesAreErrors) {
    EXPECT_EQ("Found unexpected tag while building an enum.  Unexpected tag was: value",
              ThrownMessage([] { ReadEnum("<enum-value value=\"a\">a</enum-value><value/>"); }));
    EXPECT_EQ("Error parsing 'enum-value', missing required attribute 'value'",
              ThrownMessage([] { ReadEnum("<enum-value>text</enum-value>"); }));
    // Without content the value is never asked for.
    EXPECT_TRUE(ReadEnum("<enum-value/>").empty());
}

TEST(EnumReaderTest, AStringValueSplitByACommentIsADuplicate) {
    EXPECT_EQ("Duplicate Value found in ParameterConstraint::AddStringEnum: b",
              ReadError("stringenum",
                        "<enum><enum-value value=\"b\">x<!--c-->y</enum-value>"
                        "</enum>"));
}

}  // namespace
