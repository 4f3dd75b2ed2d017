#include "ResourceGetCommand.h"

#include <string>
#include <vector>

#include "HostResources.h"
#include "MemoryUnit.h"
#include "ProcessLimits.h"
#include "ResourceReport.h"
#include "tindra/callspec/ParameterConstraint.h"
#include "tindra/callspec/ParameterSpec.h"

namespace ResourceExample {

using Tindra::CallSpec::InputSpec;
using Tindra::CallSpec::OutputSpec;
using Tindra::CallSpec::ParameterConstraint;
using Tindra::CallSpec::ParameterSpec;

namespace {

char const* const kUnitsParameter = "units";
char const* const kLimitsParameter = "limits";

std::shared_ptr<ParameterSpec> NewUnitsParameter() {
    auto choices = ParameterConstraint::New(Tindra::CallSpec::ConstraintStringEnum);
    for (auto const& unit : MemoryUnits()) {
        choices->AddStringEnum(unit.name, unit.description);
    }
    auto units = ParameterSpec::New(kUnitsParameter, Tindra::CallSpec::ParamString);
    units->SetShortName("u");
    units->SetDescription(std::string("Unit of the memory and swap amounts, ") +
                          DefaultMemoryUnit().name + " when not given:%FULLENUM%");
    units->SetRequired(false);
    units->SetConstraint(choices);
    return units;
}

std::shared_ptr<ParameterSpec> NewLimitsParameter() {
    auto limits = ParameterSpec::New(kLimitsParameter, Tindra::CallSpec::ParamFlag);
    limits->SetShortName("l");
    limits->SetDescription("Also list the resource limits ostrel inherited from its caller.");
    limits->SetRequired(false);
    return limits;
}

}  // namespace

std::shared_ptr<ResourceGetCommand> ResourceGetCommand::New() {
    return std::make_shared<ResourceGetCommand>();
}

ResourceGetCommand::ResourceGetCommand() {
    SetDescription("Show the host's memory, swap, load and uptime.");
    AddExample("", "Memory in MiB, load averages and uptime");
    AddExample("--units GiB", "Memory and swap in whole gibibytes");
    AddExample("-l -u KiB", "Also the limits that ostrel inherited, memory in kibibytes");

    // Read like a report: counters first, then memory, limits last.
    SetDefaultOutputFormatter("simple");
    SetDefaultOutputParameter("align-fields", "true");
    SetDefaultOutputParameter(std::string("header:") + kReportType, "Host resources");
    SetDefaultOutputParameter(std::string("fields:") + kReportType, ReportFieldOrder());
    SetDefaultOutputParameter(std::string("units:") + kReportType + ".Uptime", "s");
    SetDefaultOutputParameter(std::string("header:") + kLimitType, "%Resource%");
    SetDefaultOutputParameter(std::string("fields:") + kLimitType, LimitFieldOrder());
}

std::shared_ptr<InputSpec> ResourceGetCommand::GetInputSpecInternal() {
    auto spec = InputSpec::New();
    spec->AddParameter(NewUnitsParameter());
    spec->AddParameter(NewLimitsParameter());
    return spec;
}

std::shared_ptr<OutputSpec> ResourceGetCommand::GetOutputSpecInternal() {
    auto spec = OutputSpec::New();
    spec->SetDescription("Memory, swap, load, uptime and optionally process limits.");
    spec->SetRootObject(NewResourceReportTemplate());
    return spec;
}

void ResourceGetCommand::ExecuteInternal(std::shared_ptr<Tindra::CallSpec::Input> input,
                                         std::shared_ptr<Tindra::CallSpec::Output> output) {
    MemoryUnit const& unit = input->HasParameter(kUnitsParameter)
                                 ? FindMemoryUnit(input->GetParameter(kUnitsParameter))
                                 : DefaultMemoryUnit();
    std::vector<ProcessLimit> limits;
    if (input->IsFlagSet(kLimitsParameter)) {
        limits = ReadProcessLimits();
    }
    output->SetRootObject(NewResourceReport(ReadHostResources(), unit, limits));
}

}  // namespace ResourceExample
