// SPDX-License-Identifier: Apache-2.0
// Which table serves each event, and what each entry receives.
#include <gtest/gtest.h>

#include "trace.h"

using namespace zuxml_sax2_test;

namespace {

const char kTwoAttributes[] = "<a x=\"1\" y=\"2\"/>";

} // namespace

TEST(CallbackTable, SettersAnswerOneAndTheNextLoadCallsWhatTheyStored) {
    TempFile file(kTwoAttributes);
    TracedParser parser;
    EXPECT_EQ(1, ZuXmlSetSax2ParserCallbacksW(parser.handle(), record::StartDocumentW, nullptr, nullptr, nullptr,
                                              nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(1, ZuXmlSetSax2ParserCallbacksA(parser.handle(), nullptr, record::EndDocumentA, nullptr, nullptr,
                                              nullptr, nullptr, nullptr, nullptr));
    ASSERT_EQ(1, parser.Load(file.path()));
    EXPECT_EQ((Trace{"W:StartDocument()", "A:EndDocument()"}), parser.events());
}

TEST(CallbackTable, AllEntriesNullParsesTheDocumentAndCallsNothing) {
    EXPECT_EQ(Trace{}, TraceOf("<!--c--><a x=\"1\">text<b/><c>t</c></a>", [](TracedParser &) {}));
}

TEST(CallbackTable, BothTablesSetDeliverEveryEventWide) {
    EXPECT_EQ(
        (Trace{"W:StartDocument()", "W:StartElement(0,2,\"\",\"a\",\"a\")",
               "W:Attribute(0,0,\"\",\"x\",\"x\",\"CDATA\",\"1\")", "W:Attribute(0,1,\"\",\"y\",\"y\",\"CDATA\",\"2\")",
               "W:AttributesDone(0)", "W:EndElement(0,\"\",\"a\",\"a\",\"\")", "W:EndDocument()"}),
        TraceOf(kTwoAttributes, [](TracedParser &parser) {
            parser.SetAllW();
            parser.SetAllA();
        }));
}

TEST(CallbackTable, OnlyWideEntriesSetNeverGetAttributesDone) {
    EXPECT_EQ(
        (Trace{"W:StartDocument()", "W:StartElement(0,2,\"\",\"a\",\"a\")",
               "W:Attribute(0,0,\"\",\"x\",\"x\",\"CDATA\",\"1\")", "W:Attribute(0,1,\"\",\"y\",\"y\",\"CDATA\",\"2\")",
               "W:EndElement(0,\"\",\"a\",\"a\",\"\")", "W:EndDocument()"}),
        TraceOf(kTwoAttributes, [](TracedParser &parser) { parser.SetAllW(); }));
}

TEST(CallbackTable, NarrowAttributeEntryAloneMakesWideStartTagsEndWithWideAttributesDone) {
    EXPECT_EQ(
        (Trace{"W:StartDocument()", "W:StartElement(0,1,\"\",\"a\",\"a\")",
               "W:Attribute(0,0,\"\",\"x\",\"x\",\"CDATA\",\"1\")", "W:AttributesDone(0)",
               "W:StartElement(1,0,\"\",\"b\",\"b\")", "W:AttributesDone(1)", "W:EndElement(1,\"\",\"b\",\"b\",\"\")",
               "W:EndElement(0,\"\",\"a\",\"a\",\"\")", "W:EndDocument()"}),
        TraceOf("<a x=\"1\"><b/></a>", [](TracedParser &parser) {
            parser.SetAllW();
            ZuXmlSetSax2ParserCallbacksA(parser.handle(), nullptr, nullptr, nullptr, record::AttributeA, nullptr,
                                         nullptr, nullptr, nullptr);
        }));
}

TEST(CallbackTable, NarrowTableAloneDeliversEveryEventNarrow) {
    TempFile file("<?xml version=\"1.0\"?>\n<!--before-->\n"
                  "<r xmlns=\"urn:r\" xmlns:q=\"urn:q\" q:k=\"v\">text<q:e id=\"7\">inner</q:e><!--in--></r>\n");
    TracedParser parser;
    parser.SetAllA();
    EXPECT_EQ(1, parser.Load(file.path()));
    EXPECT_EQ(
        (Trace{"A:StartDocument()", "A:Comment(0,\"before\")", "A:StartElement(0,1,\"urn:r\",\"r\",\"r\")",
               "A:Attribute(0,0,\"urn:q\",\"k\",\"q:k\",\"CDATA\",\"v\")", "A:AttributesDone(0)",
               "A:StartElement(1,1,\"urn:q\",\"e\",\"q:e\")", "A:Attribute(1,0,\"\",\"id\",\"id\",\"CDATA\",\"7\")",
               "A:AttributesDone(1)", "A:EndElement(1,\"urn:q\",\"e\",\"q:e\",\"inner\")", "A:Comment(1,\"in\")",
               "A:EndElement(0,\"urn:r\",\"r\",\"r\",\"text\")", "A:EndDocument()"}),
        parser.events());
}

TEST(CallbackTable, NarrowStartElementWithWideEndElementMixesTheForms) {
    EXPECT_EQ((Trace{"A:StartElement(0,1,\"\",\"a\",\"a\")", "A:StartElement(1,0,\"\",\"b\",\"b\")",
                     "W:EndElement(1,\"\",\"b\",\"b\",\"t\")", "W:EndElement(0,\"\",\"a\",\"a\",\"\")"}),
              TraceOf("<a x=\"1\"><b>t</b></a>", [](TracedParser &parser) {
                  ZuXmlSetSax2ParserCallbacksA(parser.handle(), nullptr, nullptr, record::StartElementA, nullptr,
                                               nullptr, nullptr, nullptr, nullptr);
                  ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, nullptr, nullptr, nullptr,
                                               record::EndElementW, nullptr, nullptr);
              }));
}

TEST(CallbackTable, WithoutEndElementEntriesTextIsNeverCollected) {
    EXPECT_EQ((Trace{"W:StartElement(0,0,\"\",\"a\",\"a\")", "W:StartElement(1,0,\"\",\"b\",\"b\")"}),
              TraceOf("<a>lost<b>also lost</b></a>", [](TracedParser &parser) {
                  parser.SetAllW();
                  parser.SetAllA();
                  ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, record::StartElementW, nullptr,
                                               nullptr, nullptr, nullptr, nullptr);
                  ZuXmlSetSax2ParserCallbacksA(parser.handle(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                               nullptr, nullptr);
              }));
}

TEST(CallbackTable, CommentBeforeTheRootHasDepthZeroAndInsideItDepthOne) {
    EXPECT_EQ((Trace{"W:Comment(0,\"out\")", "W:Comment(1,\"in\")", "W:Comment(0,\"after\")"}),
              TraceOf("<!--out--><a><!--in--></a><!--after-->", [](TracedParser &parser) {
                  ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                               record::CommentW, nullptr);
              }));
}

