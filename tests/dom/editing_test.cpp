// SPDX-License-Identifier: Apache-2.0
// Changing the tree: adding elements and comments, copying nodes in,
// removing nodes and replacing text.
#include <gtest/gtest.h>

#include "dom_support.h"
#include "failure_table.h"

using namespace zuxml_dom_test;
using zuxml_test::ScopedLocale;

namespace {

ZuXmlNode AddElement(ZuXmlDocument document, ZuXmlNode parent, const char16_t *name, uint16_t type = 1,
                     const char16_t *text = nullptr, const char16_t *nameSpace = nullptr) {
    const WString n = W(name), t = text ? W(text) : WString(), s = nameSpace ? W(nameSpace) : WString();
    return ZuXmlAddNodeW(document, parent, n.c_str(), type, text ? t.c_str() : nullptr,
                         nameSpace ? s.c_str() : nullptr);
}

ZuXmlNode AddComment(ZuXmlDocument document, ZuXmlNode parent, const char16_t *text) {
    return ZuXmlAddCommentW(document, parent, W(text).c_str());
}

// Checks that a failed edit left the document as it was.
class Unchanged {
public:
    explicit Unchanged(ZuXmlDocument document) : m_hDocument(document), m_Before(Serialised(document)) {}
    ::testing::AssertionResult operator()() const {
        const auto after = Serialised(m_hDocument);
        if (after == m_Before)
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "the document changed";
    }

private:
    ZuXmlDocument m_hDocument;
    std::optional<WString> m_Before;
};

// --- Adding elements -------------------------------------------------------------

TEST(AddNode, NullParentAppendsToTheRootAsItsLastChild) {
    Document document = Loaded("<r><first/></r>");
    ZuXmlNode item = AddElement(document, nullptr, u"item");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(ZuXmlGetLastChild(document, ZuXmlGetRootNode(document)), item);
    EXPECT_EQ(ZuXmlGetParentNode(document, item), ZuXmlGetRootNode(document));
    EXPECT_EQ(NodeName(document, item), W(u"item"));
    EXPECT_EQ(ZuXmlGetNodeType(document, item), 1);
    EXPECT_EQ(ZuXmlGetFirstChild(document, item), nullptr) << "neither text nor children";
    EXPECT_EQ(Serialised(document),
              W(u"<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"no\" ?><r><first/><item/></r>"));
}

TEST(AddNode, GivenParentGetsTheNewElementLast) {
    Document document = Loaded("<r><p><a/></p></r>");
    ZuXmlNode p = Child(document, nullptr, u"p");
    ZuXmlNode item = AddElement(document, p, u"item");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(ZuXmlGetLastChild(document, p), item);
    EXPECT_EQ(ChildCount(document, p), 2);
}

class AddNodeOfOtherType : public ::testing::TestWithParam<uint16_t> {};

TEST_P(AddNodeOfOtherType, GivesNullAndLeavesTheDocumentUnchanged) {
    Document document = Loaded("<r><a/></r>");
    Unchanged unchanged(document);
    EXPECT_EQ(AddElement(document, nullptr, u"item", GetParam()), nullptr);
    EXPECT_EQ(AddElement(document, nullptr, u"item", GetParam(), u"text"), nullptr);
    EXPECT_TRUE(unchanged());
}

INSTANTIATE_TEST_SUITE_P(Types, AddNodeOfOtherType, ::testing::Values(0, 2, 3, 4, 8, 9, 10, 257, 65535));

TEST(AddNode, WithNamespaceTheQualifiedNameSplitsIntoPrefixAndLocalName) {
    Document document = Loaded("<r/>");
    ZuXmlNode item = AddElement(document, nullptr, u"p:item", 1, nullptr, u"urn:example");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(NodeName(document, item), W(u"p:item"));
    EXPECT_EQ(LocalNameAndPrefix(document, item), std::make_pair(W(u"item"), W(u"p")));
    EXPECT_EQ(Namespace(document, item), W(u"urn:example"));
}

TEST(AddNode, WithoutNamespaceTheLocalNameReadsEmpty) {
    Document document = Loaded("<r xmlns=\"urn:d\"/>");
    ZuXmlNode item = AddElement(document, nullptr, u"item");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(LocalNameAndPrefix(document, item), std::make_pair(W(u""), W(u"")))
        << "an element made without a namespace has no DOM local name";
    EXPECT_TRUE(WideGetterFails([&](ZuXmlWChar *b, int32_t *n) {
        return ZuXmlGetNodeNamespaceW(document, item, b, n);
    })) << "nor a namespace, although its parent has a default one";
}

TEST(AddNode, WithTextTheElementHasOneTextChild) {
    Document document = Loaded("<r/>");
    ZuXmlNode item = AddElement(document, nullptr, u"item", 1, u"abc");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(ChildCount(document, item), 1);
    ZuXmlNode text = ZuXmlGetFirstChild(document, item);
    EXPECT_EQ(ZuXmlGetNodeType(document, text), 3);
    EXPECT_EQ(TextContent(document, text), W(u"abc"));
}

TEST(AddNode, TextOutsideTheBmpIsKeptUnchanged) {
    Document document = Loaded("<r/>");
    ZuXmlNode item = AddElement(document, nullptr, u"item", 1, u"\u4e2d\U0001F600<&>");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(TextContent(document, item), W(u"\u4e2d\U0001F600<&>"));
    EXPECT_EQ(Serialised(document), W(u"<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"no\" ?>"
                                      u"<r><item>\u4e2d\U0001F600&lt;&amp;&gt;</item></r>"));
}

TEST(AddNode, UnderATextNodeGivesNullAndLeavesNoNewNode) {
    Document document = Loaded("<r>text</r>");
    Unchanged unchanged(document);
    ZuXmlNode text = ZuXmlGetFirstChild(document, nullptr);
    ASSERT_EQ(ZuXmlGetNodeType(document, text), 3);
    EXPECT_EQ(AddElement(document, text, u"item"), nullptr);
    EXPECT_EQ(AddElement(document, text, u"item", 1, u"abc", u"urn:x"), nullptr);
    EXPECT_TRUE(unchanged());
}

TEST(AddNode, UnderAParentOfAnotherDocumentGivesNull) {
    Document document = Loaded("<r/>");
    Document other = Loaded("<other/>");
    Unchanged unchangedOther(other);
    EXPECT_EQ(AddElement(document, ZuXmlGetRootNode(other), u"item", 1, u"text"), nullptr);
    EXPECT_TRUE(unchangedOther());
}

class InvalidElementName : public ::testing::TestWithParam<std::pair<const char16_t *, const char16_t *>> {};

TEST_P(InvalidElementName, GivesNullAndCreatesNothing) {
    Document document = Loaded("<r/>");
    Unchanged unchanged(document);
    EXPECT_EQ(AddElement(document, nullptr, GetParam().first, 1, u"text", GetParam().second), nullptr);
    EXPECT_TRUE(unchanged());
}

INSTANTIATE_TEST_SUITE_P(Names, InvalidElementName,
                         ::testing::Values(std::make_pair(u"1x", nullptr), std::make_pair(u"", nullptr),
                                           std::make_pair(u"a b", nullptr), std::make_pair(u"1x", u"urn:x"),
                                           std::make_pair(u"p:", u"urn:x"), std::make_pair(u"xml:a", u"urn:x"),
                                           std::make_pair(u"p:a", u"")));

TEST(AddNode, NullNameGivesNull) {
    Document document = Loaded("<r/>");
    Unchanged unchanged(document);
    EXPECT_EQ(ZuXmlAddNodeW(document, nullptr, nullptr, 1, nullptr, nullptr), nullptr);
    EXPECT_EQ(ZuXmlAddNodeA(document, nullptr, nullptr, 1, "text", "urn:x"), nullptr);
    EXPECT_TRUE(unchanged());
}

TEST(AddNode, DocumentNodeTakesANewRootAfterTheOldOneWasRemoved) {
    Document document = Loaded("<old/>");
    ZuXmlNode documentNode = ZuXmlGetParentNode(document, ZuXmlGetRootNode(document));
    EXPECT_EQ(AddElement(document, documentNode, u"second"), nullptr) << "a document has one root element";
    ASSERT_EQ(ZuXmlRemoveNode(document, ZuXmlGetRootNode(document)), 1);
    ZuXmlNode fresh = AddElement(document, documentNode, u"fresh");
    ASSERT_NE(fresh, nullptr);
    EXPECT_EQ(ZuXmlGetRootNode(document), fresh);
}

TEST(AddNodeNarrow, EmptyNamespaceIsStillANamespaceArgument) {
    // Xerces makes an element with an empty namespace URI namespace-aware,
    // with no namespace: it has a local name, which createElement's has not.
    Document document = Loaded("<r/>");
    ZuXmlNode withEmpty = ZuXmlAddNodeA(document, nullptr, "item", 1, nullptr, "");
    ASSERT_NE(withEmpty, nullptr);
    EXPECT_EQ(LocalNameAndPrefix(document, withEmpty), std::make_pair(W(u"item"), W(u"")));
    ZuXmlNode withNull = ZuXmlAddNodeA(document, nullptr, "item", 1, nullptr, nullptr);
    ASSERT_NE(withNull, nullptr);
    EXPECT_EQ(LocalNameAndPrefix(document, withNull), std::make_pair(W(u""), W(u"")));
}

TEST(AddNodeNarrow, EmptyTextIsStillText) {
    // Xerces' setTextContent with the empty string leaves one empty text
    // child; without text there is none.
    Document document = Loaded("<r/>");
    ZuXmlNode withEmpty = ZuXmlAddNodeA(document, nullptr, "a", 1, "", nullptr);
    ASSERT_NE(withEmpty, nullptr);
    EXPECT_EQ(ChildCount(document, withEmpty), 1);
    ZuXmlNode withNull = ZuXmlAddNodeA(document, nullptr, "b", 1, nullptr, nullptr);
    ASSERT_NE(withNull, nullptr);
    EXPECT_EQ(ChildCount(document, withNull), 0);
}

TEST(AddNodeNarrow, ArgumentsAreConvertedInTheLocale) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document = Loaded("<r/>");
    ZuXmlNode item =
        ZuXmlAddNodeA(document, nullptr, "p:caf\xc3\xa9", 1, "\xe2\x82\xac \xf0\x9f\x98\x80", "urn:\xc3\xa9");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(NodeName(document, item), W(u"p:caf\u00e9"));
    EXPECT_EQ(TextContent(document, item), W(u"\u20ac \U0001F600"));
    EXPECT_EQ(Namespace(document, item), W(u"urn:\u00e9"));
}

