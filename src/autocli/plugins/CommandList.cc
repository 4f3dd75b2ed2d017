#include "tindra/autocli/plugins/CommandList.h"

#include "tindra/callspec/InputSpec.h"
#include "tindra/callspec/OutputSpec.h"
#include "tindra/callspec/ParameterSpec.h"
#include "tindra/metaobj/MetaString.h"

namespace Tindra {
namespace AutoCli {

namespace {

using MetaObj::MetaList;
using MetaObj::MetaString;
using MetaObj::MetaStruct;

std::shared_ptr<CallSpec::ParameterSpec> NewFilter(char const* name, char const* shortName,
                                                   char const* description) {
    auto filter = CallSpec::ParameterSpec::New(name, CallSpec::ParamString);
    filter->SetShortName(shortName);
    filter->SetDescription(description);
    filter->SetRequired(false);
    return filter;
}

bool Passes(std::string const& filter, std::string const& text) {
    return filter.empty() || text.find(filter) != std::string::npos;
}

}  // namespace

CommandList::CommandList(std::shared_ptr<Namespace> const& root) : root(root) {
    SetDescription("List all of the ostrel commands.");
    SetMetaDataField("type", "fetcher");
    SetDefaultOutputFormatter("table");
    SetDefaultOutputParameter("fields:OstrelCommand", "Namespace,Command,Description");
    SetDefaultOutputParameter("wrap-last", "true");
}

std::shared_ptr<CommandList> CommandList::New(std::shared_ptr<Namespace> root) {
    return std::make_shared<CommandList>(root);
}

std::shared_ptr<MetaStruct> CommandList::GetOutputStructure() {
    auto row = MetaStruct::New("OstrelCommand");
    row->SetField("Namespace", MetaString::New());
    row->SetField("Command", MetaString::New());
    row->SetField("Description", MetaString::New());
    return row;
}

std::shared_ptr<CallSpec::InputSpec> CommandList::GetInputSpecInternal() {
    auto spec = CallSpec::InputSpec::New();
    spec->AddParameter(
        NewFilter("namespace-filter", "n",
                  "Show only commands containing the specified string in their namespace path."));
    spec->AddParameter(NewFilter("command-filter", "c",
                                 "Show only commands containing the specified string in their "
                                 "name."));
    spec->AddParameter(
        NewFilter("description-filter", "d",
                  "Show only commands containing the specified string in their description."));
    return spec;
}

std::shared_ptr<CallSpec::OutputSpec> CommandList::GetOutputSpecInternal() {
    auto spec = CallSpec::OutputSpec::New();
    spec->SetRootObject(MetaList::New(MetaObj::Struct, GetOutputStructure()));
    return spec;
}

void CommandList::ExecuteInternal(std::shared_ptr<CallSpec::Input> input,
                                  std::shared_ptr<CallSpec::Output> output) {
    auto const& namespaceFilter = input->GetParameter("namespace-filter");
    auto const& commandFilter = input->GetParameter("command-filter");
    auto const& descriptionFilter = input->GetParameter("description-filter");
    auto list = MetaList::New(MetaObj::Struct, GetOutputStructure());
    if (auto tree = root.lock()) {
        AddChildren(namespaceFilter, commandFilter, descriptionFilter, tree, list);
    }
    output->SetRootObject(list);
}

void CommandList::AddChildren(std::string const& namespaceFilter, std::string const& commandFilter,
                              std::string const& descriptionFilter,
                              std::shared_ptr<NamespaceNode> const& node,
                              std::shared_ptr<MetaList> const& list) {
    auto const path = node->GetPathString('.');
    auto const children = node->GetNamespaceNodes();
    list->Reserve(list->GetCount() + children.size());
    for (auto const& child : children) {
        if (child->GetType() == NamespaceNode::NAMESPACE_NODE) {
            AddChildren(namespaceFilter, commandFilter, descriptionFilter, child, list);
            continue;
        }
        if (child->GetType() != NamespaceNode::COMMAND_NODE || !Passes(namespaceFilter, path) ||
            !Passes(commandFilter, child->GetName()) ||
            !Passes(descriptionFilter, child->GetDescription())) {
            continue;
        }
        auto row = GetOutputStructure();
        row->SetField("Command", child->GetName());
        row->SetField("Namespace", path);
        row->SetField("Description", child->GetDescription());
        list->Add(row);
    }
}

}  // namespace AutoCli
}  // namespace Tindra
