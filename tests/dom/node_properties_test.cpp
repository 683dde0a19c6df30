// SPDX-License-Identifier: Apache-2.0
// Reading a node's name, local name and prefix, text content and namespace.
#include <algorithm>
#include <vector>

#include <gtest/gtest.h>
#include <xercesc/dom/DOMNode.hpp>

#include "dom_support.h"
#include "failure_table.h"
#include "getter_protocol.h"

using namespace zuxml_dom_test;
using zuxml_test::FilledBuffer;
using zuxml_test::ScopedLocale;
using zuxml_test::Sentinel;
using zuxml_test::Untouched;

namespace {

// Large enough for every other output than the one under test.
constexpr int32_t kRoom = 64;

int32_t LocalNameW(ZuXmlDocument d, ZuXmlWChar *b, int32_t *n) {
    ZuXmlWChar other[kRoom];
    int32_t otherLength = kRoom;
    return ZuXmlGetLocalNodeNameW(d, ZuXmlGetRootNode(d), b, n, other, &otherLength);
}

int32_t LocalNameA(ZuXmlDocument d, char *b, int32_t *n) {
    char other[kRoom];
    int32_t otherLength = kRoom;
    return ZuXmlGetLocalNodeNameA(d, ZuXmlGetRootNode(d), b, n, other, &otherLength);
}

int32_t PrefixW(ZuXmlDocument d, ZuXmlWChar *b, int32_t *n) {
    ZuXmlWChar other[kRoom];
    int32_t otherLength = kRoom;
    return ZuXmlGetLocalNodeNameW(d, ZuXmlGetRootNode(d), other, &otherLength, b, n);
}

int32_t PrefixA(ZuXmlDocument d, char *b, int32_t *n) {
    char other[kRoom];
    int32_t otherLength = kRoom;
    return ZuXmlGetLocalNodeNameA(d, ZuXmlGetRootNode(d), other, &otherLength, b, n);
}

// Every getter reads the root element.
#define ROOT_GETTER(function)                                                                                          \
    [](ZuXmlDocument d, auto *b, int32_t *n) { return function(d, ZuXmlGetRootNode(d), b, n); }

const GetterCase kPropertyGetters[] = {
    // Five units: 5 is too small and reports 6, 6 fits, 10 is padded with zeros.
    {"NodeNameOfFiveUnits", "<hello/>", ROOT_GETTER(ZuXmlGetNodeNameW), ROOT_GETTER(ZuXmlGetNodeNameA), u"hello"},
    {"NodeName", "<p:entry xmlns:p=\"urn:p\"/>", ROOT_GETTER(ZuXmlGetNodeNameW), ROOT_GETTER(ZuXmlGetNodeNameA),
     u"p:entry"},
    {"TextContent", "<r>hello <b>world</b></r>", ROOT_GETTER(ZuXmlGetNodeTextContentW),
     ROOT_GETTER(ZuXmlGetNodeTextContentA), u"hello world"},
    {"Namespace", "<p:entry xmlns:p=\"urn:example:one\"/>", ROOT_GETTER(ZuXmlGetNodeNamespaceW),
     ROOT_GETTER(ZuXmlGetNodeNamespaceA), u"urn:example:one"},
    {"LocalName", "<p:entry xmlns:p=\"urn:p\"/>", LocalNameW, LocalNameA, u"entry"},
    {"Prefix", "<pre:entry xmlns:pre=\"urn:p\"/>", PrefixW, PrefixA, u"pre"},
};

ZUXML_GETTER_PROTOCOL_SUITES(Properties, kPropertyGetters);

const GetterCase kMultibyteGetters[] = {
    {"NodeName", "<\xc3\xa9\xc3\xa8\xc3\xaa/>", ROOT_GETTER(ZuXmlGetNodeNameW), ROOT_GETTER(ZuXmlGetNodeNameA),
     u"\u00e9\u00e8\u00ea"},
    {"TextContent", "<r>\xc3\xa9\xc3\xa8\xc3\xaa</r>", ROOT_GETTER(ZuXmlGetNodeTextContentW),
     ROOT_GETTER(ZuXmlGetNodeTextContentA), u"\u00e9\u00e8\u00ea"},
    {"Namespace", "<r xmlns=\"\xc3\xa9\xc3\xa8\xc3\xaa\"/>", ROOT_GETTER(ZuXmlGetNodeNamespaceW),
     ROOT_GETTER(ZuXmlGetNodeNamespaceA), u"\u00e9\u00e8\u00ea"},
    {"LocalName", "<p:\xc3\xa9\xc3\xa8\xc3\xaa xmlns:p=\"urn:p\"/>", LocalNameW, LocalNameA, u"\u00e9\u00e8\u00ea"},
    {"Prefix", "<\xc3\xa9\xc3\xa8\xc3\xaa:r xmlns:\xc3\xa9\xc3\xa8\xc3\xaa=\"urn:p\"/>", PrefixW, PrefixA,
     u"\u00e9\u00e8\u00ea"},
};

INSTANTIATE_TEST_SUITE_P(Properties, MultibyteNarrowGetter, ::testing::ValuesIn(kMultibyteGetters), GetterName);

// --- Names -------------------------------------------------------------------

TEST(NodeName, NamesOfEveryKind) {
    Document document = Loaded("<p:r xmlns:p=\"urn:p\">t<!--c--><![CDATA[d]]><?pi x?></p:r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(NodeName(document, root), W(u"p:r"));
    const char16_t *expected[] = {u"#text", u"#comment", u"#cdata-section", u"pi"};
    ZuXmlNode node = ZuXmlGetFirstChild(document, root);
    for (const char16_t *name : expected) {
        EXPECT_EQ(NodeName(document, node), W(name));
        node = ZuXmlGetNextSibling(document, node);
    }
}

TEST(LocalName, PrefixedLoadedElementSplitsIntoLocalNameAndPrefix) {
    Document document = Loaded("<p:item xmlns:p=\"urn:p\"><item/></p:item>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(LocalNameAndPrefix(document, root), std::make_pair(W(u"item"), W(u"p")));
    EXPECT_EQ(LocalNameAndPrefix(document, ZuXmlGetFirstChild(document, root)), std::make_pair(W(u"item"), W(u"")));
}

TEST(LocalName, NodesWithoutALocalNameGiveTwoEmptyStringsNotTheirNodeName) {
    Document document = Loaded("<r>text<!--c--></r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    const auto empty = std::make_pair(W(u""), W(u""));
    EXPECT_EQ(LocalNameAndPrefix(document, ZuXmlGetFirstChild(document, root)), empty) << "text";
    EXPECT_EQ(LocalNameAndPrefix(document, ZuXmlGetLastChild(document, root)), empty) << "comment";
    EXPECT_EQ(LocalNameAndPrefix(document, ZuXmlGetParentNode(document, root)), empty) << "document";
}

TEST(LocalName, LargeFirstBufferAndOneCharacterSecondOnAPrefixedElement) {
    Document document = Loaded("<pre:item xmlns:pre=\"urn:p\"/>");
    auto local = FilledBuffer<ZuXmlWChar>(16);
    auto prefix = FilledBuffer<ZuXmlWChar>(4);
    int32_t localLength = 16, prefixLength = 1;
    EXPECT_EQ(ZuXmlGetLocalNodeNameW(document, ZuXmlGetRootNode(document), local.data(), &localLength, prefix.data(),
                                     &prefixLength),
              0);
    EXPECT_EQ(WString(local.data()), W(u"item")) << "the buffer that fits is filled";
    EXPECT_EQ(localLength, 16);
    EXPECT_EQ(prefixLength, 4) << "prefix length plus one";
    EXPECT_TRUE(Untouched(prefix));
}

TEST(LocalName, SmallFirstBufferAndLargeSecond) {
    Document document = Loaded("<pre:item xmlns:pre=\"urn:p\"/>");
    auto local = FilledBuffer<ZuXmlWChar>(4);
    auto prefix = FilledBuffer<ZuXmlWChar>(16);
    int32_t localLength = 4, prefixLength = 16;
    EXPECT_EQ(ZuXmlGetLocalNodeNameW(document, ZuXmlGetRootNode(document), local.data(), &localLength, prefix.data(),
                                     &prefixLength),
              0);
    EXPECT_EQ(localLength, 5);
    EXPECT_TRUE(Untouched(local));
    EXPECT_EQ(WString(prefix.data()), W(u"pre"));
    EXPECT_EQ(prefixLength, 16);
}

TEST(LocalName, BothTooSmallReportsBothLengths) {
    Document document = Loaded("<pre:item xmlns:pre=\"urn:p\"/>");
    int32_t localLength = 0, prefixLength = -3;
    EXPECT_EQ(
        ZuXmlGetLocalNodeNameW(document, ZuXmlGetRootNode(document), nullptr, &localLength, nullptr, &prefixLength), 0);
    EXPECT_EQ(localLength, 5);
    EXPECT_EQ(prefixLength, 4);
}

TEST(LocalName, NarrowFormFillsEachBufferOnItsOwn) {
    Document document = Loaded("<pre:item xmlns:pre=\"urn:p\"/>");
    auto local = FilledBuffer<char>(16);
    auto prefix = FilledBuffer<char>(16);
    int32_t localLength = 16, prefixLength = 2;
    EXPECT_EQ(ZuXmlGetLocalNodeNameA(document, ZuXmlGetRootNode(document), local.data(), &localLength, prefix.data(),
                                     &prefixLength),
              0);
    EXPECT_STREQ(local.data(), "item");
    EXPECT_EQ(localLength, 16);
    EXPECT_EQ(prefixLength, 4);
    EXPECT_EQ(prefix[0], 0) << "the too-small narrow buffer holds the empty string";
    EXPECT_EQ(prefix[1], Sentinel<char>::value);

    localLength = 16;
    prefixLength = 16;
    EXPECT_EQ(ZuXmlGetLocalNodeNameA(document, ZuXmlGetRootNode(document), local.data(), &localLength, prefix.data(),
                                     &prefixLength),
              1);
    EXPECT_STREQ(local.data(), "item");
    EXPECT_STREQ(prefix.data(), "pre");
}

// --- Text content ------------------------------------------------------------

TEST(TextContent, ConcatenatesTheTextOfAllDescendants) {
    Document document = Loaded("<r>a<b>b<c>c</c></b><!--not text-->d<![CDATA[e]]></r>");
    EXPECT_EQ(TextContent(document, ZuXmlGetRootNode(document)), W(u"abcde"));
}

TEST(TextContent, DocumentNodeGivesTheEmptyString) {
    Document document = Loaded("<r>text</r>");
    ZuXmlNode documentNode = ZuXmlGetParentNode(document, ZuXmlGetRootNode(document));
    auto buffer = FilledBuffer<ZuXmlWChar>(4);
    int32_t length = 4;
    EXPECT_EQ(ZuXmlGetNodeTextContentW(document, documentNode, buffer.data(), &length), 1);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(length, 4);
}

TEST(TextContent, EmptyElementNeedsOneUnit) {
    Document document = Loaded("<r/>");
    int32_t length = 0;
    EXPECT_EQ(ZuXmlGetNodeTextContentW(document, ZuXmlGetRootNode(document), nullptr, &length), 0);
    EXPECT_EQ(length, 1);
}

TEST(TextContent, CommentAndTextNodesGiveTheirOwnText) {
    Document document = Loaded("<r>plain<!-- remark --></r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(TextContent(document, ZuXmlGetFirstChild(document, root)), W(u"plain"));
    EXPECT_EQ(TextContent(document, ZuXmlGetLastChild(document, root)), W(u" remark "));
}

TEST(TextContent, WideFormKeepsUnitsOutsideTheBmpAndOutsideTheLocale) {
    ScopedLocale locale("C");
    Document document = Loaded("<r>\xe4\xb8\xad a\xf0\x9f\x98\x80z</r>");
    const auto text = TextContent(document, ZuXmlGetRootNode(document));
    EXPECT_EQ(text, W(u"\u4e2d a\U0001F600z"));
}

TEST(TextContent, NarrowFormGivesTextOutsideTheBmpAsOneUtf8Character) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    if (!zuxml_test::RuntimeWritesSupplementaryCharactersWhole())
        GTEST_SKIP() << "this C runtime writes the halves of a surrogate pair as two characters";
    Document document = Loaded("<r>a\xf0\x9f\x98\x80z</r>");
    auto buffer = FilledBuffer<char>(16);
    int32_t length = 5;
    EXPECT_EQ(ZuXmlGetNodeTextContentA(document, ZuXmlGetRootNode(document), buffer.data(), &length), 1)
        << "four wide units and the terminator fit in 5";
    EXPECT_EQ(std::string(buffer.data(), 5), "a\xf0\x9f\x98\x80") << "five bytes: 'a' and the whole character";
    EXPECT_EQ(buffer[5], Sentinel<char>::value) << "'z' and the terminator are cut";

    buffer = FilledBuffer<char>(16);
    length = 16;
    EXPECT_EQ(ZuXmlGetNodeTextContentA(document, ZuXmlGetRootNode(document), buffer.data(), &length), 1);
    EXPECT_STREQ(buffer.data(), "a\xf0\x9f\x98\x80z");
}

TEST(TextContent, LongTextPassesWholeThroughBothForms) {
    const std::string text(100000, 'x');
    Document document = Loaded("<r>" + text + "</r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(TextContent(document, root), WString(text.begin(), text.end()));
    const auto narrow =
        ReadAll<char>([&](char *b, int32_t *n) { return ZuXmlGetNodeTextContentA(document, root, b, n); });
    EXPECT_EQ(narrow, text);
}

constexpr const char *kEveryKindOfContent =
    "<?xml version='1.0'?>\n"
    "<!DOCTYPE r [<!ENTITY plain 'entity text'><!ENTITY nested 'one <i>inner</i> &amp; two'>]>\n"
    "<!-- before -->\n"
    "<r xmlns:p='urn:p' a='attribute'>lead &plain; <p:b>b<c>c<![CDATA[<cdata>]]></c><?pi data?></p:b>"
    "<!--not text-->&nested;<e/><e></e>\xe4\xb8\xad\xf0\x9f\x98\x80 &#233;&lt;tail</r>\n"
    "<?after end?>";

TEST(TextContent, EveryNodeReadsAsXercesReadsIt) {
    Document document = Loaded(kEveryKindOfContent);
    const auto nodes = EveryNode(document);
    ASSERT_GT(nodes.size(), 20u);
    for (size_t i = 0; i < nodes.size(); ++i)
        EXPECT_EQ(TextContent(document, nodes[i]), XercesTextContent(nodes[i])) << "node " << i;
    EXPECT_EQ(TextContent(document, ZuXmlGetRootNode(document)),
              W(u"lead entity text bc<cdata>one inner & two\u4e2d\U0001F600 \u00e9<tail"));
}

TEST(TextContent, EveryNodeReadsAsXercesReadsItInTheNarrowForm) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document = Loaded(kEveryKindOfContent);
    const bool pairsWhole = zuxml_test::RuntimeWritesSupplementaryCharactersWhole();
    for (ZuXmlNode node : EveryNode(document)) {
        const WString expected = XercesTextContent(node);
        // The narrow length counts wide characters: room for four bytes
        // each takes the whole UTF-8 form.
        const int32_t room = 4 * static_cast<int32_t>(expected.size() + 1);
        auto buffer = FilledBuffer<char>(static_cast<size_t>(room));
        int32_t length = room;
        EXPECT_EQ(ZuXmlGetNodeTextContentA(document, node, buffer.data(), &length), 1);
        const bool hasPair = std::any_of(expected.begin(), expected.end(),
                                         [](ZuXmlWChar unit) { return unit >= 0xD800 && unit < 0xE000; });
        if (pairsWhole || !hasPair) { // the runtime's own limit: see RuntimeWritesSupplementaryCharactersWhole
            EXPECT_EQ(std::string(buffer.data()), Utf8(expected));
        }
    }
}

TEST(TextContent, ElementsBuiltAndEditedThroughTheInterfaceReadAsXercesReadsThem) {
    Document document = Built(u"root");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    ZuXmlNode item = ZuXmlAddNodeW(document, root, W(u"item").c_str(), 1, W(u"one").c_str(), nullptr);
    ZuXmlAddCommentW(document, item, W(u"skipped").c_str());
    ZuXmlAddNodeW(document, item, W(u"sub").c_str(), 1, W(u" two").c_str(), nullptr);
    ZuXmlAddNodeW(document, root, W(u"empty").c_str(), 1, nullptr, nullptr);
    for (ZuXmlNode node : EveryNode(document))
        EXPECT_EQ(TextContent(document, node), XercesTextContent(node));
    EXPECT_EQ(TextContent(document, root), W(u"one two"));
}

TEST(TextContent, DeeplyNestedElementsGiveAllTheirText) {
    constexpr int kDepth = 20000;
    std::string xml;
    for (int i = 0; i < kDepth; ++i)
        xml += "<d>x";
    for (int i = 0; i < kDepth; ++i)
        xml += "y</d>";
    Document document = Loaded(xml);
    const auto text = TextContent(document, ZuXmlGetRootNode(document));
    ASSERT_TRUE(text);
    EXPECT_EQ(*text, WString(kDepth, u'x') + WString(kDepth, u'y'));
}

// Elements nested past any depth the read keeps track of on its own, with
// text, elements and comments after every nested element, read at every
// node as Xerces reads them.
TEST(TextContent, EveryNodeOfADeepTreeReadsAsXercesReadsIt) {
    std::string xml;
    constexpr int kDepth = 70;
    for (int d = 0; d < kDepth; ++d)
        xml += "<e>t" + std::to_string(d) + "<s>s</s>";
    for (int d = kDepth - 1; d >= 0; --d)
        xml += "u" + std::to_string(d) + "<!--c--><f>f<g/></f></e>";
    Document document = Loaded(xml);
    const auto nodes = EveryNode(document);
    ASSERT_GT(nodes.size(), 7u * kDepth);
    for (size_t i = 0; i < nodes.size(); ++i)
        EXPECT_EQ(TextContent(document, nodes[i]), XercesTextContent(nodes[i])) << "node " << i;
}

TEST(TextContent, RepeatedReadsOfOneElementAgree) {
    Document document = Loaded("<r>a<b>b</b>c</r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(TextContent(document, root), W(u"abc"));
}

// --- Namespace ----------------------------------------------------------------

TEST(Namespace, DefaultNamespaceIsInherited) {
    Document document = Loaded("<r xmlns=\"urn:d\" xmlns:p=\"urn:p\"><c/><p:c/></r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(Namespace(document, root), W(u"urn:d"));
    EXPECT_EQ(Namespace(document, ZuXmlGetFirstChild(document, root)), W(u"urn:d"));
    EXPECT_EQ(Namespace(document, ZuXmlGetLastChild(document, root)), W(u"urn:p"));
}

class NodeWithoutNamespace : public ::testing::TestWithParam<int> {
protected:
    // The nodes of <r>text<!--c--><e/></r>: 0 the root, 1 its text, 2 the
    // comment, 3 the empty element, 4 the document node.
    ZuXmlNode Pick(ZuXmlDocument document) const {
        ZuXmlNode root = ZuXmlGetRootNode(document);
        switch (GetParam()) {
        case 0:
            return root;
        case 4:
            return ZuXmlGetParentNode(document, root);
        default: {
            ZuXmlNode node = ZuXmlGetFirstChild(document, root);
            for (int i = 1; i < GetParam(); ++i)
                node = ZuXmlGetNextSibling(document, node);
            return node;
        }
        }
    }
};

TEST_P(NodeWithoutNamespace, WideReaderAnswersZeroAndWritesNothing) {
    Document document = Loaded("<r>text<!--c--><e/></r>");
    ZuXmlNode node = Pick(document);
    ASSERT_NE(node, nullptr);
    EXPECT_TRUE(
        WideGetterFails([&](ZuXmlWChar *b, int32_t *n) { return ZuXmlGetNodeNamespaceW(document, node, b, n); }));
}

TEST_P(NodeWithoutNamespace, NarrowReaderAnswersZeroWithTheEmptyString) {
    Document document = Loaded("<r>text<!--c--><e/></r>");
    ZuXmlNode node = Pick(document);
    ASSERT_NE(node, nullptr);
    EXPECT_TRUE(NarrowGetterFails([&](char *b, int32_t *n) { return ZuXmlGetNodeNamespaceA(document, node, b, n); }));
}

INSTANTIATE_TEST_SUITE_P(Nodes, NodeWithoutNamespace, ::testing::Range(0, 5));

// --- Failure values ----------------------------------------------------------

#define WIDE_READER_FAILS(function)                                                                                    \
    [](ZuXmlDocument d, ZuXmlNode n) {                                                                                 \
        return WideGetterFails([&](ZuXmlWChar *b, int32_t *l) { return function(d, n, b, l); });                       \
    }
#define NARROW_READER_FAILS(function)                                                                                  \
    [](ZuXmlDocument d, ZuXmlNode n) {                                                                                 \
        return NarrowGetterFails([&](char *b, int32_t *l) { return function(d, n, b, l); });                           \
    }

const FailingCall kReaderCalls[] = {
    {"NodeNameW", WIDE_READER_FAILS(ZuXmlGetNodeNameW)},
    {"NodeNameA", NARROW_READER_FAILS(ZuXmlGetNodeNameA)},
    {"TextContentW", WIDE_READER_FAILS(ZuXmlGetNodeTextContentW)},
    {"TextContentA", NARROW_READER_FAILS(ZuXmlGetNodeTextContentA)},
    {"NamespaceW", WIDE_READER_FAILS(ZuXmlGetNodeNamespaceW)},
    {"NamespaceA", NARROW_READER_FAILS(ZuXmlGetNodeNamespaceA)},
    {"LocalNameW",
     [](ZuXmlDocument d, ZuXmlNode n) {
         auto prefix = FilledBuffer<ZuXmlWChar>(8);
         int32_t prefixLength = 8;
         auto result = WideGetterFails([&](ZuXmlWChar *b, int32_t *l) {
             return ZuXmlGetLocalNodeNameW(d, n, b, l, prefix.data(), &prefixLength);
         });
         if (result && (prefixLength != 8 || !Untouched(prefix)))
             return ::testing::AssertionFailure() << "wrote the prefix output";
         return result;
     }},
    {"LocalNameA",
     [](ZuXmlDocument d, ZuXmlNode n) {
         auto prefix = FilledBuffer<char>(8);
         int32_t prefixLength = 8;
         auto result = NarrowGetterFails(
             [&](char *b, int32_t *l) { return ZuXmlGetLocalNodeNameA(d, n, b, l, prefix.data(), &prefixLength); });
         if (result && (prefixLength != 8 || prefix[0] != 0 || prefix[1] != Sentinel<char>::value))
             return ::testing::AssertionFailure() << "left no empty string in the prefix output";
         return result;
     }},
};

INSTANTIATE_TEST_SUITE_P(Readers, FailsForNullNode, ::testing::ValuesIn(kReaderCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Readers, FailsWithoutDocument, ::testing::ValuesIn(kReaderCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Readers, FailsForNullDocument, ::testing::ValuesIn(kReaderCalls), CallName);

} // namespace
