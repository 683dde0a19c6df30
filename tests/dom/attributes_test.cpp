// SPDX-License-Identifier: Apache-2.0
// Attributes: counting, reading by index and by name, adding, changing and
// removing.
#include <gtest/gtest.h>

#include <algorithm>

#include "dom_support.h"
#include "failure_table.h"
#include "getter_protocol.h"

using namespace zuxml_dom_test;
using zuxml_test::FilledBuffer;
using zuxml_test::ScopedLocale;

namespace {

std::optional<WString> AttributeName(ZuXmlDocument document, ZuXmlNode node, int32_t index) {
    return ReadAll<ZuXmlWChar>(
        [&](ZuXmlWChar *b, int32_t *n) { return ZuXmlGetNodeAttributeNameW(document, node, index, b, n); });
}

std::optional<WString> ValueAt(ZuXmlDocument document, ZuXmlNode node, int32_t index) {
    return ReadAll<ZuXmlWChar>(
        [&](ZuXmlWChar *b, int32_t *n) { return ZuXmlGetNodeAttributeValueIndexW(document, node, index, b, n); });
}

std::optional<WString> ValueOf(ZuXmlDocument document, ZuXmlNode node, const char16_t *name) {
    const WString wideName = W(name);
    return ReadAll<ZuXmlWChar>([&](ZuXmlWChar *b, int32_t *n) {
        return ZuXmlGetNodeAttributeValueNameW(document, node, wideName.c_str(), b, n);
    });
}

int32_t Add(ZuXmlDocument document, ZuXmlNode node, const char16_t *name, const char16_t *value) {
    return ZuXmlAddNodeAttributeW(document, node, W(name).c_str(), W(value).c_str());
}

int32_t Set(ZuXmlDocument document, ZuXmlNode node, const char16_t *name, const char16_t *value) {
    return ZuXmlSetNodeAttributeValueW(document, node, W(name).c_str(), W(value).c_str());
}

int32_t RemoveNamed(ZuXmlDocument document, ZuXmlNode node, const char16_t *name) {
    return ZuXmlRemoveAttributeNameW(document, node, W(name).c_str());
}

// The names of all attributes, in index order.
std::vector<WString> Names(ZuXmlDocument document, ZuXmlNode node) {
    std::vector<WString> names;
    const int32_t count = ZuXmlGetNodeAttributeCount(document, node);
    for (int32_t i = 0; i < count; ++i)
        names.push_back(AttributeName(document, node, i).value_or(W(u"(unreadable)")));
    return names;
}

std::vector<WString> List(std::initializer_list<const char16_t *> names) {
    std::vector<WString> out;
    for (const char16_t *name : names)
        out.push_back(W(name));
    return out;
}

class ElementWithTwoAttributes : public ::testing::Test {
protected:
    Document document = Loaded("<r><e a=\"1\" b=\"\"/><plain/>text</r>");
    ZuXmlNode e = Child(document, nullptr, u"e");
};

// --- Reading ---------------------------------------------------------------------

TEST_F(ElementWithTwoAttributes, CountsTwo) { EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, e), 2); }

TEST_F(ElementWithTwoAttributes, IndexZeroGivesTheFirstNameAndValue) {
    EXPECT_EQ(AttributeName(document, e, 0), W(u"a"));
    EXPECT_EQ(ValueAt(document, e, 0), W(u"1"));
    EXPECT_EQ(AttributeName(document, e, 1), W(u"b"));
    EXPECT_EQ(ValueAt(document, e, 1), W(u""));
}

class AttributeIndexOutOfRange : public ElementWithTwoAttributes, public ::testing::WithParamInterface<int32_t> {};

TEST_P(AttributeIndexOutOfRange, ReadersAnswerZeroAndWriteNothing) {
    const int32_t index = GetParam();
    EXPECT_TRUE(WideGetterFails(
        [&](ZuXmlWChar *b, int32_t *n) { return ZuXmlGetNodeAttributeNameW(document, e, index, b, n); }));
    EXPECT_TRUE(WideGetterFails(
        [&](ZuXmlWChar *b, int32_t *n) { return ZuXmlGetNodeAttributeValueIndexW(document, e, index, b, n); }));
    EXPECT_TRUE(
        NarrowGetterFails([&](char *b, int32_t *n) { return ZuXmlGetNodeAttributeNameA(document, e, index, b, n); }));
    EXPECT_TRUE(NarrowGetterFails(
        [&](char *b, int32_t *n) { return ZuXmlGetNodeAttributeValueIndexA(document, e, index, b, n); }));
}

