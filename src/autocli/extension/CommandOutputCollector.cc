#include "autocli/extension/CommandOutputCollector.h"

#include <memory>

#include "tindra/TindraException.h"

namespace Tindra {
namespace AutoCli {

namespace {

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
    if (mode == Mode::ErrorLines) {
        errorLines.Add(data, length);
        return;
    }
    text.append(data, length);
    if (mode == Mode::Undecided && text.size() >= ErrorLineCollector::Prefix().size()) {
        Decide();
    }
}

void CommandOutputCollector::Decide() {
    if (text.compare(0, ErrorLineCollector::Prefix().size(), ErrorLineCollector::Prefix()) == 0) {
        mode = Mode::ErrorLines;
        errorLines.Add(text.data(), text.size());
    } else {
        mode = Mode::Document;
        document.Feed(text.data(), text.size());
    }
    std::string().swap(text);
}

void CommandOutputCollector::DeliverTo(CallSpec::Output& output) {
    switch (mode) {
        case Mode::ErrorLines:
            errorLines.DeliverTo(output);
            break;
        case Mode::Document:
            DeliverDocument(output);
            break;
        case Mode::Undecided:
        default:
            // Shorter than an error line's prefix: only a (broken) document.
            StoreValue(output, [&] { return XmlUtil_ParseXmlOutput(text); });
            break;
    }
}

void CommandOutputCollector::DeliverDocument(CallSpec::Output& output) {
    if (output.HasError()) {
        return;  // as for text: errors already there stop the document being read
    }
    StoreValue(output, [&] { return document.Finish(); });
}

}  // namespace AutoCli
}  // namespace Tindra