TEST(AddNodeNarrow, NameInvalidInTheLocaleBecomesEmptyAndFails) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document = Loaded("<r/>");
    Unchanged unchanged(document);
    EXPECT_EQ(ZuXmlAddNodeA(document, nullptr, "item\xff", 1, nullptr, nullptr), nullptr);
    EXPECT_TRUE(unchanged());
}

#if !defined(_WIN32) // Windows' "C" locale takes every byte as Latin-1: tests/windows
TEST(AddNodeNarrow, TextInvalidInTheLocaleBecomesEmpty) {
    ScopedLocale locale("C");
    ASSERT_TRUE(locale.ok());
    Document document = Loaded("<r/>");
    ZuXmlNode item = ZuXmlAddNodeA(document, nullptr, "item", 1, "caf\xc3\xa9", nullptr);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(TextContent(document, item), W(u""));
    EXPECT_EQ(ChildCount(document, item), 1) << "empty text, not no text";
}
#endif

// --- Adding comments ----------------------------------------------------------

TEST(AddComment, NullParentAppendsToTheRoot) {
    Document document = Loaded("<r><a/></r>");
    ZuXmlNode comment = AddComment(document, nullptr, u" note ");
    ASSERT_NE(comment, nullptr);
    EXPECT_EQ(ZuXmlGetLastChild(document, ZuXmlGetRootNode(document)), comment);
    EXPECT_EQ(ZuXmlGetNodeType(document, comment), 8);
    EXPECT_EQ(TextContent(document, comment), W(u" note "));
}

