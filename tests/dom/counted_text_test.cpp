// SPDX-License-Identifier: Apache-2.0
// Asking for the length of an element's text content, then filling a buffer
// of that length: the call that answered 0 keeps the length it counted for
// the next call on the handle, which then does not count the text again.
// Nothing of that may show: the fill always gives the element's text as it
// is when the fill is made. Every edit between the two calls, through the
// handle or through another handle with this document's nodes, a read of
// another node of another document, and a reload must be answered as if
// nothing had been kept.
#include <gtest/gtest.h>

#include <string>

#include "dom_support.h"
#include "edits_between_calls.h"

using namespace zuxml_dom_test;

namespace {

constexpr ZuXmlWChar kUnwritten = 0x7E;

// The first call: length 0, answered 0 with the length needed.
int32_t Ask(ZuXmlDocument document, ZuXmlNode node) {
    int32_t length = 0;
    EXPECT_EQ(ZuXmlGetNodeTextContentW(document, node, nullptr, &length), 0);
    return length;
}

// A later call with a buffer of length units, as the caller made it.
struct Filled {
    int32_t answer;
    int32_t length;
    WString buffer;
};

Filled Fill(ZuXmlDocument document, ZuXmlNode node, int32_t length) {
    Filled filled{0, length, WString(static_cast<size_t>(length), kUnwritten)};
    filled.answer = ZuXmlGetNodeTextContentW(document, node, &filled.buffer[0], &filled.length);
    return filled;
}

// What a buffer of `asked` units must hold after a call for text `now`:
// the text when it fits, else the buffer untouched and the new length.
void ExpectAnswerFor(const Filled &filled, int32_t asked, const WString &now) {
    if (static_cast<int32_t>(now.size()) < asked) {
        EXPECT_EQ(filled.answer, 1);
        EXPECT_EQ(filled.length, asked);
        EXPECT_EQ(WString(filled.buffer.c_str()), now);
        EXPECT_EQ(filled.buffer.substr(now.size()), WString(static_cast<size_t>(asked) - now.size(), 0));
    } else {
        EXPECT_EQ(filled.answer, 0);
        EXPECT_EQ(filled.length, static_cast<int32_t>(now.size()) + 1);
        EXPECT_EQ(filled.buffer, WString(static_cast<size_t>(asked), kUnwritten));
    }
}

// Many nodes of every kind that counts: elements several levels deep, text,
// CDATA sections, entity references, comments and processing instructions
// that do not count, and non-BMP text.
std::string LargeDocument() {
    std::string xml = "<!DOCTYPE r [<!ENTITY e 'ent <b>ity</b>'>]><r>";
    for (int i = 0; i < 2000; ++i)
        xml += "<a n='" + std::to_string(i) + "'>t" + std::to_string(i) + "<b>&e;<![CDATA[<c>]]></b><!--x--><?p q?>"
               "<c><d>\xf0\x9f\x98\x80</d></c></a>\n";
    return xml + "</r>";
}

TEST(TextContentAskThenFill, TheFillGivesTheElementsText) {
    Document document = Loaded(LargeDocument());
    ZuXmlNode root = ZuXmlGetRootNode(document);
    const WString expected = XercesTextContent(root);
    ASSERT_GT(expected.size(), 20000u);
    const int32_t asked = Ask(document, root);
    EXPECT_EQ(asked, static_cast<int32_t>(expected.size()) + 1);
    const Filled filled = Fill(document, root, asked);
    EXPECT_EQ(filled.answer, 1);
    EXPECT_EQ(filled.buffer.c_str(), expected);
}

TEST(TextContentAskThenFill, NarrowAskThenNarrowFillGivesTheElementsText) {
    zuxml_test::ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document = Loaded("<r>one<i>two</i> &amp; <![CDATA[three]]></r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    int32_t length = 0;
    EXPECT_EQ(ZuXmlGetNodeTextContentA(document, root, nullptr, &length), 0);
    ASSERT_EQ(length, 15);
    std::string buffer(static_cast<size_t>(length), '~');
    EXPECT_EQ(ZuXmlGetNodeTextContentA(document, root, &buffer[0], &length), 1);
    EXPECT_STREQ(buffer.c_str(), "onetwo & three");
}

TEST(TextContentAskThenFill, EveryEditBetweenTheCallsGivesTheNewText) {
    for (const NamedEdit &edit : Edits()) {
        if (edit.reloads)
            continue; // the node asked about is gone: see the next test
        SCOPED_TRACE(edit.label);
        Document document = Loaded(kEditedXml);
        Document other = Loaded(kOtherXml);
        const Nodes nodes = Find(document, other);
        const int32_t asked = Ask(document, nodes.root);
        edit.apply(document, other, nodes);
        ExpectAnswerFor(Fill(document, nodes.root, asked), asked, XercesTextContent(nodes.root));
    }
}

// The edits that change the root's text, so that the test above cannot
// pass on an unchanged text alone.
TEST(TextContentAskThenFill, TheEditsChangeTheTextBothWays) {
    int longer = 0, shorter = 0;
    for (const NamedEdit &edit : Edits()) {
        if (edit.reloads)
            continue;
        Document document = Loaded(kEditedXml);
        Document other = Loaded(kOtherXml);
        const Nodes nodes = Find(document, other);
        const size_t before = XercesTextContent(nodes.root).size();
        edit.apply(document, other, nodes);
        const size_t after = XercesTextContent(nodes.root).size();
        longer += after > before;
        shorter += after < before;
    }
    EXPECT_GE(longer, 3);
    EXPECT_GE(shorter, 2);
}

TEST(TextContentAskThenFill, AReloadBetweenTheCallsGivesTheNewDocumentsText) {
    for (const NamedEdit &edit : Edits()) {
        if (!edit.reloads)
            continue;
        SCOPED_TRACE(edit.label);
        Document document = Loaded(kEditedXml);
        Document other = Loaded(kOtherXml);
        const Nodes nodes = Find(document, other);
        Ask(document, nodes.root);
        edit.apply(document, other, nodes);
        ZuXmlNode root = ZuXmlGetRootNode(document);
        EXPECT_EQ(TextContent(document, root), XercesTextContent(root));
    }
}

// A length is kept only for an element of the handle's own document: an
// edit of another document through that document's own handle does not
// reach this handle.
TEST(TextContentAskThenFill, ANodeOfAnotherDocumentIsCountedAgain) {
    Document document = Loaded(kEditedXml);
    Document other = Loaded(kOtherXml);
    ZuXmlNode otherRoot = ZuXmlGetRootNode(other);
    const int32_t asked = Ask(document, otherRoot);
    ASSERT_EQ(ZuXmlSetNodeTextContentA(other, otherRoot, "a longer text than before"), 1);
    ExpectAnswerFor(Fill(document, otherRoot, asked), asked, XercesTextContent(otherRoot));
}

TEST(TextContentAskThenFill, AReadOfAnotherNodeBetweenTheCallsStillGivesTheText) {
    Document document = Loaded(kEditedXml);
    Document other = Loaded(kOtherXml);
    const Nodes nodes = Find(document, other);
    const int32_t asked = Ask(document, nodes.root);
    EXPECT_EQ(TextContent(document, nodes.c), W(u"text"));
    const Filled filled = Fill(document, nodes.root, asked);
    EXPECT_EQ(filled.answer, 1);
    EXPECT_EQ(filled.buffer.c_str(), W(u"text"));
}

TEST(TextContentAskThenFill, ABufferStillTooSmallKeepsTheLengthForTheCallAfter) {
    Document document = Loaded(kEditedXml);
    ZuXmlNode root = ZuXmlGetRootNode(document);
    const int32_t asked = Ask(document, root);
    const Filled shorter = Fill(document, root, asked - 1);
    EXPECT_EQ(shorter.answer, 0);
    EXPECT_EQ(shorter.length, asked);
    EXPECT_EQ(shorter.buffer, WString(static_cast<size_t>(asked - 1), kUnwritten));
    const Filled filled = Fill(document, root, asked);
    EXPECT_EQ(filled.answer, 1);
    EXPECT_EQ(filled.buffer.c_str(), XercesTextContent(root));
}

// A WriteToString call between the two drops the kept length as well: an
// edit through another handle after it still gives the new text.
TEST(TextContentAskThenFill, AWriteToStringBetweenTheCallsAndAnEditGiveTheNewText) {
    Document document = Loaded(kEditedXml);
    Document other = Loaded(kOtherXml);
    const Nodes nodes = Find(document, other);
    const int32_t asked = Ask(document, nodes.root);
    int32_t length = 0;
    EXPECT_EQ(ZuXmlWriteToStringW(document, nullptr, &length), 0);
    ASSERT_EQ(ZuXmlSetNodeTextContentA(other, nodes.c, "a longer text"), 1);
    ExpectAnswerFor(Fill(document, nodes.root, asked), asked, W(u"a longer text"));
    EXPECT_EQ(Serialised(document), XercesWriteToString(document));
}

// A document that was asked about and never filled is released as usual,
// and an edit of another document afterwards reaches nothing freed.
TEST(TextContentAskThenFill, ReleasingAfterTheAskIsClean) {
    Document other = Loaded(kOtherXml);
    ZuXmlNode otherRoot = ZuXmlGetRootNode(other);
    {
        Document document = Loaded(kEditedXml);
        Ask(document, ZuXmlGetRootNode(document));
    }
    EXPECT_EQ(ZuXmlSetNodeTextContentA(other, otherRoot, "x"), 1);
    EXPECT_EQ(TextContent(other, otherRoot), W(u"x"));
}

} // namespace