TEST_P(AttributeIndexOutOfRange, RemovalAnswersZeroAndRemovesNothing) {
    EXPECT_EQ(ZuXmlRemoveAttributeIndex(document, e, GetParam()), 0);
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, e), 2);
}

INSTANTIATE_TEST_SUITE_P(Indexes, AttributeIndexOutOfRange, ::testing::Values(2, 3, -1, INT32_MIN, INT32_MAX));

TEST_F(ElementWithTwoAttributes, EmptyValueByNameAnswersOneWithTheEmptyString) {
    auto buffer = FilledBuffer<ZuXmlWChar>(4);
    int32_t length = 4;
    EXPECT_EQ(ZuXmlGetNodeAttributeValueNameW(document, e, W(u"b").c_str(), buffer.data(), &length), 1);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(ValueOf(document, e, u"a"), W(u"1"));
}

TEST_F(ElementWithTwoAttributes, AbsentNameAnswersZeroAndWritesNothing) {
    EXPECT_TRUE(WideGetterFails([&](ZuXmlWChar *b, int32_t *n) {
        return ZuXmlGetNodeAttributeValueNameW(document, e, W(u"c").c_str(), b, n);
    }));
    EXPECT_TRUE(NarrowGetterFails(
        [&](char *b, int32_t *n) { return ZuXmlGetNodeAttributeValueNameA(document, e, "c", b, n); }));
}

TEST_F(ElementWithTwoAttributes, NullOrEmptyNameAnswersZero) {
    const WString empty = W(u"");
    for (const ZuXmlWChar *name : {static_cast<const ZuXmlWChar *>(nullptr), empty.c_str()})
        EXPECT_TRUE(WideGetterFails(
            [&](ZuXmlWChar *b, int32_t *n) { return ZuXmlGetNodeAttributeValueNameW(document, e, name, b, n); }));
    for (const char *name : {static_cast<const char *>(nullptr), ""})
        EXPECT_TRUE(NarrowGetterFails(
            [&](char *b, int32_t *n) { return ZuXmlGetNodeAttributeValueNameA(document, e, name, b, n); }));
}

TEST_F(ElementWithTwoAttributes, ElementWithoutAttributesCountsZero) {
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, Child(document, nullptr, u"plain")), 0);
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, ZuXmlGetRootNode(document)), 0);
}

TEST_F(ElementWithTwoAttributes, NullNodeCountsMinusOne) {
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, nullptr), -1);
}

TEST(AttributeOrder, IndexesFollowXercesNameOrderNotDocumentOrder) {
    // Xerces 3.2.4 keeps an element's attribute map sorted by name, both
    // for parsed attributes and for those set afterwards.
    Document document = Loaded("<e z=\"1\" a=\"2\" m=\"3\"/>");
    ZuXmlNode e = ZuXmlGetRootNode(document);
    EXPECT_EQ(Names(document, e), List({u"a", u"m", u"z"}));
    ASSERT_EQ(Add(document, e, u"b", u"4"), 1);
    EXPECT_EQ(Names(document, e), List({u"a", u"b", u"m", u"z"}));
    EXPECT_EQ(ValueAt(document, e, 3), W(u"1"));
}

TEST(AttributeNames, AreQualifiedNamesAndNamespaceDeclarationsCount) {
    Document document = Loaded("<e xmlns:p=\"urn:p\" p:a=\"1\" a=\"2\"/>");
    ZuXmlNode e = ZuXmlGetRootNode(document);
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, e), 3);
    EXPECT_EQ(ValueOf(document, e, u"p:a"), W(u"1"));
    EXPECT_EQ(ValueOf(document, e, u"a"), W(u"2"));
    EXPECT_EQ(ValueOf(document, e, u"xmlns:p"), W(u"urn:p"));
    const auto names = Names(document, e);
    EXPECT_NE(std::find(names.begin(), names.end(), W(u"p:a")), names.end());
    EXPECT_EQ(RemoveNamed(document, e, u"a"), 1);
    EXPECT_EQ(ValueOf(document, e, u"p:a"), W(u"1")) << "p:a and a are different names";
}