TEST(CallbackTable, CommentInsideTheRootArrivesBetweenItsTagsWithDepthOne) {
    EXPECT_EQ((Trace{"W:StartDocument()", "W:StartElement(0,0,\"\",\"a\",\"a\")", "W:Comment(1,\" inside \")",
                     "W:EndElement(0,\"\",\"a\",\"a\",\"\")", "W:EndDocument()"}),
              TraceOf("<a><!-- inside --></a>", [](TracedParser &parser) { parser.SetAllW(); }));
}

TEST(CallbackTable, WithoutCommentEntriesNoCommentIsReported) {
    EXPECT_EQ((Trace{"W:StartDocument()", "A:EndDocument()"}),
              TraceOf("<!--out--><a><!--in--></a>", [](TracedParser &parser) {
                  parser.SetAllW();
                  parser.SetAllA();
                  ZuXmlSetSax2ParserCallbacksW(parser.handle(), record::StartDocumentW, nullptr, nullptr, nullptr,
                                               nullptr, nullptr, nullptr, nullptr);
                  ZuXmlSetSax2ParserCallbacksA(parser.handle(), nullptr, record::EndDocumentA, nullptr, nullptr,
                                               nullptr, nullptr, nullptr, nullptr);
              }));
}

TEST(CallbackTable, NarrowCommentEntryAloneMakesCommentsReported) {
    EXPECT_EQ((Trace{"A:Comment(0,\"out\")", "A:Comment(1,\"in\")"}),
              TraceOf("<!--out--><a><!--in--></a>", [](TracedParser &parser) {
                  ZuXmlSetSax2ParserCallbacksA(parser.handle(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                               record::CommentA, nullptr);
              }));
}

TEST(CallbackTable, FatalErrorArrivesAsCode21WithXercesMessage) {
    EXPECT_EQ((Trace{"W:StartDocument()", "W:StartElement(0,0,\"\",\"a\",\"a\")",
                     "W:StartElement(1,0,\"\",\"b\",\"b\")", "W:Diagnostic(21,\"expected end of tag 'b'\")"}),
              TraceOf("<a><b></a>", [](TracedParser &parser) { parser.SetAllW(); }));
}

TEST(CallbackTable, WarningArrivesWithCode22AndFatalErrorWithCode21) {
    // A second declaration of the same attribute is a warning; the missing
    // end tag then a fatal error. With validation off, Xerces 3.2.4 reports
    // no recoverable error (code 20) for any document: that code cannot be
    // produced from a file.
    EXPECT_EQ((Trace{"W:Diagnostic(22,\"attribute 'x' has already been declared for element 'a'\")",
                     "W:Diagnostic(21,\"input ended before all started tags were ended; last tag started is 'a'\")"}),
              TraceOf("<!DOCTYPE a [<!ATTLIST a x CDATA #IMPLIED><!ATTLIST a x CDATA #IMPLIED>]><a>",
                      [](TracedParser &parser) {
                          ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, nullptr, nullptr, nullptr,
                                                       nullptr, nullptr, record::DiagnosticW);
                      }));
}

