#include "ResourceReport.h"

#include "tindra/metaobj/MetaList.h"

namespace ResourceExample {

using Tindra::MetaObj::MetaList;
using Tindra::MetaObj::MetaStruct;

char const* const kReportType = "SystemResources";
char const* const kLimitType = "ResourceLimit";

namespace {

std::shared_ptr<MetaStruct> NewLimitEntry(ProcessLimit const& limit) {
    auto entry = MetaStruct::New(kLimitType);
    entry->SetField("Resource", limit.resource);
    entry->SetField("Soft", limit.soft);
    entry->SetField("Hard", limit.hard);
    entry->SetField("Unit", limit.unit);
    return entry;
}

std::shared_ptr<MetaList> NewLimitList(std::vector<ProcessLimit> const& limits) {
    auto list = MetaList::New(Tindra::MetaObj::Struct, NewLimitEntry(ProcessLimit{}));
    for (auto const& limit : limits) {
        list->Add(NewLimitEntry(limit));
    }
    return list;
}

}  // namespace

std::shared_ptr<MetaStruct> NewResourceReport(HostResources const& host, MemoryUnit const& unit,
                                              std::vector<ProcessLimit> const& limits) {
    auto report = MetaStruct::New(kReportType);
    report->SetField("Uptime", host.uptimeSeconds);
    report->SetField("Load Average", FormatLoadAverage(host.loads));
    report->SetField("Processes", host.processes);
    report->SetField("Memory Unit", unit.name);
    report->SetField("Total Memory", InUnits(host.totalMemory, unit));
    report->SetField("Free Memory", InUnits(host.freeMemory, unit));
    report->SetField("Shared Memory", InUnits(host.sharedMemory, unit));
    report->SetField("Buffer Memory", InUnits(host.bufferMemory, unit));
    report->SetField("Total Swap", InUnits(host.totalSwap, unit));
    report->SetField("Free Swap", InUnits(host.freeSwap, unit));
    report->SetField("Limits", NewLimitList(limits));
    return report;
}

std::shared_ptr<MetaStruct> NewResourceReportTemplate() {
    return NewResourceReport(HostResources{}, DefaultMemoryUnit(), {});
}

char const* ReportFieldOrder() {
    return "Uptime,Load Average,Processes,Memory Unit,Total Memory,Free Memory,Shared Memory,"
           "Buffer Memory,Total Swap,Free Swap,Limits";
}

char const* LimitFieldOrder() {
    return "Soft,Hard,Unit";
}

}  // namespace ResourceExample
