// SPDX-License-Identifier: Apache-2.0
// Asking for the length of a document's text, then filling a buffer of that
// length: the text of the call that answered 0 is handed out by the next
// WriteToString call on the same handle, and only while the document is
// unchanged. Every edit between the two calls, made through the handle or
// through another handle with this document's nodes, and every reload,
// must give the new text.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "dom_support.h"

using namespace zuxml_dom_test;

namespace {

constexpr char kXml[] = "<r a=\"1\" b=\"2\"><c>text</c><!--note--><d/></r>";
constexpr char kOtherXml[] = "<o><p q=\"v\">other</p></o>";

// The first call: length 0, answered 0 with the length needed.
int32_t Ask(ZuXmlDocument document) {
    int32_t length = 0;
    EXPECT_EQ(ZuXmlWriteToStringW(document, nullptr, &length), 0);
    return length;
}

// The second call with a buffer of length units.
WString Fill(ZuXmlDocument document, int32_t length) {
    WString buffer(static_cast<size_t>(length), ZuXmlWChar(0x7E));
    EXPECT_EQ(ZuXmlWriteToStringW(document, &buffer[0], &length), 1);
    return WString(buffer.c_str());
}

// The second call with room to spare, so that text grown by the edit fits.
WString FillLarge(ZuXmlDocument document) { return Fill(document, 4096); }

ZuXmlNode Element(ZuXmlDocument document, const char16_t *name) { return Child(document, nullptr, name); }

// An edit of the document behind `document`; `other` is a second handle
// with a document of its own.
struct Edit {
    const char *label;
    std::function<void(ZuXmlDocument document, ZuXmlDocument other)> apply;
};

// Nodes are looked up before the first call: a lookup is a call on the
// handle of its own.
struct Nodes {
    ZuXmlNode c, d, root, otherP;
};

Nodes Find(ZuXmlDocument document, ZuXmlDocument other) {
    return {Element(document, u"c"), Element(document, u"d"), ZuXmlGetRootNode(document), Element(other, u"p")};
}

using EditOf = std::function<void(ZuXmlDocument, ZuXmlDocument, const Nodes &)>;

const std::vector<std::pair<const char *, EditOf>> &Edits() {
    static const std::vector<std::pair<const char *, EditOf>> edits = {
        {"AddNodeW",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) {
             EXPECT_NE(ZuXmlAddNodeW(h, n.d, W(u"e").c_str(), 1, W(u"t").c_str(), nullptr), nullptr);
         }},
        {"AddNodeA",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &) { EXPECT_NE(ZuXmlAddNodeA(h, nullptr, "e", 1, "t", nullptr), nullptr); }},
        {"AddCommentW",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) {
             EXPECT_NE(ZuXmlAddCommentW(h, n.c, W(u"x").c_str()), nullptr);
         }},
        {"AddCommentA",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &) { EXPECT_NE(ZuXmlAddCommentA(h, nullptr, "x"), nullptr); }},
        {"AddNodeExisting",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) { EXPECT_NE(ZuXmlAddNodeExisting(h, n.d, n.otherP, 1), nullptr); }},
        {"RemoveNode", [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) { EXPECT_EQ(ZuXmlRemoveNode(h, n.c), 1); }},
        {"SetNodeTextContentW",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) {
             EXPECT_EQ(ZuXmlSetNodeTextContentW(h, n.c, W(u"new").c_str()), 1);
         }},
        {"SetNodeTextContentA",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) { EXPECT_EQ(ZuXmlSetNodeTextContentA(h, n.d, "new"), 1); }},
        {"AddNodeAttributeW",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) {
             EXPECT_EQ(ZuXmlAddNodeAttributeW(h, n.c, W(u"z").c_str(), W(u"9").c_str()), 1);
         }},
        {"AddNodeAttributeA",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &) { EXPECT_EQ(ZuXmlAddNodeAttributeA(h, nullptr, "a", "7"), 1); }},
        {"SetNodeAttributeValueW",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) {
             EXPECT_EQ(ZuXmlSetNodeAttributeValueW(h, n.root, W(u"b").c_str(), W(u"8").c_str()), 1);
         }},
        {"SetNodeAttributeValueA",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) {
             EXPECT_EQ(ZuXmlSetNodeAttributeValueA(h, n.root, "a", "8"), 1);
         }},
        {"RemoveAttributeIndex",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) { EXPECT_EQ(ZuXmlRemoveAttributeIndex(h, n.root, 0), 1); }},
        {"RemoveAttributeNameW",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) {
             EXPECT_EQ(ZuXmlRemoveAttributeNameW(h, n.root, W(u"b").c_str()), 1);
         }},
        {"RemoveAttributeNameA",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &n) { EXPECT_EQ(ZuXmlRemoveAttributeNameA(h, n.root, "a"), 1); }},
        {"LoadFromBufA",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &) {
             EXPECT_EQ(ZuXmlLoadFromBufA(h, kOtherXml, sizeof kOtherXml - 1), 1);
         }},
        {"LoadFromBufW",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &) {
             const WString text = W(u"<w>wide</w>");
             EXPECT_EQ(ZuXmlLoadFromBufW(h, text.c_str(), static_cast<uint32_t>(text.size())), 1);
         }},
        {"LoadFromFileW",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &) {
             ScratchDirectory scratch;
             WriteBytes(scratch.File("f.xml"), kOtherXml);
             EXPECT_EQ(ZuXmlLoadFromFileW(h, WideOf(scratch.File("f.xml")).c_str()), 1);
         }},
        {"LoadFromFileA",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &) {
             ScratchDirectory scratch;
             WriteBytes(scratch.File("f.xml"), "<f/>");
             EXPECT_EQ(ZuXmlLoadFromFileA(h, NarrowOf(scratch.File("f.xml")).c_str()), 1);
         }},
        // Through the other handle, with this document's nodes.
        {"RemoveNodeThroughAnotherHandle",
         [](ZuXmlDocument, ZuXmlDocument o, const Nodes &n) { EXPECT_EQ(ZuXmlRemoveNode(o, n.d), 1); }},
        {"SetNodeTextContentThroughAnotherHandle",
         [](ZuXmlDocument, ZuXmlDocument o, const Nodes &n) {
             EXPECT_EQ(ZuXmlSetNodeTextContentW(o, n.c, W(u"new").c_str()), 1);
         }},
        {"AddNodeAttributeThroughAnotherHandle",
         [](ZuXmlDocument, ZuXmlDocument o, const Nodes &n) { EXPECT_EQ(ZuXmlAddNodeAttributeA(o, n.d, "z", "1"), 1); }},
        {"SetNodeAttributeValueThroughAnotherHandle",
         [](ZuXmlDocument, ZuXmlDocument o, const Nodes &n) {
             EXPECT_EQ(ZuXmlSetNodeAttributeValueA(o, n.root, "a", "5"), 1);
         }},
        {"RemoveAttributeIndexThroughAnotherHandle",
         [](ZuXmlDocument, ZuXmlDocument o, const Nodes &n) { EXPECT_EQ(ZuXmlRemoveAttributeIndex(o, n.root, 1), 1); }},
        {"RemoveAttributeNameThroughAnotherHandle",
         [](ZuXmlDocument, ZuXmlDocument o, const Nodes &n) { EXPECT_EQ(ZuXmlRemoveAttributeNameA(o, n.root, "a"), 1); }},
    };
    return edits;
}

