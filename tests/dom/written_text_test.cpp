// SPDX-License-Identifier: Apache-2.0
// Asking for the length of a document's text, then filling a buffer of that
// length: the text of the call that answered 0 is handed out by the next
// WriteToString call on the same handle, and only while the document is
// unchanged. Every edit between the two calls, made through the handle or
// through another handle with this document's nodes, and every reload,
// must give the new text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dom_support.h"
#include "edits_between_calls.h"

using namespace zuxml_dom_test;

namespace {

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

TEST(AskThenFill, TheFillGivesTheTextOfOneCallWithALargeBuffer) {
    Document document = Loaded(kEditedXml);
    const WString whole = FillLarge(document);
    const int32_t length = Ask(document);
    EXPECT_EQ(length, static_cast<int32_t>(whole.size()) + 1);
    EXPECT_EQ(Fill(document, length), whole);
    EXPECT_EQ(whole, XercesWriteToString(document));
}

TEST(AskThenFill, NarrowFillAfterAWideAskGivesTheNarrowTextOfOneCall) {
    Document document = Loaded(kEditedXml);
    std::string whole(4096, '~');
    int32_t large = 4096;
    ASSERT_EQ(ZuXmlWriteToStringA(document, &whole[0], &large), 1);
    int32_t length = Ask(document);
    std::string narrow(static_cast<size_t>(length), '~');
    ASSERT_EQ(ZuXmlWriteToStringA(document, &narrow[0], &length), 1);
    EXPECT_STREQ(narrow.c_str(), whole.c_str());
}

TEST(AskThenFill, EveryEditBetweenTheCallsGivesTheNewText) {
    for (const NamedEdit &edit : Edits()) {
        SCOPED_TRACE(edit.label);
        Document document = Loaded(kEditedXml);
        Document other = Loaded(kOtherXml);
        const Nodes nodes = Find(document, other);
        const WString before = FillLarge(document);
        Ask(document);
        edit.apply(document, other, nodes);
        const WString after = FillLarge(document);
        EXPECT_NE(after, before);
        EXPECT_EQ(after, XercesWriteToString(document));
    }
}

// A read on the handle between the calls drops the kept text too; the
// next call serialises afresh and still gives the same text.
TEST(AskThenFill, AReadBetweenTheCallsStillGivesTheSameText) {
    Document document = Loaded(kEditedXml);
    const int32_t length = Ask(document);
    EXPECT_NE(ZuXmlGetRootNode(document), nullptr);
    EXPECT_EQ(Fill(document, length), XercesWriteToString(document));
}

TEST(AskThenFill, ABufferStillTooSmallKeepsTheTextForTheCallAfter) {
    Document document = Loaded(kEditedXml);
    const int32_t length = Ask(document);
    int32_t shorter = length - 1;
    WString buffer(static_cast<size_t>(length), ZuXmlWChar(0x7E));
    EXPECT_EQ(ZuXmlWriteToStringW(document, &buffer[0], &shorter), 0);
    EXPECT_EQ(shorter, length);
    EXPECT_EQ(buffer, WString(static_cast<size_t>(length), ZuXmlWChar(0x7E)));
    EXPECT_EQ(Fill(document, length), XercesWriteToString(document));
}

TEST(AskThenFill, TextKeptForOneHandleIsNeverHandedOutByAnother) {
    Document first = Loaded(kEditedXml);
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
        Document document = Loaded(kEditedXml);
        Ask(document);
    }
    // An edit of another document after the release reaches nothing freed.
    EXPECT_EQ(ZuXmlSetNodeTextContentA(other, nodes.otherP, "x"), 1);
    EXPECT_EQ(FillLarge(other), XercesWriteToString(other));
}

} // namespace