TEST(AddComment, GivenParentAndTheNarrowForm) {
    Document document = Loaded("<r><a/></r>");
    ZuXmlNode a = Child(document, nullptr, u"a");
    ZuXmlNode comment = ZuXmlAddCommentA(document, a, "narrow");
    ASSERT_NE(comment, nullptr);
    EXPECT_EQ(ZuXmlGetParentNode(document, comment), a);
    EXPECT_EQ(TextContent(document, comment), W(u"narrow"));
}

TEST(AddComment, DocumentNodeTakesACommentBesideTheRoot) {
    Document document = Loaded("<r/>");
    ZuXmlNode documentNode = ZuXmlGetParentNode(document, ZuXmlGetRootNode(document));
    ZuXmlNode comment = AddComment(document, documentNode, u"top");
    ASSERT_NE(comment, nullptr);
    EXPECT_EQ(ZuXmlGetLastChild(document, documentNode), comment);
    EXPECT_EQ(Serialised(document), W(u"<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"no\" ?><r/><!--top-->"));
}

TEST(AddComment, NullTextGivesNull) {
    Document document = Loaded("<r/>");
    Unchanged unchanged(document);
    EXPECT_EQ(ZuXmlAddCommentW(document, nullptr, nullptr), nullptr);
    EXPECT_EQ(ZuXmlAddCommentA(document, nullptr, nullptr), nullptr);
    EXPECT_TRUE(unchanged());
}