TEST(AttributeValues, EntitiesAreResolvedAndUnitsOutsideTheBmpKept) {
    Document document = Loaded("<e a=\"x &amp; &#x1F600; &lt;y&gt;\"/>");
    EXPECT_EQ(ValueOf(document, ZuXmlGetRootNode(document), u"a"), W(u"x & \U0001F600 <y>"));
}

// The caller-buffer protocol of the three readers, on the first attribute
// of the root element.
const GetterCase kAttributeGetters[] = {
    {"AttributeName", "<e attribute=\"value text\"/>",
     [](ZuXmlDocument d, ZuXmlWChar *b, int32_t *n) {
         return ZuXmlGetNodeAttributeNameW(d, ZuXmlGetRootNode(d), 0, b, n);
     },
     [](ZuXmlDocument d, char *b, int32_t *n) { return ZuXmlGetNodeAttributeNameA(d, ZuXmlGetRootNode(d), 0, b, n); },
     u"attribute"},
    {"AttributeValueIndex", "<e attribute=\"value text\"/>",
     [](ZuXmlDocument d, ZuXmlWChar *b, int32_t *n) {
         return ZuXmlGetNodeAttributeValueIndexW(d, ZuXmlGetRootNode(d), 0, b, n);
     },
     [](ZuXmlDocument d, char *b, int32_t *n) {
         return ZuXmlGetNodeAttributeValueIndexA(d, ZuXmlGetRootNode(d), 0, b, n);
     },
     u"value text"},
    {"AttributeValueName", "<e attribute=\"value text\"/>",
     [](ZuXmlDocument d, ZuXmlWChar *b, int32_t *n) {
         return ZuXmlGetNodeAttributeValueNameW(d, ZuXmlGetRootNode(d), W(u"attribute").c_str(), b, n);
     },
     [](ZuXmlDocument d, char *b, int32_t *n) {
         return ZuXmlGetNodeAttributeValueNameA(d, ZuXmlGetRootNode(d), "attribute", b, n);
     },
     u"value text"},
};

ZUXML_GETTER_PROTOCOL_SUITES(Attributes, kAttributeGetters);

const GetterCase kMultibyteAttributeGetters[] = {
    {"AttributeName", "<e \xc3\xa9\xc3\xa8\xc3\xaa=\"v\"/>", kAttributeGetters[0].wide, kAttributeGetters[0].narrow,
     u"\u00e9\u00e8\u00ea"},
    {"AttributeValueIndex", "<e a=\"\xc3\xa9\xc3\xa8\xc3\xaa\"/>", kAttributeGetters[1].wide,
     kAttributeGetters[1].narrow, u"\u00e9\u00e8\u00ea"},
    {"AttributeValueName", "<e attribute=\"\xc3\xa9\xc3\xa8\xc3\xaa\"/>", kAttributeGetters[2].wide,
     kAttributeGetters[2].narrow, u"\u00e9\u00e8\u00ea"},
};

INSTANTIATE_TEST_SUITE_P(Attributes, MultibyteNarrowGetter, ::testing::ValuesIn(kMultibyteAttributeGetters),
                         GetterName);

TEST(AttributeValueNameNarrow, NameIsConvertedInTheLocale) {
    Document document = Loaded("<e caf\xc3\xa9=\"1\"/>");
    ZuXmlNode e = ZuXmlGetRootNode(document);
    char buffer[8];
    int32_t length = 8;
    {
        ScopedLocale locale(kUtf8Locale);
        ASSERT_TRUE(locale.ok());
        EXPECT_EQ(ZuXmlGetNodeAttributeValueNameA(document, e, "caf\xc3\xa9", buffer, &length), 1);
        EXPECT_STREQ(buffer, "1");
    }
    ScopedLocale locale("C");
    EXPECT_TRUE(NarrowGetterFails([&](char *b, int32_t *n) {
        return ZuXmlGetNodeAttributeValueNameA(document, e, "caf\xc3\xa9", b, n);
    })) << "under \"C\" the name becomes empty";
}

// --- Adding and changing -------------------------------------------------------------

