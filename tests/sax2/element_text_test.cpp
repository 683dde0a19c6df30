// SPDX-License-Identifier: Apache-2.0
// Depth tracking and the text each element receives with its end tag.
#include <string>

#include <gtest/gtest.h>

#include "trace.h"

using namespace zuxml_sax2_test;

namespace {

// A parser that hears only of end tags (wide), with their text.
void SetEndElementsOnlyW(TracedParser &parser) {
    ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, nullptr, nullptr, nullptr, record::EndElementW,
                                 nullptr, nullptr);
}

} // namespace

TEST(ElementText, RootWithTextOnlyReceivesAllOfItJoinedAcrossCharacterEvents) {
    // Entity references, character references and CDATA sections each come
    // from Xerces as pieces of their own.
    EXPECT_EQ(
        (Trace{"W:EndElement(0,\"\",\"a\",\"a\",\"x&yAzc<de<\")"}),
        TraceOf("<a>x&amp;y&#65;z<![CDATA[c<d]]>e&lt;</a>", [](TracedParser &parser) { SetEndElementsOnlyW(parser); }));
}

// Xerces' pieces of character data run to their terminator; they are read
// in blocks of units, so every length around the block sizes is checked,
// alone and split by a reference into two pieces.
TEST(ElementText, PiecesOfEveryLengthUpToSeventyArriveWhole) {
    const std::string units = "abcdefghijklmnopqrstuvwxyz0123456789";
    for (size_t n = 0; n <= 70; ++n) {
        std::string text;
        for (size_t i = 0; i < n; ++i)
            text += units[i % units.size()];
        const std::string split = text.substr(0, n / 2) + "&amp;" + text.substr(n / 2);
        const std::string joined = text.substr(0, n / 2) + "&" + text.substr(n / 2);
        EXPECT_EQ((Trace{"W:EndElement(0,\"\",\"a\",\"a\",\"" + text + "\")"}),
                  TraceOf("<a>" + text + "</a>", [](TracedParser &parser) { SetEndElementsOnlyW(parser); }))
            << n;
        EXPECT_EQ((Trace{"W:EndElement(0,\"\",\"a\",\"a\",\"" + joined + "\")"}),
                  TraceOf("<a>" + split + "</a>", [](TracedParser &parser) { SetEndElementsOnlyW(parser); }))
            << n;
    }
}

TEST(ElementText, ChildKeepsItsOwnTextAndParentGetsItsPiecesJoined) {
    EXPECT_EQ((Trace{"W:EndElement(1,\"\",\"b\",\"b\",\"x\")", "W:EndElement(0,\"\",\"a\",\"a\",\"a1c1\")"}),
              TraceOf("<a>a1<b>x</b>c1</a>", [](TracedParser &parser) { SetEndElementsOnlyW(parser); }));
}

TEST(ElementText, SecondSiblingAtTheSameDepthStartsWithEmptyText) {
    EXPECT_EQ((Trace{"W:EndElement(1,\"\",\"b\",\"b\",\"one\")", "W:EndElement(1,\"\",\"b\",\"b\",\"\")",
                     "W:EndElement(1,\"\",\"b\",\"b\",\"three\")", "W:EndElement(0,\"\",\"a\",\"a\",\"\")"}),
              TraceOf("<a><b>one</b><b/><b>three</b></a>", [](TracedParser &parser) { SetEndElementsOnlyW(parser); }));
}

// Xerces 3.2.4 does not report the white space around the document element
// as character data at all, so nothing at depth 0 can reach an element;
// this pins that the document element's text holds only its own content.
TEST(ElementText, TextOutsideTheDocumentElementReachesNoElement) {
    EXPECT_EQ((Trace{"W:EndElement(0,\"\",\"a\",\"a\",\"in\")"}),
              TraceOf("\n  <a>in</a>  \n\n", [](TracedParser &parser) { SetEndElementsOnlyW(parser); }));
}

TEST(ElementText, OnlyNarrowEndElementSetDeliversTextNarrow) {
    EXPECT_EQ((Trace{"A:EndElement(1,\"\",\"b\",\"b\",\"q\")", "A:EndElement(0,\"\",\"a\",\"a\",\"pr\")"}),
              TraceOf("<a>p<b>q</b>r</a>", [](TracedParser &parser) {
                  ZuXmlSetSax2ParserCallbacksA(parser.handle(), nullptr, nullptr, nullptr, nullptr, nullptr,
                                               record::EndElementA, nullptr, nullptr);
              }));
}