TEST(AddComment, UnderATextNodeGivesNullAndLeavesNoNewNode) {
    Document document = Loaded("<r>text</r>");
    Unchanged unchanged(document);
    EXPECT_EQ(AddComment(document, ZuXmlGetFirstChild(document, nullptr), u"c"), nullptr);
    EXPECT_TRUE(unchanged());
}

TEST(AddComment, UnderAParentOfAnotherDocumentGivesNull) {
    Document document = Loaded("<r/>");
    Document other = Loaded("<other/>");
    Unchanged unchangedOther(other);
    EXPECT_EQ(AddComment(document, ZuXmlGetRootNode(other), u"c"), nullptr);
    EXPECT_TRUE(unchangedOther());
}

// --- Copying nodes in ------------------------------------------------------------

constexpr const char *kSource = "<src><item a=\"1\" b=\"2\">text<child><leaf/></child><!--c--></item></src>";
constexpr char16_t kItemDeep[] = u"<item a=\"1\" b=\"2\">text<child><leaf/></child><!--c--></item>";
constexpr char16_t kItemShallow[] = u"<item a=\"1\" b=\"2\"/>";
constexpr char16_t kDeclaration[] = u"<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"no\" ?>";

struct CopyCase {
    int32_t deep;
    const char16_t *copied;
};

class AddNodeExisting : public ::testing::TestWithParam<CopyCase> {};

TEST_P(AddNodeExisting, FromAnotherDocumentCopiesAsTheFlagSaysAndLeavesTheSource) {
    Document source = Loaded(kSource);
    Unchanged unchangedSource(source);
    Document document = Loaded("<dst><first/></dst>");
    ZuXmlNode item = Child(source, nullptr, u"item");
    ZuXmlNode copy = ZuXmlAddNodeExisting(document, nullptr, item, GetParam().deep);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, item);
    EXPECT_EQ(ZuXmlGetLastChild(document, ZuXmlGetRootNode(document)), copy);
    EXPECT_EQ(ZuXmlGetParentNode(document, copy), ZuXmlGetRootNode(document));
    EXPECT_EQ(Serialised(document), W(kDeclaration) + W(u"<dst><first/>") + W(GetParam().copied) + W(u"</dst>"));
    EXPECT_TRUE(unchangedSource());
    EXPECT_EQ(ZuXmlGetParentNode(source, item), ZuXmlGetRootNode(source)) << "the source stays where it was";
}

