#ifndef RESOURCE_EXAMPLE_RESOURCEREPORT_H
#define RESOURCE_EXAMPLE_RESOURCEREPORT_H

#include <memory>
#include <vector>

#include "HostResources.h"
#include "MemoryUnit.h"
#include "ProcessLimits.h"
#include "tindra/metaobj/MetaStruct.h"

namespace ResourceExample {

// The type names the formatters and format parameters know the report by.
extern char const* const kReportType;
extern char const* const kLimitType;

// The command's result: a "SystemResources" structure whose "Limits" field lists one
// "ResourceLimit" per entry of limits.
std::shared_ptr<Tindra::MetaObj::MetaStruct> NewResourceReport(
    HostResources const& host, MemoryUnit const& unit, std::vector<ProcessLimit> const& limits);

// The shape every report has, for the command's output declaration.
std::shared_ptr<Tindra::MetaObj::MetaStruct> NewResourceReportTemplate();

// The report's fields in reading order, as a "fields:" format parameter wants them.
char const* ReportFieldOrder();

// The fields of a "ResourceLimit" shown under its header, which names the resource.
char const* LimitFieldOrder();

}  // namespace ResourceExample

#endif
