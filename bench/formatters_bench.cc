// Throughput of the formatters on large outputs, written to a stream that discards everything.
#include <benchmark/benchmark.h>

#include <sstream>
#include <streambuf>
#include <string>

#include "tindra/autocli/formatters/FieldHelpers.h"
#include "tindra/autocli/formatters/JsonFormatter.h"
#include "tindra/autocli/formatters/PythonFormatter.h"
#include "tindra/autocli/formatters/TableFormatter.h"
#include "tindra/autocli/formatters/XmlFormatter.h"
#include "tindra/callspec/Output.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace {

using namespace Tindra;
using namespace Tindra::AutoCli;
using namespace Tindra::MetaObj;

constexpr long kRows = 1000000;

// Counts what is written and keeps none of it.
class DiscardBuffer : public std::streambuf {
public:
    size_t Written() const { return written; }

protected:
    int_type overflow(int_type c) override {
        ++written;
        return traits_type::not_eof(c);
    }
    std::streamsize xsputn(char const*, std::streamsize n) override {
        written += static_cast<size_t>(n);
        return n;
    }

private:
    size_t written = 0;
};

std::shared_ptr<MetaStruct> Row(std::shared_ptr<MetaString> const& name, long id,
                                std::shared_ptr<MetaString> const& model, bool online) {
    auto row = MetaStruct::New("Device");
    row->SetField("Name", name);
    row->SetField("Id", id);
    row->SetField("Size", id * 4096 % 7919);
    row->SetField("Model", model);
    row->SetField("Online", online);
    row->SetField("Path", "/dev/disk/by-id/" + std::to_string(id));
    return row;
}

// One million devices with six columns; models are shared instances, as values may be.
std::shared_ptr<CallSpec::Output> const& Devices() {
    static std::shared_ptr<CallSpec::Output> const output = [] {
        std::vector<std::shared_ptr<MetaString>> models;
        for (int i = 0; i < 16; ++i) {
            models.push_back(MetaString::New("Model <" + std::to_string(i) + "> & \"fast\""));
        }
        auto list = MetaList::New(MetaType::Struct, Row(MetaString::New(""), 0, models[0], false));
        list->Reserve(kRows);
        for (long i = 0; i < kRows; ++i) {
            list->Add(
                Row(MetaString::New("dev" + std::to_string(i)), i, models[i % 16], i % 3 == 0));
        }
        auto result = CallSpec::Output::New();
        result->SetRootObject(list);
        return result;
    }();
    return output;
}

void RunFormatter(benchmark::State& state, Formatter& formatter, FormatParameters params) {
    auto const& output = Devices();
    DisplayContext display;
    display.width = 120;
    size_t bytes = 0;
    for (auto _ : state) {
        DiscardBuffer sink;
        std::ostream out(&sink);
        benchmark::DoNotOptimize(formatter.Format(output, params, display, out));
        bytes += sink.Written();
    }
    state.SetBytesProcessed(static_cast<int64_t>(bytes));
    state.SetItemsProcessed(state.iterations() * kRows);
}

void BM_Table(benchmark::State& state) {
    TableFormatter formatter;
    RunFormatter(state, formatter, FormatParameters());
}

void BM_TablePrintfUnitsWrap(benchmark::State& state) {
    TableFormatter formatter;
    FormatParameters params;
    params.SetParameter("fields", "Name,Id,Size,Model,Online,Path");
    params.SetParameter("printf:Device.Size", "%08lx");
    params.SetParameter("units:Device.Id", "#");
    params.SetParameter("wrap-last", "true");
    RunFormatter(state, formatter, params);
}

void BM_Json(benchmark::State& state) {
    JsonFormatter formatter;
    RunFormatter(state, formatter, FormatParameters());
}

void BM_Xml(benchmark::State& state) {
    XmlFormatter formatter;
    RunFormatter(state, formatter, FormatParameters());
}

void BM_Python(benchmark::State& state) {
    PythonFormatter formatter;
    RunFormatter(state, formatter, FormatParameters());
}

// About 8 MB of words of 1 to 12 letters, a line break every 50 words.
std::string const& LargeText() {
    static std::string const text = [] {
        std::string result;
        unsigned seed = 12345;
        for (long word = 1; result.size() < 8u * 1024 * 1024; ++word) {
            seed = seed * 1103515245u + 12345u;
            result.append(1 + (seed >> 16) % 12, static_cast<char>('a' + word % 26));
            result += word % 50 == 0 ? '\n' : ' ';
        }
        return result;
    }();
    return text;
}

void BM_FitString(benchmark::State& state) {
    std::string const& text = LargeText();
    for (auto _ : state) {
        DiscardBuffer sink;
        std::ostream out(&sink);
        AutoCli_FitString(8, 80, text, false, out, true, 0, true);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

}  // namespace

BENCHMARK(BM_Table)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TablePrintfUnitsWrap)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Json)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Xml)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Python)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FitString)->Unit(benchmark::kMillisecond);
