#ifndef TINDRA_TESTS_FORMATTERS_FORMATTERTESTSUPPORT_H
#define TINDRA_TESTS_FORMATTERS_FORMATTERTESTSUPPORT_H

#include <initializer_list>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tindra/autocli/formatters/Formatter.h"
#include "tindra/callspec/Output.h"
#include "tindra/metaobj/MetaList.h"
#include "tindra/metaobj/MetaStruct.h"

namespace FormatterTest {

using namespace Tindra;
using namespace Tindra::AutoCli;
using namespace Tindra::MetaObj;

inline FormatParameters Params(std::initializer_list<std::pair<char const*, char const*>> pairs) {
    FormatParameters params;
    for (auto const& [key, value] : pairs) {
        params.SetParameter(key, value);
    }
    return params;
}

// Runs a whole formatter of the given class on a root value and returns what it wrote.
template <typename TheFormatter>
std::string Render(std::shared_ptr<MetaObject> const& root,
                   FormatParameters params = FormatParameters(), uint16_t width = 0,
                   bool* result = nullptr) {
    auto output = CallSpec::Output::New();
    output->SetRootObject(root);
    DisplayContext display;
    display.width = width;
    std::ostringstream out;
    bool const formatted = TheFormatter().Format(output, params, display, out);
    if (result != nullptr) {
        *result = formatted;
    }
    return out.str();
}

inline void SetFields(std::shared_ptr<MetaStruct> const&) {}

template <typename Value, typename... Rest>
void SetFields(std::shared_ptr<MetaStruct> const& item, char const* name, Value&& value,
               Rest&&... rest) {
    item->SetField(name, std::forward<Value>(value));
    SetFields(item, std::forward<Rest>(rest)...);
}

// A structure from alternating field names and values.
template <typename... Fields>
std::shared_ptr<MetaStruct> Struct(char const* typeName, Fields&&... fields) {
    auto item = MetaStruct::New(typeName);
    SetFields(item, std::forward<Fields>(fields)...);
    return item;
}

inline std::shared_ptr<MetaStruct> Disk(char const* name, long size, char const* model) {
    return Struct("Disk", "Name", name, "Size", size, "Model", model);
}

// A list of structures whose template is the first of them.
inline std::shared_ptr<MetaList> ListOf(std::vector<std::shared_ptr<MetaStruct>> const& items) {
    auto list = MetaList::New(MetaType::Struct, items.front());
    for (auto const& item : items) {
        list->Add(item);
    }
    return list;
}

// The two disks of the table example.
inline std::shared_ptr<MetaList> Disks() {
    return ListOf({Disk("sda", 512, "Fast disk"), Disk("nvme0n1", 2048, "NV")});
}

}  // namespace FormatterTest

#endif