TEST(AddNodeAttribute, NullNodeSetsTheAttributeOnTheRootThenReplacesItsValue) {
    Document document = Loaded("<r a=\"0\"><c/></r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    ASSERT_EQ(Add(document, nullptr, u"x", u"1"), 1);
    EXPECT_EQ(ValueOf(document, root, u"x"), W(u"1"));
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, root), 2);
    ASSERT_EQ(Add(document, nullptr, u"x", u"2"), 1);
    EXPECT_EQ(ValueOf(document, root, u"x"), W(u"2"));
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, root), 2) << "replaced, not added";
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, Child(document, nullptr, u"c")), 0);
}

TEST(AddNodeAttribute, GivenElementAndTheNarrowForm) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document = Loaded("<r><c/></r>");
    ZuXmlNode c = Child(document, nullptr, u"c");
    ASSERT_EQ(ZuXmlAddNodeAttributeA(document, c, "caf\xc3\xa9", "\xe2\x82\xac \xf0\x9f\x98\x80"), 1);
    EXPECT_EQ(ValueOf(document, c, u"caf\u00e9"), W(u"\u20ac \U0001F600"));
    EXPECT_EQ(Serialised(document), W(u"<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"no\" ?>"
                                      u"<r><c caf\u00e9=\"\u20ac \U0001F600\"/></r>"));
}

class IllegalAttributeName : public ::testing::TestWithParam<const char16_t *> {};

TEST_P(IllegalAttributeName, AnswersZeroAndChangesNothing) {
    Document document = Loaded("<r a=\"1\"/>");
    const auto before = Serialised(document);
    EXPECT_EQ(Add(document, nullptr, GetParam(), u"v"), 0);
    EXPECT_EQ(Serialised(document), before);
}

INSTANTIATE_TEST_SUITE_P(Names, IllegalAttributeName, ::testing::Values(u"1x", u"", u"a b", u"a=b"));

TEST(AddNodeAttribute, NullNodeWithoutRootAnswersZero) {
    Document document = Loaded("<r/>");
    ASSERT_EQ(ZuXmlRemoveNode(document, ZuXmlGetRootNode(document)), 1);
    EXPECT_EQ(Add(document, nullptr, u"x", u"1"), 0);
}

TEST(AddNodeAttribute, NullNodeWithoutDocumentAnswersZero) {
    Document document(ZuXmlCreateDocument());
    EXPECT_EQ(Add(document, nullptr, u"x", u"1"), 0);
    EXPECT_EQ(ZuXmlAddNodeAttributeA(document, nullptr, "x", "1"), 0);
}

TEST(SetNodeAttributeValue, AbsentAttributeAnswersZeroAndAddsNothing) {
    Document document = Loaded("<r a=\"1\"/>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(Set(document, root, u"b", u"2"), 0);
    EXPECT_EQ(ZuXmlSetNodeAttributeValueA(document, root, "b", "2"), 0);
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, root), 1);
    EXPECT_EQ(ValueOf(document, root, u"b"), std::nullopt);
}

TEST(SetNodeAttributeValue, PresentAttributeAnswersOneAndChangesTheValue) {
    Document document = Loaded("<r a=\"1\" b=\"2\"/>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(Set(document, root, u"a", u"changed"), 1);
    EXPECT_EQ(ValueOf(document, root, u"a"), W(u"changed"));
    EXPECT_EQ(ZuXmlSetNodeAttributeValueA(document, root, "b", "narrow"), 1);
    EXPECT_EQ(ValueOf(document, root, u"b"), W(u"narrow"));
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, root), 2);
}

TEST(SetNodeAttributeValue, NullValueLeavesTheEmptyValue) {
    // Xerces' setValue with no value stores the empty string.
    Document document = Loaded("<r a=\"1\"/>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(ZuXmlSetNodeAttributeValueW(document, root, W(u"a").c_str(), nullptr), 1);
    EXPECT_EQ(ValueOf(document, root, u"a"), W(u""));
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, root), 1);
}

