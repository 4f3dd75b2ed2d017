// The help structure every command can answer with.
#include "tindra/autocli/tree/CommandInput.h"
#include "tindra/autocli/tree/CommandSpec.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace Tindra {
namespace AutoCli {

namespace {

using MetaObj::MetaList;
using MetaObj::MetaStruct;

std::shared_ptr<MetaStruct> NewParameterEntry() {
    auto entry = MetaStruct::New("OstrelCommandParameter");
    entry->SetField("Name", "");
    entry->SetField("Short Name", "");
    entry->SetField("Description", "");
    entry->SetField("Required", false);
    entry->SetField("Secret", false);
    return entry;
}

std::shared_ptr<MetaStruct> NewExampleEntry() {
    auto entry = MetaStruct::New("OstrelCommandExample");
    entry->SetField("Description", "");
    entry->SetField("Syntax", "");
    return entry;
}

std::shared_ptr<MetaList> ParameterList(CallSpec::InputSpec const& spec) {
    auto list = MetaList::New(MetaObj::Struct, NewParameterEntry());
    for (auto const& parameter : spec.parameters) {
        auto entry = MetaStruct::New("OstrelCommandParameter");
        entry->SetField("Name", parameter->GetName());
        entry->SetField("Short Name", parameter->GetShortName());
        entry->SetField("Description", parameter->GetDescription(true));
        entry->SetField("Required", parameter->IsRequired());
        entry->SetField("Secret", parameter->IsSecret());
        list->Add(entry);
    }
    return list;
}

std::shared_ptr<MetaList> ExampleList(std::vector<CommandSpec::Example> const& examples,
                                      std::string const& prefix) {
    auto list = MetaList::New(MetaObj::Struct, NewExampleEntry());
    for (auto const& example : examples) {
        auto entry = MetaStruct::New("OstrelCommandExample");
        entry->SetField("Description", example.second + " :");
        entry->SetField("Syntax", "# " + prefix + " " + example.first);
        list->Add(entry);
    }
    return list;
}

}  // namespace

void CommandSpec::GenerateHelpOutput(std::shared_ptr<CallSpec::Input> input,
                                     std::shared_ptr<CallSpec::Output> output) {
    auto help = MetaStruct::New("OstrelCommandHelp");
    std::string prefix;
    if (auto commandInput = std::dynamic_pointer_cast<CommandInput>(input)) {
        auto path = commandInput->GetCommandPathString();
        help->SetField("Dispatcher", commandInput->GetDispatcher());
        help->SetField("Path", path);
        prefix = commandInput->GetDispatcher() + " " + path;
    }
    help->SetField("Description", GetDescription());
    help->SetField("Param List", ParameterList(*GetInputSpec()));
    help->SetField("Example List", ExampleList(examples, prefix));
    output->SetRootObject(help);
    output->SetOutputType(CallSpec::Output::Help);
}

}  // namespace AutoCli
}  // namespace Tindra
