// SPDX-License-Identifier: Apache-2.0
// Walking the tree: root, parent, siblings, children, child search and
// node types.
#include <gtest/gtest.h>

#include "dom_support.h"
#include "failure_table.h"

using namespace zuxml_dom_test;
using zuxml_test::ScopedLocale;

namespace {

// Whitespace between the tags stays: the root's first child is a text node.
constexpr const char *kTree = "<root xmlns:p=\"urn:p\">\n"
                              "  <x><a>grandchild</a></x>\n"
                              "  <a>child</a>\n"
                              "  <p:a>prefixed</p:a>\n"
                              "  <!-- remark -->\n"
                              "  <![CDATA[raw]]>\n"
                              "  <?target data?>\n"
                              "  <last/>\n"
                              "</root>";

class Navigation : public ::testing::Test {
protected:
    Document document = Loaded(kTree);
    ZuXmlNode root = ZuXmlGetRootNode(document);
};

TEST_F(Navigation, RootIsTheDocumentElement) {
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(NodeName(document, root), W(u"root"));
    EXPECT_EQ(ZuXmlGetNodeType(document, root), 1);
}

TEST_F(Navigation, FirstChildOfNullIsTheFirstChildOfTheRootEvenAText) {
    ZuXmlNode first = ZuXmlGetFirstChild(document, nullptr);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, ZuXmlGetFirstChild(document, root));
    EXPECT_EQ(ZuXmlGetNodeType(document, first), 3);
}

TEST_F(Navigation, LastChildOfNullIsNull) {
    EXPECT_EQ(ZuXmlGetLastChild(document, nullptr), nullptr);
    EXPECT_NE(ZuXmlGetLastChild(document, root), nullptr);
}

TEST_F(Navigation, ParentOfTheRootIsTheDocumentNode) {
    ZuXmlNode documentNode = ZuXmlGetParentNode(document, root);
    ASSERT_NE(documentNode, nullptr);
    EXPECT_EQ(ZuXmlGetNodeType(document, documentNode), 9);
    EXPECT_EQ(NodeName(document, documentNode), W(u"#document"));
    EXPECT_EQ(ZuXmlGetParentNode(document, documentNode), nullptr);
    EXPECT_EQ(ZuXmlGetFirstChild(document, documentNode), root);
}

TEST_F(Navigation, SiblingsWalkTheChildrenBothWays) {
    ZuXmlNode last = ZuXmlGetLastChild(document, root);
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(ZuXmlGetNextSibling(document, last), nullptr);
    EXPECT_EQ(ZuXmlGetPriviousSibling(document, ZuXmlGetFirstChild(document, root)), nullptr);

    int forward = 0;
    ZuXmlNode node = ZuXmlGetFirstChild(document, root);
    for (ZuXmlNode next; (next = ZuXmlGetNextSibling(document, node)) != nullptr; node = next) {
        EXPECT_EQ(ZuXmlGetPriviousSibling(document, next), node);
        EXPECT_EQ(ZuXmlGetParentNode(document, next), root);
        ++forward;
    }
    EXPECT_EQ(node, last);
    EXPECT_EQ(forward + 1, ChildCount(document, root));
}

TEST_F(Navigation, ChildSearchFindsADirectChildNotTheRootNorAGrandchild) {
    ZuXmlNode found = Child(document, nullptr, u"a");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(TextContent(document, found), W(u"child"));
    EXPECT_EQ(ZuXmlGetParentNode(document, found), root);
}

TEST(ChildSearch, NameOfOnlyTheRootAndAGrandchildFindsNothing) {
    Document document = Loaded("<a><x><a/></x></a>");
    EXPECT_EQ(Child(document, nullptr, u"a"), nullptr);
}

TEST_F(Navigation, ChildSearchIsCaseSensitiveAndExact) {
    EXPECT_EQ(Child(document, nullptr, u"A"), nullptr);
    EXPECT_EQ(Child(document, nullptr, u"a "), nullptr);
    EXPECT_EQ(Child(document, nullptr, u""), nullptr);
    EXPECT_EQ(Child(document, nullptr, u"las"), nullptr);
}

TEST_F(Navigation, ChildSearchMatchesNodeNamesOfEveryKind) {
    EXPECT_EQ(Child(document, nullptr, u"#text"), ZuXmlGetFirstChild(document, root));
    ZuXmlNode comment = Child(document, nullptr, u"#comment");
    ASSERT_NE(comment, nullptr);
    EXPECT_EQ(ZuXmlGetNodeType(document, comment), 8);
    ZuXmlNode cdata = Child(document, nullptr, u"#cdata-section");
    ASSERT_NE(cdata, nullptr);
    EXPECT_EQ(ZuXmlGetNodeType(document, cdata), 4);
    ZuXmlNode instruction = Child(document, nullptr, u"target");
    ASSERT_NE(instruction, nullptr);
    EXPECT_EQ(ZuXmlGetNodeType(document, instruction), 7);
}

TEST_F(Navigation, PrefixedChildIsFoundByItsQualifiedNameOnly) {
    ZuXmlNode prefixed = Child(document, nullptr, u"p:a");
    ASSERT_NE(prefixed, nullptr);
    EXPECT_EQ(TextContent(document, prefixed), W(u"prefixed"));
    EXPECT_NE(Child(document, nullptr, u"a"), prefixed);
}