TEST(SetNodeAttributeValue, NullOrEmptyNameAnswersZero) {
    Document document = Loaded("<r a=\"1\"/>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(ZuXmlSetNodeAttributeValueW(document, root, nullptr, W(u"v").c_str()), 0);
    EXPECT_EQ(Set(document, root, u"", u"v"), 0);
    EXPECT_EQ(ZuXmlSetNodeAttributeValueA(document, root, nullptr, "v"), 0);
    EXPECT_EQ(ZuXmlSetNodeAttributeValueA(document, root, "", "v"), 0);
    EXPECT_EQ(ValueOf(document, root, u"a"), W(u"1"));
}

// --- Removing ---------------------------------------------------------------------

TEST(RemoveAttributeName, AbsentNameAnswersOne) {
    Document document = Loaded("<r a=\"1\"/>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(RemoveNamed(document, root, u"absent"), 1);
    EXPECT_EQ(ZuXmlRemoveAttributeNameA(document, root, "absent"), 1);
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, root), 1);
}

TEST(RemoveAttributeName, PresentNameIsRemoved) {
    Document document = Loaded("<r a=\"1\" b=\"2\" c=\"3\"/>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(RemoveNamed(document, root, u"b"), 1);
    EXPECT_EQ(ZuXmlRemoveAttributeNameA(document, root, "c"), 1);
    EXPECT_EQ(Names(document, root), List({u"a"}));
}

TEST(RemoveAttributeName, EmptyOrNullNameAnswersZero) {
    Document document = Loaded("<r a=\"1\"/>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(RemoveNamed(document, root, u""), 0);
    EXPECT_EQ(ZuXmlRemoveAttributeNameW(document, root, nullptr), 0);
    EXPECT_EQ(ZuXmlRemoveAttributeNameA(document, root, ""), 0);
    EXPECT_EQ(ZuXmlRemoveAttributeNameA(document, root, nullptr), 0);
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, root), 1);
}

TEST(RemoveAttributeIndex, IndexZeroOfAAndBLeavesOnlyBAtIndexZero) {
    Document document = Loaded("<r a=\"1\" b=\"2\"/>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(ZuXmlRemoveAttributeIndex(document, root, 0), 1);
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, root), 1);
    EXPECT_EQ(AttributeName(document, root, 0), W(u"b"));
    EXPECT_EQ(ValueAt(document, root, 0), W(u"2"));
}

TEST(RemoveAttributeIndex, RemovesByTheQualifiedName) {
    Document document = Loaded("<r xmlns:p=\"urn:p\" p:a=\"1\"/>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    const auto names = Names(document, root);
    const auto at = std::find(names.begin(), names.end(), W(u"p:a"));
    ASSERT_NE(at, names.end());
    EXPECT_EQ(ZuXmlRemoveAttributeIndex(document, root, static_cast<int32_t>(at - names.begin())), 1);
    EXPECT_EQ(Names(document, root), List({u"xmlns:p"}));
}

// --- Read-only elements --------------------------------------------------------------

// The children of an entity reference are read-only in Xerces.
class ReadOnlyAttributes : public ::testing::Test {
protected:
    Document document = Loaded("<!DOCTYPE r [<!ENTITY e \"<x a='1' b='2'/>\">]><r>&e;</r>");
    ZuXmlNode x = ZuXmlGetFirstChild(document, ZuXmlGetFirstChild(document, nullptr));
    std::optional<WString> before = Serialised(document);

    void SetUp() override { ASSERT_EQ(NodeName(document, x), W(u"x")); }
};

TEST_F(ReadOnlyAttributes, AreReadAsUsual) {
    EXPECT_EQ(ZuXmlGetNodeAttributeCount(document, x), 2);
    EXPECT_EQ(ValueOf(document, x, u"b"), W(u"2"));
}

TEST_F(ReadOnlyAttributes, AddingAndRemovingAnswerZero) {
    EXPECT_EQ(Add(document, x, u"c", u"3"), 0);
    EXPECT_EQ(Add(document, x, u"a", u"changed"), 0);
    EXPECT_EQ(RemoveNamed(document, x, u"a"), 0);
    EXPECT_EQ(ZuXmlRemoveAttributeIndex(document, x, 0), 0);
    EXPECT_EQ(Serialised(document), before);
}

TEST_F(ReadOnlyAttributes, ChangingAValueLetsTheDomExceptionPassOut) {
    // ZuXmlSetNodeAttributeValueW alone catches nothing.
    EXPECT_ANY_THROW(Set(document, x, u"a", u"changed"));
    EXPECT_EQ(ValueOf(document, x, u"a"), W(u"1"));
}

// --- Failure values ----------------------------------------------------------------

#define ATTRIBUTE_READER_FAILS(function, ...)                                                                          \
    [](ZuXmlDocument d, ZuXmlNode n) {                                                                                 \
        return WideGetterFails([&](ZuXmlWChar *b, int32_t *l) { return function(d, n, __VA_ARGS__, b, l); });          \
    }
#define NARROW_ATTRIBUTE_READER_FAILS(function, ...)                                                                   \
    [](ZuXmlDocument d, ZuXmlNode n) {                                                                                 \
        return NarrowGetterFails([&](char *b, int32_t *l) { return function(d, n, __VA_ARGS__, b, l); });              \
    }

// Every operation given a node it would otherwise work on ("a" exists).
const FailingCall kAttributeCalls[] = {
    {"Count", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlGetNodeAttributeCount(d, n), -1); }},
    {"NameW", ATTRIBUTE_READER_FAILS(ZuXmlGetNodeAttributeNameW, 0)},
    {"NameA", NARROW_ATTRIBUTE_READER_FAILS(ZuXmlGetNodeAttributeNameA, 0)},
    {"ValueIndexW", ATTRIBUTE_READER_FAILS(ZuXmlGetNodeAttributeValueIndexW, 0)},
    {"ValueIndexA", NARROW_ATTRIBUTE_READER_FAILS(ZuXmlGetNodeAttributeValueIndexA, 0)},
    {"ValueNameW", ATTRIBUTE_READER_FAILS(ZuXmlGetNodeAttributeValueNameW, W(u"a").c_str())},
    {"ValueNameA", NARROW_ATTRIBUTE_READER_FAILS(ZuXmlGetNodeAttributeValueNameA, "a")},
    {"SetValueW", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(Set(d, n, u"a", u"v")); }},
    {"SetValueA", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlSetNodeAttributeValueA(d, n, "a", "v")); }},
    {"RemoveIndex", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlRemoveAttributeIndex(d, n, 0)); }},
    {"RemoveNameW", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(RemoveNamed(d, n, u"a")); }},
    {"RemoveNameA", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlRemoveAttributeNameA(d, n, "a")); }},
};