TEST_P(AddNodeExisting, FromTheSameDocumentUnderAGivenParent) {
    Document document = Loaded("<dst><into/></dst>");
    ZuXmlNode into = Child(document, nullptr, u"into");
    ZuXmlNode source = ZuXmlAddNodeExisting(document, nullptr, Child(Loaded(kSource), nullptr, u"item"), 1);
    ASSERT_NE(source, nullptr);
    ZuXmlNode copy = ZuXmlAddNodeExisting(document, into, source, GetParam().deep);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(ZuXmlGetParentNode(document, copy), into);
    EXPECT_EQ(Serialised(document),
              W(kDeclaration) + W(u"<dst><into>") + W(GetParam().copied) + W(u"</into>") + W(kItemDeep) + W(u"</dst>"));
}

INSTANTIATE_TEST_SUITE_P(Flags, AddNodeExisting,
                         ::testing::Values(CopyCase{1, kItemDeep}, CopyCase{0, kItemShallow}, CopyCase{2, kItemShallow},
                                           CopyCase{-1, kItemShallow}));

TEST(AddNodeExistingFailure, NullSourceGivesNull) {
    Document document = Loaded("<r/>");
    Unchanged unchanged(document);
    EXPECT_EQ(ZuXmlAddNodeExisting(document, nullptr, nullptr, 1), nullptr);
    EXPECT_TRUE(unchanged());
}

TEST(AddNodeExistingFailure, DocumentOrDocumentTypeSourceGivesNull) {
    Document source = Loaded("<!DOCTYPE s><s/>");
    ZuXmlNode sourceDocument = ZuXmlGetParentNode(source, ZuXmlGetRootNode(source));
    ZuXmlNode sourceType = ZuXmlGetFirstChild(source, sourceDocument);
    ASSERT_EQ(ZuXmlGetNodeType(source, sourceType), 10);
    Document document = Loaded("<r/>");
    Unchanged unchanged(document);
    EXPECT_EQ(ZuXmlAddNodeExisting(document, nullptr, sourceDocument, 1), nullptr);
    EXPECT_EQ(ZuXmlAddNodeExisting(document, nullptr, sourceType, 0), nullptr);
    EXPECT_TRUE(unchanged());
}

TEST(AddNodeExistingFailure, UnderATextNodeGivesNull) {
    Document document = Loaded("<r>text<a/></r>");
    Unchanged unchanged(document);
    EXPECT_EQ(ZuXmlAddNodeExisting(document, ZuXmlGetFirstChild(document, nullptr), Child(document, nullptr, u"a"), 1),
              nullptr);
    EXPECT_TRUE(unchanged());
}

TEST(AddNodeExistingFailure, UnderAParentOfAnotherDocumentGivesNull) {
    Document document = Loaded("<r><a/></r>");
    Document other = Loaded("<other/>");
    Unchanged unchangedOther(other);
    EXPECT_EQ(ZuXmlAddNodeExisting(document, ZuXmlGetRootNode(other), Child(document, nullptr, u"a"), 1), nullptr);
    EXPECT_TRUE(unchangedOther());
}

// --- Removing ---------------------------------------------------------------------

TEST(RemoveNode, RemovesTheNodeWithItsSubtree) {
    Document document = Loaded("<r><a><b><c/></b></a><d/></r>");
    ASSERT_EQ(ZuXmlRemoveNode(document, Child(document, nullptr, u"a")), 1);
    EXPECT_EQ(Serialised(document), W(kDeclaration) + W(u"<r><d/></r>"));
}

TEST(RemoveNode, TextAndCommentNodesToo) {
    Document document = Loaded("<r>text<!--c--><a/></r>");
    ASSERT_EQ(ZuXmlRemoveNode(document, Child(document, nullptr, u"#text")), 1);
    ASSERT_EQ(ZuXmlRemoveNode(document, Child(document, nullptr, u"#comment")), 1);
    EXPECT_EQ(Serialised(document), W(kDeclaration) + W(u"<r><a/></r>"));
}

