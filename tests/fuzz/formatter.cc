// Format parameters (printf formats, field lists, widths, headers) are user text: every formatter
// must format a small value under any of them, or refuse with the library's own exception.
#include <fuzzer/FuzzedDataProvider.h>

#include <iterator>
#include <sstream>

#include "fuzz/FuzzSupport.h"
#include "tindra/autocli/formatters/CliDispatcherHelpFormatter.h"
#include "tindra/autocli/plugins/InternalPlugin.h"
#include "tindra/callspec/Output.h"
#include "tindra/metaobj/MetaBool.h"
#include "tindra/metaobj/MetaInt.h"
#include "tindra/metaobj/MetaString.h"

namespace {

using namespace Tindra::AutoCli;
using namespace Tindra::MetaObj;

std::shared_ptr<MetaStruct> Row(long a, std::string const& b) {
    auto row = MetaStruct::New("R");
    row->SetField("a", MetaInt::New(a));
    row->SetField("b", MetaString::New(b));
    return row;
}

// A structure with a field of every kind, a list of rows, or a bare scalar, holding fuzzed text.
std::shared_ptr<MetaObject> SmallValue(FuzzedDataProvider& input) {
    std::string const text = input.ConsumeRandomLengthString(64);
    auto rows = MetaList::New(Struct, Row(0, ""));
    rows->Add(Row(-7, text));
    rows->Add(Row(1L << 40, "b c"));
    switch (input.ConsumeIntegralInRange(0, 3)) {
        case 1:
            return rows;
        case 2:
            return MetaString::New(text);
        case 3:
            return MetaInt::New(input.ConsumeIntegral<int64_t>());
    }
    auto value = MetaStruct::New("T");
    value->SetField("F", MetaInt::New(input.ConsumeIntegral<int64_t>()));
    value->SetField("S", MetaString::New(text));
    value->SetField("B", MetaBool::New(input.ConsumeBool()));
    value->SetField("L", rows);
    value->SetField("N", Row(3, text));
    return value;
}

char const* const kKeys[] = {"fields:T",   "fields:R",      "fields",       "header:T",
                             "header:R",   "align-fields",  "units:T.F",    "units:R.a",
                             "printf:T.F", "printf:T.S",    "printf:T.B",   "printf:T.L",
                             "printf:R.a", "printf:R.b",    "show-header",  "header-line",
                             "wrap-last",  "table-columns", "table-header", "stylesheet"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size) {
    static std::vector<std::shared_ptr<Formatter>> const formatters = [] {
        auto plugin = InternalPlugin::New();
        plugin->Initialize();
        auto all = plugin->GetFormatters();
        all.push_back(std::make_shared<CliDispatcherHelpFormatter>());
        return all;
    }();
    FuzzedDataProvider input(data, size);
    Formatter& formatter =
        *formatters[input.ConsumeIntegralInRange<size_t>(0, formatters.size() - 1)];
    DisplayContext display;
    display.width = input.ConsumeIntegral<uint16_t>();
    display.height = input.ConsumeIntegral<uint16_t>();
    FormatParameters params;
    params.SetFormatter(formatter.GetName());
    for (int count = input.ConsumeIntegralInRange(0, 8); count > 0; --count) {
        std::string key = input.ConsumeBool()
                              ? kKeys[input.ConsumeIntegralInRange<size_t>(0, std::size(kKeys) - 1)]
                              : input.ConsumeRandomLengthString(24);
        params.SetParameter(std::move(key), input.ConsumeRandomLengthString(48));
    }
    auto output = Tindra::CallSpec::Output::New();
    output->SetRootObject(SmallValue(input));
    std::ostringstream out;
    try {
        formatter.Format(output, params, display, out);
    } catch (Tindra::TindraException const&) {  // refusing a parameter; anything else is a finding
    }
    return 0;
}