// Adding reads a NULL node as the root, so it fails only without a document.
const FailingCall kAddCalls[] = {
    {"AddW", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(Add(d, n, u"x", u"1")); }},
    {"AddA", [](ZuXmlDocument d, ZuXmlNode n) { return IsFailure(ZuXmlAddNodeAttributeA(d, n, "x", "1")); }},
    {"AddToRootW", [](ZuXmlDocument d, ZuXmlNode) { return IsFailure(Add(d, nullptr, u"x", u"1")); }},
};

INSTANTIATE_TEST_SUITE_P(Attributes, FailsForNullNode, ::testing::ValuesIn(kAttributeCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Attributes, FailsWithoutDocument, ::testing::ValuesIn(kAttributeCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Attributes, FailsForNullDocument, ::testing::ValuesIn(kAttributeCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Adding, FailsWithoutDocument, ::testing::ValuesIn(kAddCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Adding, FailsForNullDocument, ::testing::ValuesIn(kAddCalls), CallName);

// Nodes that are not elements: the text, comment and document nodes of
// <r a="1">text<!--c--></r>.
class NotAnElement : public ::testing::TestWithParam<FailingCall> {};

TEST_P(NotAnElement, AnswersTheFailureValue) {
    Document document = Loaded("<r a=\"1\">text<!--c--></r>");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    for (ZuXmlNode node :
         {ZuXmlGetFirstChild(document, root), ZuXmlGetLastChild(document, root), ZuXmlGetParentNode(document, root)}) {
        ASSERT_NE(node, nullptr);
        EXPECT_TRUE(GetParam().fails(document, node)) << "node type " << ZuXmlGetNodeType(document, node);
    }
    EXPECT_EQ(Serialised(document),
              W(u"<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"no\" ?><r a=\"1\">text<!--c--></r>"));
}

INSTANTIATE_TEST_SUITE_P(Attributes, NotAnElement, ::testing::ValuesIn(kAttributeCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Adding, NotAnElement, ::testing::Values(kAddCalls[0], kAddCalls[1]), CallName);

} // namespace
