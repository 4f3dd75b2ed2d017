#include "xml/XmlDiagnosticsCapture.h"

#include <libxml/globals.h>
#include <libxml/parser.h>

#include <cstdarg>
#include <cstdio>

namespace Tindra {
namespace AutoCli {

namespace {

// A descriptor of namespace errors on every attribute could say hundreds of megabytes.
size_t const kKeptDiagnostics = 1 << 20;

}  // namespace

// libxml2 keeps its error handler per thread, so this captures only this thread's documents.
XmlDiagnosticsCapture::XmlDiagnosticsCapture()
    : previousHandler(xmlGenericError), previousContext(xmlGenericErrorContext) {
    xmlSetGenericErrorFunc(this, &XmlDiagnosticsCapture::Append);
}

XmlDiagnosticsCapture::~XmlDiagnosticsCapture() {
    xmlSetGenericErrorFunc(previousContext, previousHandler);
}

void XmlDiagnosticsCapture::PrepareForThreads() {
    xmlInitParser();
}

void XmlDiagnosticsCapture::Append(void* capture, char const* format, ...) {
    auto& self = *static_cast<XmlDiagnosticsCapture*>(capture);
    if (self.cut) {
        return;
    }
    char piece[1024];
    va_list arguments;
    va_start(arguments, format);
    int const length = std::vsnprintf(piece, sizeof piece, format, arguments);
    va_end(arguments);
    if (length < 0) {
        return;
    }
    if (static_cast<size_t>(length) >= sizeof piece) {
        std::string whole(static_cast<size_t>(length) + 1, '\0');
        va_start(arguments, format);
        std::vsnprintf(&whole[0], whole.size(), format, arguments);
        va_end(arguments);
        whole.pop_back();
        self.text += whole;
    } else {
        self.text.append(piece, static_cast<size_t>(length));
    }
    if (self.text.size() > kKeptDiagnostics) {
        self.text.resize(kKeptDiagnostics);
        self.text += "\n... further parser diagnostics not shown\n";
        self.cut = true;
    }
}

}  // namespace AutoCli
}  // namespace Tindra