TEST(RemoveNode, RootElementLeavesADocumentWithoutRoot) {
    Document document = Loaded("<r><a/></r>");
    ASSERT_EQ(ZuXmlRemoveNode(document, ZuXmlGetRootNode(document)), 1);
    EXPECT_EQ(ZuXmlGetRootNode(document), nullptr);
    EXPECT_EQ(AddElement(document, nullptr, u"item"), nullptr);
    EXPECT_EQ(AddComment(document, nullptr, u"c"), nullptr) << "no root for a NULL parent";
    Document other = Loaded("<o><x/></o>");
    EXPECT_EQ(ZuXmlAddNodeExisting(document, nullptr, Child(other, nullptr, u"x"), 1), nullptr);
    EXPECT_EQ(ZuXmlGetFirstChild(document, nullptr), nullptr);
    EXPECT_EQ(Serialised(document), W(kDeclaration));
}

TEST(RemoveNode, NodeOfAnotherDocumentIsRemovedFromItsOwn) {
    Document document = Loaded("<r/>");
    Document other = Loaded("<o><x/><y/></o>");
    EXPECT_EQ(ZuXmlRemoveNode(document, Child(other, nullptr, u"x")), 1);
    EXPECT_EQ(Serialised(other), W(kDeclaration) + W(u"<o><y/></o>"));
    EXPECT_EQ(Serialised(document), W(kDeclaration) + W(u"<r/>"));
}

TEST(RemoveNode, DocumentNodeAnswersZero) {
    Document document = Loaded("<r/>");
    Unchanged unchanged(document);
    EXPECT_EQ(ZuXmlRemoveNode(document, ZuXmlGetParentNode(document, ZuXmlGetRootNode(document))), 0);
    EXPECT_TRUE(unchanged());
}

TEST(RemoveNode, BuiltDocumentLosesItsDocumentType) {
    Document document = Built(u"root", nullptr, u"root.dtd");
    ZuXmlNode documentNode = ZuXmlGetParentNode(document, ZuXmlGetRootNode(document));
    ASSERT_EQ(ZuXmlRemoveNode(document, ZuXmlGetFirstChild(document, documentNode)), 1);
    EXPECT_EQ(Serialised(document), W(kDeclaration) + W(u"<root/>"));
}

// --- Replacing text ------------------------------------------------------------------

TEST(SetNodeTextContent, ReplacesAllChildrenWithOneText) {
    Document document = Loaded("<r><a>x<b/>y</a></r>");
    ZuXmlNode a = Child(document, nullptr, u"a");
    ASSERT_EQ(ZuXmlSetNodeTextContentW(document, a, W(u"new <text> & \U0001F600").c_str()), 1);
    EXPECT_EQ(ChildCount(document, a), 1);
    EXPECT_EQ(TextContent(document, a), W(u"new <text> & \U0001F600"));
    EXPECT_EQ(Serialised(document), W(kDeclaration) + W(u"<r><a>new &lt;text&gt; &amp; \U0001F600</a></r>"));
}

TEST(SetNodeTextContent, NullTextOnAnElementWithChildrenLeavesItEmpty) {
    Document document = Loaded("<r><a>x<b/>y</a></r>");
    ZuXmlNode a = Child(document, nullptr, u"a");
    ASSERT_EQ(ZuXmlSetNodeTextContentW(document, a, nullptr), 1);
    EXPECT_EQ(ZuXmlGetFirstChild(document, a), nullptr);
    EXPECT_EQ(Serialised(document), W(kDeclaration) + W(u"<r><a/></r>"));
}

