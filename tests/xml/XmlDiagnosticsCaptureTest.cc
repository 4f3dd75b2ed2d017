#include "xml/XmlDiagnosticsCapture.h"

#include <gtest/gtest.h>

#include <string>

#include "xml/XmlDocument.h"

using namespace Tindra::AutoCli;

namespace {

// What the parser says is kept as it would print it, bounded, and only while the capture lives.
TEST(XmlDiagnosticsCaptureTest, KeepsTheParsersWordsUpToABound) {
    std::string text;
    {
        XmlDiagnosticsCapture capture;
        ParseXmlDocument("<a p:x=\"1\"/>", "small.xml", 0);
        text = capture.Take();
    }
    EXPECT_EQ(
        "small.xml:1: namespace error : Namespace prefix p for x on a is not defined\n"
        "<a p:x=\"1\"/>\n          ^\n",
        text);
    std::string flood = "<a>";
    for (int i = 0; i < 20000; ++i) {
        flood += "<b p:x=\"1\"/>";
    }
    XmlDiagnosticsCapture capture;
    ParseXmlDocument(flood + "</a>", "flood.xml", 0);
    text = capture.Take();
    std::string const cut = "\n... further parser diagnostics not shown\n";
    EXPECT_EQ((1u << 20) + cut.size(), text.size());
    EXPECT_EQ(cut, text.substr(text.size() - cut.size()));
}

}  // namespace