TEST(AskThenFill, TheFillGivesTheTextOfOneCallWithALargeBuffer) {
    Document document = Loaded(kXml);
    const WString whole = FillLarge(document);
    const int32_t length = Ask(document);
    EXPECT_EQ(length, static_cast<int32_t>(whole.size()) + 1);
    EXPECT_EQ(Fill(document, length), whole);
    EXPECT_EQ(whole, XercesWriteToString(document));
}

TEST(AskThenFill, NarrowFillAfterAWideAskGivesTheNarrowTextOfOneCall) {
    Document document = Loaded(kXml);
    std::string whole(4096, '~');
    int32_t large = 4096;
    ASSERT_EQ(ZuXmlWriteToStringA(document, &whole[0], &large), 1);
    int32_t length = Ask(document);
    std::string narrow(static_cast<size_t>(length), '~');
    ASSERT_EQ(ZuXmlWriteToStringA(document, &narrow[0], &length), 1);
    EXPECT_STREQ(narrow.c_str(), whole.c_str());
}

TEST(AskThenFill, EveryEditBetweenTheCallsGivesTheNewText) {
    for (const auto &[label, edit] : Edits()) {
        SCOPED_TRACE(label);
        Document document = Loaded(kXml);
        Document other = Loaded(kOtherXml);
        const Nodes nodes = Find(document, other);
        const WString before = FillLarge(document);
        Ask(document);
        edit(document, other, nodes);
        const WString after = FillLarge(document);
        EXPECT_NE(after, before);
        EXPECT_EQ(after, XercesWriteToString(document));
    }
}

// A read on the handle between the calls drops the kept text too; the
// next call serialises afresh and still gives the same text.
TEST(AskThenFill, AReadBetweenTheCallsStillGivesTheSameText) {
    Document document = Loaded(kXml);
    const int32_t length = Ask(document);
    EXPECT_NE(ZuXmlGetRootNode(document), nullptr);
    EXPECT_EQ(Fill(document, length), XercesWriteToString(document));
}

TEST(AskThenFill, ABufferStillTooSmallKeepsTheTextForTheCallAfter) {
    Document document = Loaded(kXml);
    const int32_t length = Ask(document);
    int32_t shorter = length - 1;
    WString buffer(static_cast<size_t>(length), ZuXmlWChar(0x7E));
    EXPECT_EQ(ZuXmlWriteToStringW(document, &buffer[0], &shorter), 0);
    EXPECT_EQ(shorter, length);
    EXPECT_EQ(buffer, WString(static_cast<size_t>(length), ZuXmlWChar(0x7E)));
    EXPECT_EQ(Fill(document, length), XercesWriteToString(document));
}

TEST(AskThenFill, TextKeptForOneHandleIsNeverHandedOutByAnother) {
    Document first = Loaded(kXml);
    Document second = Loaded(kOtherXml);
    Ask(first);
    Ask(second);
    EXPECT_EQ(FillLarge(second), XercesWriteToString(second));
    EXPECT_EQ(FillLarge(first), XercesWriteToString(first));
}

// A document that was asked about and never filled is released as usual.
TEST(AskThenFill, ReleasingAfterTheAskIsClean) {
    Document other = Loaded(kOtherXml);
    const Nodes nodes = Find(other, other);
    {
        Document document = Loaded(kXml);
        Ask(document);
    }
    // An edit of another document after the release reaches nothing freed.
    EXPECT_EQ(ZuXmlSetNodeTextContentA(other, nodes.otherP, "x"), 1);
    EXPECT_EQ(FillLarge(other), XercesWriteToString(other));
}

} // namespace