TEST(ElementText, WithoutStartElementEntriesDepthStillRises) {
    EXPECT_EQ((Trace{"A:Comment(1,\"c1\")", "A:Comment(2,\"c2\")", "A:EndElement(2,\"\",\"c\",\"c\",\"\")",
                     "A:EndElement(1,\"\",\"b\",\"b\",\"\")", "A:EndElement(0,\"\",\"a\",\"a\",\"\")"}),
              TraceOf("<a><!--c1--><b><!--c2--><c/></b></a>", [](TracedParser &parser) {
                  parser.SetAllA();
                  ZuXmlSetSax2ParserCallbacksA(parser.handle(), nullptr, nullptr, nullptr, record::AttributeA,
                                               record::AttributesDoneA, record::EndElementA, record::CommentA, nullptr);
              }));
}

TEST(ElementText, ElementsNestedDeeperThanAHundredLevelsEachGetTheirOwnText) {
    constexpr int kLevels = 250;
    std::string document;
    for (int level = 0; level < kLevels; ++level)
        document += "<e>t" + std::to_string(level);
    for (int level = kLevels - 1; level >= 0; --level)
        document += "u" + std::to_string(level) + "</e>";
    // A second deep branch reuses the slots of the first.
    std::string branch;
    for (int level = 1; level < kLevels; ++level)
        branch += "<f>";
    for (int level = kLevels - 1; level >= 1; --level)
        branch += "</f>";
    TempFile file("<root>" + document + branch + "</root>");

    TracedParser parser;
    SetEndElementsOnlyW(parser);
    EXPECT_EQ(1, parser.Load(file.path()));

    Trace expected;
    for (int level = kLevels - 1; level >= 0; --level)
        expected.push_back("W:EndElement(" + std::to_string(level + 1) + ",\"\",\"e\",\"e\",\"t" +
                           std::to_string(level) + "u" + std::to_string(level) + "\")");
    for (int level = kLevels - 1; level >= 1; --level)
        expected.push_back("W:EndElement(" + std::to_string(level) + ",\"\",\"f\",\"f\",\"\")");
    expected.push_back("W:EndElement(0,\"\",\"root\",\"root\",\"\")");
    EXPECT_EQ(expected, parser.events());
}

TEST(ElementText, NonAsciiAndNonBmpTextReachWideCallbacksUnchanged) {
    // U+00E9, U+20AC and U+1F600 (a surrogate pair in UTF-16).
    const std::string text = "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";
    TempFile file("<?xml version=\"1.0\" encoding=\"UTF-8\"?><a v=\"" + text + "\"><!--" + text + "-->" + text + "<" +
                  text + "/></a>");
    TracedParser parser;
    parser.SetAllW();
    EXPECT_EQ(1, parser.Load(file.path()));
    EXPECT_EQ((Trace{"W:StartDocument()", "W:StartElement(0,1,\"\",\"a\",\"a\")",
                     "W:Attribute(0,0,\"\",\"v\",\"v\",\"CDATA\",\"" + text + "\")", "W:Comment(1,\"" + text + "\")",
                     "W:StartElement(1,0,\"\",\"" + text + "\",\"" + text + "\")",
                     "W:EndElement(1,\"\",\"" + text + "\",\"" + text + "\",\"\")",
                     "W:EndElement(0,\"\",\"a\",\"a\",\"" + text + "\")", "W:EndDocument()"}),
              parser.events());
}

namespace {

std::vector<ZuXmlWChar> g_LastText;

void KeepTextUnits(ZuXmlSax2Parser, void *, int32_t, const ZuXmlWChar *, const ZuXmlWChar *, const ZuXmlWChar *,
                   const ZuXmlWChar *text) {
    g_LastText.clear();
    for (const ZuXmlWChar *unit = text; *unit; ++unit)
        g_LastText.push_back(*unit);
}

} // namespace

TEST(ElementText, NonBmpCharacterArrivesAsItsSurrogatePair) {
    g_LastText.clear();
    EXPECT_EQ(Trace{}, TraceOf("<a>&#x1F600;&#xE9;</a>", [](TracedParser &parser) {
                  ZuXmlSetSax2ParserCallbacksW(parser.handle(), nullptr, nullptr, nullptr, nullptr, nullptr,
                                               KeepTextUnits, nullptr, nullptr);
              }));
    EXPECT_EQ((std::vector<ZuXmlWChar>{0xD83D, 0xDE00, 0x00E9}), g_LastText);
}
