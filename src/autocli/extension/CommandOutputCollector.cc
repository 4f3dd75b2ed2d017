#include "autocli/extension/CommandOutputCollector.h"

#include <memory>

#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

namespace {

std::string const kErrorLinePrefix = "ERROR:";

// Leading "ERROR:" lines, each the rest of its line; they stop at the first other line.
void AddErrorLines(std::string const& text, CallSpec::Output& output) {
    size_t pos = 0;
    while (text.compare(pos, kErrorLinePrefix.size(), kErrorLinePrefix) == 0) {
        size_t start = pos + kErrorLinePrefix.size();
        size_t newline = text.find('\n', start);
        if (newline == std::string::npos) {
            output.AddErrorMessage(text.substr(start));
            return;
        }
        output.AddErrorMessage(text.substr(start, newline - start));
        pos = newline + 1;
    }
}

template <typename Read>
void StoreValue(CallSpec::Output& output, Read read) {
    try {
        std::shared_ptr<MetaObj::MetaObject> value = read();
        if (value) {
            output.SetRootObject(value);
        }
    } catch (TindraException const& error) {
        output.AddErrorMessage(std::string("Unable to parse output of Extension Command: ") +
                               error.what());
    }
}

}  // namespace

void CommandOutputCollector::Add(char const* data, size_t length) {
    received += length;
    if (mode == Mode::Document) {
        document.Feed(data, length);
        return;
    }
    text.append(data, length);
    if (mode == Mode::Undecided && text.size() >= kErrorLinePrefix.size()) {
        Decide();
    }
}

void CommandOutputCollector::Decide() {
    if (text.compare(0, kErrorLinePrefix.size(), kErrorLinePrefix) == 0) {
        mode = Mode::ErrorLines;
        return;
    }
    mode = Mode::Document;
    document.Feed(text.data(), text.size());
    std::string().swap(text);
}

void CommandOutputCollector::DeliverTo(CallSpec::Output& output) {
    if (mode == Mode::Document) {
        DeliverDocument(output);
    } else {
        DeliverText(output);
    }
}

void CommandOutputCollector::DeliverText(CallSpec::Output& output) {
    AddErrorLines(text, output);
    if (output.HasError()) {
        return;
    }
    StoreValue(output, [&] { return XmlUtil_ParseXmlOutput(text); });
}

void CommandOutputCollector::DeliverDocument(CallSpec::Output& output) {
    if (output.HasError()) {
        return;  // as for text: errors already there stop the document being read
    }
    StoreValue(output, [&] { return document.Finish(); });
}

}  // namespace AutoCli
}  // namespace Tindra