TEST(CallbackTable, WithoutDiagnosticEntriesProblemsAreNeitherReportedNorThrown) {
    TempFile file("<!DOCTYPE a [<!ATTLIST a x CDATA #IMPLIED><!ATTLIST a x CDATA #IMPLIED>]><a><b></a>");
    for (const int32_t mode : {0, 1}) {
        TracedParser parser;
        parser.SetAllW();
        ZuXmlSetSax2ParserCallbacksW(parser.handle(), record::StartDocumentW, record::EndDocumentW,
                                     record::StartElementW, nullptr, nullptr, record::EndElementW, nullptr, nullptr);
        int32_t result = 0;
        const std::string output = CaptureStdout([&] { result = parser.Load(file.path(), mode); });
        EXPECT_EQ(1, result) << "mode " << mode;
        EXPECT_EQ("", output) << "mode " << mode;
        EXPECT_EQ((Trace{"W:StartDocument()", "W:StartElement(0,0,\"\",\"a\",\"a\")",
                         "W:StartElement(1,0,\"\",\"b\",\"b\")"}),
                  parser.events())
            << "mode " << mode;
    }
}

namespace {

// Callbacks that answer something, installed where the table expects
// functions answering nothing, as a C caller may do.
int StartDocumentAnswering(ZuXmlSax2Parser h, void *c) {
    record::StartDocumentW(h, c);
    return 0;
}
int StartElementAnswering(ZuXmlSax2Parser h, void *c, int32_t d, int32_t n, const ZuXmlWChar *u, const ZuXmlWChar *l,
                          const ZuXmlWChar *q) {
    record::StartElementW(h, c, d, n, u, l, q);
    return -1;
}
int EndElementAnswering(ZuXmlSax2Parser h, void *c, int32_t d, const ZuXmlWChar *u, const ZuXmlWChar *l,
                        const ZuXmlWChar *q, const ZuXmlWChar *t) {
    record::EndElementW(h, c, d, u, l, q, t);
    return 1;
}

// The detour through a function of no arguments keeps the compiler from
// warning about the cast between function types.
template <class Entry, class Function> Entry Installed(Function function) {
    return reinterpret_cast<Entry>(reinterpret_cast<void (*)()>(function));
}

} // namespace

TEST(CallbackTable, ValuesThatCallbacksAnswerAreIgnored) {
    TempFile file("<a><b>1</b><b>2</b></a>");
    TracedParser expected;
    ZuXmlSetSax2ParserCallbacksW(expected.handle(), record::StartDocumentW, nullptr, record::StartElementW, nullptr,
                                 nullptr, record::EndElementW, nullptr, nullptr);
    ASSERT_EQ(1, expected.Load(file.path()));

    for (const int32_t mode : {0, 1}) {
        TracedParser parser;
        ZuXmlSetSax2ParserCallbacksW(parser.handle(), Installed<ZuXmlSax2StartDocumentCallback>(StartDocumentAnswering),
                                     nullptr, Installed<ZuXmlSax2StartElementCallbackW>(StartElementAnswering), nullptr,
                                     nullptr, Installed<ZuXmlSax2EndElementCallbackW>(EndElementAnswering), nullptr,
                                     nullptr);
        EXPECT_EQ(1, parser.Load(file.path(), mode)) << "mode " << mode;
        EXPECT_EQ(expected.events(), parser.events()) << "mode " << mode;
    }
}

namespace {

// The same events, as the narrow table hears them, from the wide trace.
Trace AsNarrow(Trace trace) {
    for (std::string &event : trace)
        if (event.rfind("W:", 0) == 0)
            event[0] = 'A';
    return trace;
}

} // namespace

// Names, values and white space recur here in every pattern the narrow
// table's reuse of earlier conversions meets: the same attribute slot with
// other names, more distinct values than are kept, and texts too long to
// keep. ASCII text has the same narrow form in every code page the tests
// run under, so the narrow trace must read as the wide one.
TEST(CallbackTable, NarrowTableHearsWhatTheWideTableHearsOnARepetitiveDocument) {
    std::string document = "<?xml version=\"1.0\"?>\n<r xmlns=\"urn:r\" xmlns:p=\"urn:p\">\n";
    for (int i = 0; i < 600; ++i) {
        const std::string n = std::to_string(i);
        document += "  <item id=\"i" + n + "\" kind=\"k" + std::to_string(i % 7) +
                    "\">\n    <p:name p:lang=\"en\">Item " + n + "</p:name>\n    <price currency=\"" +
                    (i % 2 ? "EUR" : "USD") + "\">" + std::to_string(i % 13) + ".50</price>\n    <!-- note " +
                    std::to_string(i % 3) + " -->\n    <long>" +
                    std::string(70 + i % 5, static_cast<char>('a' + i % 26)) + "</long>\n  </item>\n";
    }
    document += "</r>\n";

    const Trace wide = TraceOf(document, [](TracedParser &parser) {
        parser.SetAllW();
        ZuXmlSetSax2ParserCallbacksA(parser.handle(), nullptr, nullptr, nullptr, record::AttributeA, nullptr, nullptr,
                                     nullptr, nullptr);
    });
    const Trace narrow = TraceOf(document, [](TracedParser &parser) { parser.SetAllA(); });
    ASSERT_EQ(600u * 17 + 5, wide.size());
    EXPECT_EQ(AsNarrow(wide), narrow);
}