TEST_F(Navigation, ChildSearchBelowAGivenParent) {
    ZuXmlNode x = Child(document, nullptr, u"x");
    ASSERT_NE(x, nullptr);
    ZuXmlNode grandchild = Child(document, x, u"a");
    ASSERT_NE(grandchild, nullptr);
    EXPECT_EQ(TextContent(document, grandchild), W(u"grandchild"));
    EXPECT_EQ(Child(document, grandchild, u"#text"), ZuXmlGetFirstChild(document, grandchild));
    EXPECT_EQ(Child(document, Child(document, nullptr, u"last"), u"a"), nullptr) << "no children at all";
}

TEST_F(Navigation, NarrowChildSearchFindsTheSameNodes) {
    EXPECT_EQ(ZuXmlFindChildA(document, nullptr, "a"), Child(document, nullptr, u"a"));
    EXPECT_EQ(ZuXmlFindChildA(document, nullptr, "p:a"), Child(document, nullptr, u"p:a"));
    EXPECT_EQ(ZuXmlFindChildA(document, nullptr, "A"), nullptr);
}

TEST(ChildSearchNarrow, NameIsConvertedInTheLocale) {
    Document document = Loaded("<r><caf\xc3\xa9/></r>");
    ZuXmlNode wide = Child(document, nullptr, u"caf\u00e9");
    ASSERT_NE(wide, nullptr);
    {
        ScopedLocale locale(kUtf8Locale);
        ASSERT_TRUE(locale.ok());
        EXPECT_EQ(ZuXmlFindChildA(document, nullptr, "caf\xc3\xa9"), wide);
    }
    ScopedLocale locale("C");
    EXPECT_EQ(ZuXmlFindChildA(document, nullptr, "caf\xc3\xa9"), nullptr) << "under \"C\" the name became empty";
}

TEST(NodeType, ReportsTheDomCodes) {
    Document document = Loaded("<!DOCTYPE r><r>t<![CDATA[c]]><?pi x?><!--c--><e/></r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    ZuXmlNode documentNode = ZuXmlGetParentNode(document, root);
    EXPECT_EQ(ZuXmlGetNodeType(document, documentNode), 9);
    EXPECT_EQ(ZuXmlGetNodeType(document, ZuXmlGetFirstChild(document, documentNode)), 10);
    const uint16_t expected[] = {3, 4, 7, 8, 1};
    ZuXmlNode node = ZuXmlGetFirstChild(document, root);
    for (uint16_t type : expected) {
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(ZuXmlGetNodeType(document, node), type);
        node = ZuXmlGetNextSibling(document, node);
    }
    EXPECT_EQ(node, nullptr);
}

TEST(ForeignNode, IsReadInItsOwnDocument) {
    Document first = Loaded("<first><a>one</a></first>");
    Document second = Loaded("<second/>");
    ZuXmlNode a = Child(first, nullptr, u"a");
    EXPECT_EQ(NodeName(second, a), W(u"a"));
    EXPECT_EQ(ZuXmlGetParentNode(second, a), ZuXmlGetRootNode(first));
    EXPECT_EQ(Child(second, ZuXmlGetRootNode(first), u"a"), a);
}

// --- Failure values ----------------------------------------------------------

const FailingCall kNavigationCalls[] = {
    {"Parent", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlGetParentNode(d, n)); }},
    {"PreviousSibling", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlGetPriviousSibling(d, n)); }},
    {"NextSibling", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlGetNextSibling(d, n)); }},
    {"LastChild", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlGetLastChild(d, n)); }},
    {"NodeType", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlGetNodeType(d, n)); }},
};

// A NULL node stands for the root element here, so these fail only where
// there is no document.
const FailingCall kRootDefaultingCalls[] = {
    {"Root", [](ZuXmlDocument d, ZuXmlNode) { return IsNullNode(ZuXmlGetRootNode(d)); }},
    {"FirstChild", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlGetFirstChild(d, n)); }},
    {"FirstChildOfNull", [](ZuXmlDocument d, ZuXmlNode) { return IsNullNode(ZuXmlGetFirstChild(d, nullptr)); }},
    {"FindChildW", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlFindChildW(d, n, W(u"c").c_str())); }},
    {"FindChildA", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlFindChildA(d, n, "c")); }},
    {"FindChildOfNull",
     [](ZuXmlDocument d, ZuXmlNode) { return IsNullNode(ZuXmlFindChildW(d, nullptr, W(u"p:r").c_str())); }},
};

INSTANTIATE_TEST_SUITE_P(Navigation, FailsForNullNode, ::testing::ValuesIn(kNavigationCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Navigation, FailsWithoutDocument, ::testing::ValuesIn(kNavigationCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Navigation, FailsForNullDocument, ::testing::ValuesIn(kNavigationCalls), CallName);
INSTANTIATE_TEST_SUITE_P(RootDefaulting, FailsWithoutDocument, ::testing::ValuesIn(kRootDefaultingCalls), CallName);
INSTANTIATE_TEST_SUITE_P(RootDefaulting, FailsForNullDocument, ::testing::ValuesIn(kRootDefaultingCalls), CallName);

TEST(EmptyRoot, FirstChildAndChildSearchFindNothing) {
    Document document = Loaded("<r/>");
    EXPECT_EQ(ZuXmlGetFirstChild(document, nullptr), nullptr);
    EXPECT_EQ(Child(document, nullptr, u"#text"), nullptr);
    EXPECT_EQ(ZuXmlFindChildW(document, nullptr, nullptr), nullptr) << "the name is not read without children";
    EXPECT_EQ(ZuXmlFindChildA(document, nullptr, nullptr), nullptr);
}

} // namespace
