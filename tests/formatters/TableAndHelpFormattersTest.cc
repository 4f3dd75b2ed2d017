#include <gtest/gtest.h>

#include "FormatterTestSupport.h"
#include "support/ThrownMessage.h"
#include "tindra/autocli/formatters/CliDispatcherHelpFormatter.h"
#include "tindra/autocli/formatters/CommandHelpFormatter.h"
#include "tindra/autocli/formatters/FieldHelpers.h"
#include "tindra/autocli/formatters/TableFormatter.h"

namespace FormatterTest {
namespace {

std::string Table(std::shared_ptr<MetaObject> const& root, FormatParameters params,
                  uint16_t width = 0, bool* result = nullptr) {
    return Render<TableFormatter>(root, params, width, result);
}

TEST(TableFormatter, DiskExampleHeaderSwitchesAndColumnChoice) {
    std::string const head = "Name     Size  Model\n";
    std::string const rule = "-------  ----  -----\n";
    std::string const rows = "sda       512  Fast disk\nnvme0n1  2048  NV\n";
    std::pair<FormatParameters, std::string> const cases[] = {
        {Params({{"fields:Disk", "Name,Size,Model"}}), head + rule + rows},
        {Params({{"fields", "Name,Size,Model"}, {"header-line", "false"}}), head + rows},
        {Params({{"show-header", "false"}, {"table-columns", "Name"}}), "sda\nnvme0n1\n"},
        // Without a column list the fields come in name order; an integer ends with two blanks.
        {Params({{"show-header", "false"}}),
         "Fast disk  sda       512  \nNV         nvme0n1  2048  \n"},
        {Params({{"fields", " Name ,\tSize"},
                 {"printf:Disk.Size", "%06ld"},
                 {"units:Disk.Size", "kB"}}),
         "Name     Size\n-------  ----\nsda      000512 kB  \nnvme0n1  002048 kB  \n"},
    };
    for (auto const& [params, expected] : cases) {
        bool result = false;
        EXPECT_EQ(Table(Disks(), params, 0, &result), expected);
        EXPECT_TRUE(result);
    }
}

TEST(TableFormatter, WrapsLastColumnUnderItsStart) {
    auto entry = [](char const* text) {
        return ListOf({Struct("Entry", "Name", "a", "Description", text)});
    };
    auto const params =
        Params({{"show-header", "false"}, {"fields", "Name,Description"}, {"wrap-last", "true"}});
    auto const words = entry("one two three four five six");
    EXPECT_EQ(Table(words, params, 20), "a     one two three \n      four five six\n");
    EXPECT_EQ(Table(entry("first\nsecond line"), params, 20), "a     first\n      second line\n");
    // Too narrow for the other columns and the last column's name: no wrap.
    EXPECT_EQ(Table(words, params, 16), "a     one two three four five six\n");
}

TEST(TableFormatter, ErrorsPrintOnlyTheirMessage) {
    bool result = true;
    EXPECT_EQ(Table(Disks(), Params({{"fields", "Name,Nope"}}), 0, &result),
              "Error: Unknown field in field list: Nope\n");
    EXPECT_FALSE(result);
    EXPECT_EQ(Table(MetaList::New(MetaType::Struct, std::shared_ptr<MetaStruct>()), {}), "");
    EXPECT_EQ(ThrownMessage([] { Table(MetaInt::New(1), {}); }),
              "Error: Unexpected type for output, formatter, table, expected a List of structs");
}

// Rows of one list need not hold the same fields in the same places, nor the same type name:
// the list takes any row that matches its template, and a reader may add rows as they come.
TEST(TableFormatter, EachRowIsReadByItsOwnFieldsAndTypeName) {
    auto other = Struct("Other", "Model", "m", "Name", "b", "Size", 255L);
    auto withBus = Disk("sdb", 7, "Stick");
    withBus->SetField("Bus", "usb");  // sorts first, so every other field moves one place
    auto disks = ListOf({Disk("sda", 512, "Fast disk"), other});
    disks->GetObjects().push_back(withBus);
    EXPECT_EQ(Table(disks, Params({{"fields", "Name,Size,Name"},
                                   {"printf:Disk.Size", "%03ld"},
                                   {"printf:Other.Size", "%lx"},
                                   {"units:Other.Name", "(other)"}})),
              "Name       Size  Name\n---------  ----  ----\nsda         512  sda\n"
              "b (other)    ff  b (other)\nsdb         007  sdb\n");

    auto h1 = Struct("Host", "Disk", Disk("sda", 512, "Fast disk"), "Name", "h1");
    EXPECT_EQ(
        Table(ListOf({h1}), Params({{"fields", "Name,Disk.Name,Disk.Size"}})),
        "Name  Disk.Name  Disk.Size\n----  ---------  ---------\nh1    sda              512  \n");
    // A first part that names no field is skipped; one that is no structure ends the walk.
    EXPECT_EQ(GetSubField(h1, "missing.Name")->ToString() + GetStringField(h1, "Disk"), "h1");
    EXPECT_EQ(GetSubField(h1, "Disk.missing"), nullptr);
    EXPECT_EQ(GetSubField(h1, "Name.Size"), nullptr);
    EXPECT_EQ(GetSubField(nullptr, "Name"), nullptr);
}

TEST(CommandHelpFormatter, RequiredSecretAndExamples) {
    auto option = [](char const* name, char const* shortName, char const* text, bool required,
                     bool secret) {
        return Struct("OstrelCommandParameter", "Name", name, "Short Name", shortName,
                      "Description", text, "Required", required, "Secret", secret);
    };
    auto help =
        Struct("OstrelCommandHelp", "Dispatcher", "ostrel", "Path", "demo widget item list",
               "Description", "List the items.", "Param List",
               ListOf({option("all", "a", "Show all.", true, false),
                       option("help", "h", "Show the help.", false, false),
                       option("password", "", "The password.", true, true)}),
               "Example List",
               ListOf({Struct("OstrelCommandExample", "Description", "List all items :", "Syntax",
                              "# ostrel demo widget item list --all")}));
    EXPECT_EQ(Render<CommandHelpFormatter>(help),
              "Usage: ostrel demo widget item list <options>\n\nDescription: List the items.\n\n"
              "  -a|--all        Show all. (required)\n"
              "  -h|--help       Show the help.\n"
              "     --password   The password. (required secret)\n"
              "                  WARNING: Providing secret values on the command line is insecure "
              "because it may be logged or preserved in history files. Instead, specify this "
              "option with no value on the command line, and enter the value on the supplied "
              "prompt.\n\nExamples: \n\n"
              "    List all items :\n"
              "# ostrel demo widget item list --all        \n\n");
    EXPECT_EQ(ThrownMessage([] { Render<CommandHelpFormatter>(MetaStruct::New("Other")); }),
              "Error: Unexpected type for output, formatter expected a struct with help "
              "information");
}

// The listing layout is pinned where the tool prints it; here, what a broken listing gives.
TEST(CliDispatcherHelpFormatter, MissingFields) {
    EXPECT_EQ(Render<CliDispatcherHelpFormatter>(MetaStruct::New("OstrelCommandPrint")),
              "Usage: <Dispatcher> [disp options] <namespaces> <command>\n\n"
              "For help please run <Dispatcher> --help\n\n"
              "Available Namespaces: \n\nERROR, list is bad\n"
              "Available Commands: \n\nERROR, list is bad\n");
    EXPECT_EQ(ThrownMessage([] { Render<CliDispatcherHelpFormatter>(MetaString::New("x")); }),
              "Error: Unexpected type for help output, formatter expected a struct with help data");
}

}  // namespace
}  // namespace FormatterTest
