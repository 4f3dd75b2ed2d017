#ifndef TINDRA_SRC_XML_XMLDIAGNOSTICSCAPTURE_H
#define TINDRA_SRC_XML_XMLDIAGNOSTICSCAPTURE_H

// Internal: keeps what libxml2 would write to standard error while a document is read on this
// thread, so that it can be written later, in its place among other messages.

#include <libxml/xmlerror.h>

#include <string>

namespace Tindra {
namespace AutoCli {

class XmlDiagnosticsCapture {
public:
    XmlDiagnosticsCapture();
    ~XmlDiagnosticsCapture();
    XmlDiagnosticsCapture(XmlDiagnosticsCapture const&) = delete;
    XmlDiagnosticsCapture& operator=(XmlDiagnosticsCapture const&) = delete;

    // The diagnostics so far, byte for byte as libxml2 prints them, cut at a bound.
    std::string Take() { return std::move(text); }

    // libxml2 must be set up on one thread before documents are read on several.
    static void PrepareForThreads();

private:
    static void Append(void* capture, char const* format, ...);

    xmlGenericErrorFunc previousHandler;
    void* previousContext;
    std::string text;
    bool cut = false;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
