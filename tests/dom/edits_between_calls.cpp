// SPDX-License-Identifier: Apache-2.0
#include "edits_between_calls.h"

#include <gtest/gtest.h>

#include "dom_support.h"

namespace zuxml_dom_test {

namespace {

ZuXmlNode Element(ZuXmlDocument document, const char16_t *name) { return Child(document, nullptr, name); }

} // namespace

Nodes Find(ZuXmlDocument document, ZuXmlDocument other) {
    return {Element(document, u"c"), Element(document, u"d"), ZuXmlGetRootNode(document), Element(other, u"p")};
}

const std::vector<NamedEdit> &Edits() {
    static const std::vector<NamedEdit> edits = {
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
         },
         true},
        {"LoadFromBufW",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &) {
             const WString text = W(u"<w>wide</w>");
             EXPECT_EQ(ZuXmlLoadFromBufW(h, text.c_str(), static_cast<uint32_t>(text.size())), 1);
         },
         true},
        {"LoadFromFileW",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &) {
             ScratchDirectory scratch;
             WriteBytes(scratch.File("f.xml"), kOtherXml);
             EXPECT_EQ(ZuXmlLoadFromFileW(h, WideOf(scratch.File("f.xml")).c_str()), 1);
         },
         true},
        {"LoadFromFileA",
         [](ZuXmlDocument h, ZuXmlDocument, const Nodes &) {
             ScratchDirectory scratch;
             WriteBytes(scratch.File("f.xml"), "<f/>");
             EXPECT_EQ(ZuXmlLoadFromFileA(h, NarrowOf(scratch.File("f.xml")).c_str()), 1);
         },
         true},
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

} // namespace zuxml_dom_test