// The replaced children leave the tree but are not destroyed: their handles
// still read, and removing one answers 0 (it has no parent), while the nodes
// below it still come out of it.
TEST(SetNodeTextContent, ReplacedChildrenLeaveTheTreeAndStayReadable) {
    Document document = Loaded("<r><a>x<b><c/></b></a></r>");
    ZuXmlNode a = Child(document, nullptr, u"a");
    ZuXmlNode b = Child(document, a, u"b");
    ZuXmlNode c = Child(document, b, u"c");
    ASSERT_EQ(ZuXmlSetNodeTextContentW(document, a, W(u"new").c_str()), 1);
    EXPECT_EQ(ZuXmlGetParentNode(document, b), nullptr);
    EXPECT_EQ(NodeName(document, b), W(u"b"));
    EXPECT_EQ(ZuXmlGetFirstChild(document, b), c);
    EXPECT_EQ(ZuXmlRemoveNode(document, b), 0);
    EXPECT_EQ(ZuXmlRemoveNode(document, c), 1);
    EXPECT_EQ(ZuXmlGetFirstChild(document, b), nullptr);
    EXPECT_EQ(Serialised(document), W(kDeclaration) + W(u"<r><a>new</a></r>"));
}

TEST(SetNodeTextContent, TextAndCommentNodesTakeTheText) {
    Document document = Loaded("<r>old<!--old--></r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    ASSERT_EQ(ZuXmlSetNodeTextContentW(document, ZuXmlGetFirstChild(document, root), W(u"new").c_str()), 1);
    ASSERT_EQ(ZuXmlSetNodeTextContentW(document, ZuXmlGetLastChild(document, root), W(u"remark").c_str()), 1);
    EXPECT_EQ(Serialised(document), W(kDeclaration) + W(u"<r>new<!--remark--></r>"));
}

TEST(SetNodeTextContentNarrow, NullEmptiesAndEmptyStringLeavesAnEmptyText) {
    // Xerces' setTextContent: no text removes every child; the empty string
    // leaves one empty text child.
    Document document = Loaded("<r><a>x<b/></a><c>y</c></r>");
    ZuXmlNode a = Child(document, nullptr, u"a");
    ZuXmlNode c = Child(document, nullptr, u"c");
    ASSERT_EQ(ZuXmlSetNodeTextContentA(document, a, nullptr), 1);
    EXPECT_EQ(ChildCount(document, a), 0);
    ASSERT_EQ(ZuXmlSetNodeTextContentA(document, c, ""), 1);
    EXPECT_EQ(ChildCount(document, c), 1);
    EXPECT_EQ(TextContent(document, c), W(u""));
}

TEST(SetNodeTextContentNarrow, TextIsConvertedInTheLocale) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document = Loaded("<r/>");
    ASSERT_EQ(ZuXmlSetNodeTextContentA(document, ZuXmlGetRootNode(document), "caf\xc3\xa9"), 1);
    EXPECT_EQ(TextContent(document, ZuXmlGetRootNode(document)), W(u"caf\u00e9"));
    ASSERT_EQ(ZuXmlSetNodeTextContentA(document, ZuXmlGetRootNode(document), "bad\xff"), 1);
    EXPECT_EQ(TextContent(document, ZuXmlGetRootNode(document)), W(u"")) << "invalid in the locale: empty";
}

// --- Read-only nodes ----------------------------------------------------------------

// The children of an entity reference are read-only in Xerces: every change
// raises a DOM exception, which each edit turns into its failure value.
class ReadOnlyElement : public ::testing::Test {
protected:
    Document document = Loaded("<!DOCTYPE r [<!ENTITY e \"<x a='1'>t</x>\">]><r>&e;<free/></r>");
    ZuXmlNode reference = ZuXmlGetFirstChild(document, nullptr);
    ZuXmlNode x = ZuXmlGetFirstChild(document, reference);
    Unchanged unchanged{document};

    void SetUp() override {
        ASSERT_EQ(ZuXmlGetNodeType(document, reference), 5);
        ASSERT_EQ(NodeName(document, x), W(u"x"));
    }
};

