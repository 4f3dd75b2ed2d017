#include "autocli/cli/NamespaceListing.h"

#include "tindra/metaobj/MetaList.h"

namespace Tindra {
namespace AutoCli {

namespace {

using MetaObj::MetaList;
using MetaObj::MetaStruct;

char const* KindName(int nodeType) {
    switch (nodeType) {
        case NamespaceNode::NAMESPACE_NODE:
            return "Namespace";
        case NamespaceNode::COMMAND_NODE:
            return "Command";
        default:
            return "Unknown";
    }
}

std::shared_ptr<MetaStruct> EntryTemplate() {
    auto entry = MetaStruct::New("NamespaceNode");
    entry->SetField("Name", "");
    entry->SetField("Description", "");
    entry->SetField("Type", "");
    return entry;
}

std::shared_ptr<MetaList> PathList(std::shared_ptr<NamespaceNode> const& node) {
    auto path = MetaList::New(MetaObj::String);
    for (auto const& word : node->GetPath()) {
        path->Add(word);
    }
    return path;
}

std::shared_ptr<MetaList> ChildList(std::shared_ptr<NamespaceNode> const& node) {
    auto entryTemplate = EntryTemplate();
    auto children = MetaList::New(MetaObj::Struct, entryTemplate);
    for (auto const& child : node->GetNamespaceNodes()) {
        auto entry = MetaStruct::New(entryTemplate);
        entry->SetField("Name", child->GetName());
        entry->SetField("Description", child->GetDescription());
        entry->SetField("Type", KindName(child->GetType()));
        children->Add(entry);
    }
    return children;
}

}  // namespace

std::shared_ptr<MetaStruct> BuildNamespaceListing(std::string const& dispatcherName,
                                                  std::shared_ptr<NamespaceNode> node) {
    auto listing = MetaStruct::New("OstrelCommandPrint");
    listing->SetField("Dispatcher", dispatcherName);
    listing->SetField("Path", PathList(node));
    listing->SetField("NamespaceNodes", ChildList(node));
    return listing;
}

}  // namespace AutoCli
}  // namespace Tindra
