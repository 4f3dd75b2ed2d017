#include "tindra/autocli/formatters/CliDispatcherHelpFormatter.h"

#include "tindra/TindraException.h"
#include "tindra/autocli/formatters/TableFormatter.h"

namespace Tindra {
namespace AutoCli {

using MetaObj::MetaList;
using MetaObj::MetaString;
using MetaObj::MetaStruct;
using MetaObj::MetaType;

namespace {

// The entries of `nodes` whose "Type" prints as `kind`, in a list with the same template.
std::shared_ptr<MetaList> NodesOfKind(std::string const& kind, MetaList& nodes) {
    auto filtered = MetaList::New(MetaType::Struct, nodes.GetListStructure());
    for (auto const& item : nodes.GetObjects()) {
        auto const node = std::dynamic_pointer_cast<MetaStruct>(item);
        if (!node) {
            continue;
        }
        auto const type = node->GetField("Type");
        if (type && type->ToString() == kind) {
            filtered->Add(node);
        }
    }
    return filtered;
}

FormatParameters ListingParameters() {
    FormatParameters params;
    params.SetFormatter("table");
    params.SetParameter("fields", "Name,Description");
    params.SetParameter("table-header", "false");
    params.SetParameter("wrap-last", "true");
    return params;
}

void WritePath(std::shared_ptr<MetaStruct> const& listing, std::ostream& out) {
    auto const path = std::dynamic_pointer_cast<MetaList>(listing->GetField("Path"));
    if (!path) {
        return;
    }
    for (auto const& word : path->GetObjects()) {
        out << ' ' << (word ? word->ToString() : std::string());
    }
}

}  // namespace

CliDispatcherHelpFormatter::CliDispatcherHelpFormatter() : Formatter("clihelp") {
    description = "Format the --help output for all commands.";
}

bool CliDispatcherHelpFormatter::ExtractString(std::string const& name,
                                               std::shared_ptr<MetaStruct> structure,
                                               std::string& result) {
    auto const field = structure ? structure->GetField(name) : nullptr;
    if (auto const* text = dynamic_cast<MetaString const*>(field.get())) {
        result = text->GetValue();
        return true;
    }
    result = "<" + name + ">";
    return false;
}

bool CliDispatcherHelpFormatter::Format(std::shared_ptr<CallSpec::Output> output, FormatParameters&,
                                        DisplayContext& display, std::ostream& out) {
    auto const listing =
        std::dynamic_pointer_cast<MetaStruct>(output ? output->GetRootObject() : nullptr);
    if (!listing || listing->GetTypeName() != "OstrelCommandPrint") {
        throw TindraException(
            "Error: Unexpected type for help output, formatter expected a struct with help data");
    }
    std::string dispatcher;
    ExtractString("Dispatcher", listing, dispatcher);
    out << "Usage: " << dispatcher << " [disp options]";
    WritePath(listing, out);
    out << " <namespaces> <command>\n\n";
    out << "For help please run " << dispatcher << " --help\n\n";
    auto const nodes = std::dynamic_pointer_cast<MetaList>(listing->GetField("NamespaceNodes"));
    HandleList("Namespace", nodes, display, out);
    HandleList("Command", nodes, display, out);
    return true;
}

bool CliDispatcherHelpFormatter::HandleList(std::string const& kind,
                                            std::shared_ptr<MetaList> nodes,
                                            DisplayContext& display, std::ostream& out) {
    out << "Available " << kind << "s: \n\n";
    if (!nodes) {
        out << "ERROR, list is bad\n";
        return true;
    }
    std::shared_ptr<MetaList> filtered;
    try {
        filtered = NodesOfKind(kind, *nodes);
    } catch (TindraException const&) {
        out << "Unable to get Descriptions for this command.  Implementation error.\n";
        return true;
    }
    auto const table = CallSpec::Output::New();
    table->SetRootObject(filtered);
    FormatParameters params = ListingParameters();
    TableFormatter().Format(table, params, display, out);
    out << '\n';
    return true;
}

}  // namespace AutoCli
}  // namespace Tindra