TEST_F(ReadOnlyElement, AddingUnderItGivesNullAndLeavesNoNode) {
    EXPECT_EQ(AddElement(document, x, u"item", 1, u"text"), nullptr);
    EXPECT_EQ(AddComment(document, x, u"c"), nullptr);
    EXPECT_EQ(ZuXmlAddNodeExisting(document, x, Child(document, nullptr, u"free"), 1), nullptr);
    EXPECT_TRUE(unchanged());
}

TEST_F(ReadOnlyElement, RemovingItAnswersZero) {
    EXPECT_EQ(ZuXmlRemoveNode(document, x), 0);
    EXPECT_TRUE(unchanged());
}

TEST_F(ReadOnlyElement, SettingItsTextAnswersZero) {
    EXPECT_EQ(ZuXmlSetNodeTextContentW(document, x, W(u"new").c_str()), 0);
    EXPECT_EQ(ZuXmlSetNodeTextContentA(document, x, nullptr), 0);
    EXPECT_TRUE(unchanged());
}

TEST_F(ReadOnlyElement, TheReferenceItselfCanBeRemoved) {
    EXPECT_EQ(ZuXmlRemoveNode(document, reference), 1);
    EXPECT_EQ(ZuXmlGetFirstChild(document, nullptr), Child(document, nullptr, u"free"));
}

// --- Failure values --------------------------------------------------------------

const FailingCall kEditingCalls[] = {
    {"AddNodeW", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(AddElement(d, n, u"item", 1, u"t")); }},
    {"AddNodeA", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlAddNodeA(d, n, "item", 1, "t", "urn:x")); }},
    {"AddCommentW", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(AddComment(d, n, u"c")); }},
    {"AddCommentA", [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlAddCommentA(d, n, "c")); }},
    {"AddNodeExisting",
     [](ZuXmlDocument d, ZuXmlNode n) {
         Document other = Loaded("<o><x/></o>");
         return IsNullNode(ZuXmlAddNodeExisting(d, n, Child(other, nullptr, u"x"), 1));
     }},
    {"AddNodeExistingOfItself",
     [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlAddNodeExisting(d, nullptr, n, 1)); }},
    {"RemoveNode", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlRemoveNode(d, n)); }},
    {"SetNodeTextContentW",
     [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlSetNodeTextContentW(d, n, W(u"t").c_str())); }},
    {"SetNodeTextContentA",
     [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlSetNodeTextContentA(d, n, "t")); }},
};

// With a NULL node the adding operations use the root, so only the
// operations that take a node as their object fail.
const FailingCall kEditingCallsOnANode[] = {
    {"AddNodeExisting",
     [](ZuXmlDocument d, ZuXmlNode n) { return IsNullNode(ZuXmlAddNodeExisting(d, nullptr, n, 1)); }},
    {"RemoveNode", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlRemoveNode(d, n)); }},
    {"SetNodeTextContentW",
     [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlSetNodeTextContentW(d, n, W(u"t").c_str())); }},
    {"SetNodeTextContentA",
     [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlSetNodeTextContentA(d, n, "t")); }},
};

INSTANTIATE_TEST_SUITE_P(Editing, FailsForNullNode, ::testing::ValuesIn(kEditingCallsOnANode), CallName);
INSTANTIATE_TEST_SUITE_P(Editing, FailsWithoutDocument, ::testing::ValuesIn(kEditingCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Editing, FailsForNullDocument, ::testing::ValuesIn(kEditingCalls), CallName);

TEST(EditingWithoutDocument, NullParentsFailToo) {
    Document document(ZuXmlCreateDocument());
    EXPECT_EQ(AddElement(document, nullptr, u"item"), nullptr);
    EXPECT_EQ(AddComment(document, nullptr, u"c"), nullptr);
    Document other = Loaded("<o><x/></o>");
    EXPECT_EQ(ZuXmlAddNodeExisting(document, nullptr, Child(other, nullptr, u"x"), 1), nullptr);
    EXPECT_EQ(ChildCount(other, ZuXmlGetRootNode(other)), 1) << "the source is untouched";
}

} // namespace
