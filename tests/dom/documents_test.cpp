// SPDX-License-Identifier: Apache-2.0
// Document handles: creating, loading from files and buffers and
// reloading. Release, one entry for documents and parsers, is tested with
// the lifecycle entries (tests/frame/lifecycle_test.cpp).
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "dom_support.h"

using namespace zuxml_dom_test;
using zuxml_test::ScopedLocale;

namespace {

// The document node: the parent of the root element.
ZuXmlNode DocumentNode(ZuXmlDocument document) { return ZuXmlGetParentNode(document, ZuXmlGetRootNode(document)); }

// Nothing is found in a handle that holds no document.
void ExpectNoDocument(ZuXmlDocument document) {
    EXPECT_EQ(ZuXmlGetRootNode(document), nullptr);
    EXPECT_EQ(ZuXmlGetFirstChild(document, nullptr), nullptr);
    EXPECT_EQ(ZuXmlFindChildW(document, nullptr, W(u"r").c_str()), nullptr);
}

// --- Creating --------------------------------------------------------------

TEST(CreateDocument, HoldsNoDocument) {
    Document document(ZuXmlCreateDocument());
    ASSERT_NE(document.get(), nullptr);
    ExpectNoDocument(document);
}

TEST(CreateWriteDocument, WithoutNamespaceOrSystemIdTheRootIsTheOnlyChild) {
    Document document = Built(u"root");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(NodeName(document, root), W(u"root"));
    EXPECT_EQ(ZuXmlGetNodeType(document, root), 1);
    ZuXmlNode documentNode = DocumentNode(document);
    EXPECT_EQ(ZuXmlGetNodeType(document, documentNode), 9);
    EXPECT_EQ(ZuXmlGetFirstChild(document, documentNode), root);
    EXPECT_EQ(ZuXmlGetLastChild(document, documentNode), root);
    EXPECT_EQ(ZuXmlGetFirstChild(document, root), nullptr) << "the root is empty";
}

TEST(CreateWriteDocument, WithSystemIdADocumentTypeNamedLikeTheRootComesFirst) {
    Document document = Built(u"root", nullptr, u"root.dtd");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    ASSERT_NE(root, nullptr);
    ZuXmlNode documentNode = DocumentNode(document);
    ZuXmlNode first = ZuXmlGetFirstChild(document, documentNode);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(ZuXmlGetNodeType(document, first), 10);
    EXPECT_EQ(NodeName(document, first), W(u"root"));
    EXPECT_EQ(ZuXmlGetNextSibling(document, first), root);
    EXPECT_EQ(ZuXmlGetLastChild(document, documentNode), root);
}

TEST(CreateWriteDocument, RootTakesTheGivenNamespace) {
    Document document = Built(u"p:root", u"urn:example");
    ZuXmlNode root = ZuXmlGetRootNode(document);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(NodeName(document, root), W(u"p:root"));
    EXPECT_EQ(Namespace(document, root), W(u"urn:example"));
    EXPECT_EQ(LocalNameAndPrefix(document, root), std::make_pair(W(u"root"), W(u"p")));
}

TEST(CreateWriteDocument, NarrowFormBuildsTheSameDocument) {
    Document document(ZuXmlCreateWriteDocumentA("root", "urn:example", "root.dtd"));
    ASSERT_NE(document.get(), nullptr);
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(NodeName(document, root), W(u"root"));
    EXPECT_EQ(Namespace(document, root), W(u"urn:example"));
    EXPECT_EQ(ZuXmlGetNodeType(document, ZuXmlGetFirstChild(document, DocumentNode(document))), 10);
}

class InvalidRootName : public ::testing::TestWithParam<const char16_t *> {};

TEST_P(InvalidRootName, GivesNoHandle) {
    const WString name = W(GetParam());
    EXPECT_EQ(ZuXmlCreateWriteDocumentW(name.c_str(), nullptr, nullptr), nullptr);
    EXPECT_EQ(ZuXmlCreateWriteDocumentW(name.c_str(), nullptr, W(u"x.dtd").c_str()), nullptr) << "with a document type";
}

INSTANTIATE_TEST_SUITE_P(Names, InvalidRootName, ::testing::Values(u"1x", u"a b", u"", u"<r>"));

TEST(CreateWriteDocument, PrefixWithoutNamespaceGivesNoHandle) {
    // Xerces raises a namespace error for a prefix bound to no namespace.
    EXPECT_EQ(ZuXmlCreateWriteDocumentW(W(u"p:root").c_str(), nullptr, nullptr), nullptr);
}

TEST(CreateWriteDocumentNarrow, EmptySystemIdStaysAnEmptyStringAndNullStaysNull) {
    Document withEmpty(ZuXmlCreateWriteDocumentA("r", nullptr, ""));
    ASSERT_NE(withEmpty.get(), nullptr);
    EXPECT_EQ(ZuXmlGetNodeType(withEmpty, ZuXmlGetFirstChild(withEmpty, DocumentNode(withEmpty))), 10)
        << "an empty system identifier is still one";
    Document withNull(ZuXmlCreateWriteDocumentA("r", nullptr, nullptr));
    ASSERT_NE(withNull.get(), nullptr);
    EXPECT_EQ(ZuXmlGetNodeType(withNull, ZuXmlGetFirstChild(withNull, DocumentNode(withNull))), 1)
        << "no document type for a null system identifier";
}

TEST(CreateWriteDocumentNarrow, TextInvalidInTheLocaleBecomesAnEmptyString) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    EXPECT_EQ(ZuXmlCreateWriteDocumentA("ab\xff", nullptr, nullptr), nullptr) << "an empty root name is not valid";
    Document document(ZuXmlCreateWriteDocumentA("r", nullptr, "x\xff.dtd"));
    ASSERT_NE(document.get(), nullptr);
    EXPECT_EQ(ZuXmlGetNodeType(document, ZuXmlGetFirstChild(document, DocumentNode(document))), 10)
        << "the system identifier became empty, not null";
}

TEST(CreateWriteDocumentNarrow, MultibyteRootNameUnderUtf8) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document(ZuXmlCreateWriteDocumentA("caf\xc3\xa9", nullptr, nullptr));
    ASSERT_NE(document.get(), nullptr);
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"caf\u00e9"));
}

TEST(CreateWriteDocumentNarrow, HighBytesAreInvalidUnderTheCLocale) {
    ScopedLocale locale("C");
    ASSERT_TRUE(locale.ok());
    EXPECT_EQ(ZuXmlCreateWriteDocumentA("caf\xc3\xa9", nullptr, nullptr), nullptr)
        << "the name became the empty string";
}

// --- Loading from files ----------------------------------------------------

TEST(LoadFromFile, WideFormReadsALocalFile) {
    Document document(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromFileW(document, WideOf(DataFile("sample.xml")).c_str()), 1);
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"catalog"));
}

TEST(LoadFromFile, NarrowFormReadsALocalFile) {
    Document document(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromFileA(document, NarrowOf(DataFile("sample.xml")).c_str()), 1);
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"catalog"));
}

TEST(LoadFromFile, NarrowPathIsConvertedInTheLocale) {
    ScratchDirectory scratch;
    // Made from UTF-8 on purpose: a narrow std::filesystem path on Windows is
    // read in a code page of the library's own choosing.
    const std::filesystem::path path = scratch.path() / Utf8Path("caf\xc3\xa9.xml");
    WriteBytes(path, "<accented/>");
    Document document(ZuXmlCreateDocument());
    {
        ScopedLocale locale("C");
        ASSERT_TRUE(locale.ok());
        EXPECT_EQ(ZuXmlLoadFromFileA(document, Utf8Of(path).c_str()), 0)
            << "under \"C\" the UTF-8 bytes do not name the file";
        ExpectNoDocument(document);
    }
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    ASSERT_EQ(ZuXmlLoadFromFileA(document, Utf8Of(path).c_str()), 1);
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"accented"));
}

TEST(LoadFromFile, FileUriIsAcceptedToo) {
    // A path with a drive letter takes a slash of its own: file:///Z:/...
    std::string path = Utf8Of(std::filesystem::absolute(DataFile("sample.xml")));
    std::replace(path.begin(), path.end(), '\\', '/');
    const std::string uri = "file://" + std::string(path.front() == '/' ? "" : "/") + path;
    Document document(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromFileA(document, uri.c_str()), 1) << uri;
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"catalog"));
}

TEST(LoadFromFile, MissingFileAnswersZeroAndHoldsNoDocument) {
    ScratchDirectory scratch;
    Document document(ZuXmlCreateDocument());
    EXPECT_EQ(ZuXmlLoadFromFileW(document, WideOf(scratch.File("absent.xml")).c_str()), 0);
    ExpectNoDocument(document);
    EXPECT_EQ(ZuXmlLoadFromFileA(document, NarrowOf(scratch.File("absent.xml")).c_str()), 0);
    ExpectNoDocument(document);
}

TEST(LoadFromFile, NullPathAnswersZero) {
    Document document(ZuXmlCreateDocument());
    EXPECT_EQ(ZuXmlLoadFromFileW(document, nullptr), 0);
    EXPECT_EQ(ZuXmlLoadFromFileA(document, nullptr), 0);
    ExpectNoDocument(document);
}

TEST(LoadFromFile, TextOutsideTheBmpReadsBackAsASurrogatePair) {
    Document document(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromFileW(document, WideOf(DataFile("outside-bmp.xml")).c_str()), 1);
    const auto text = TextContent(document, ZuXmlGetRootNode(document));
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(*text, W(u"a\U0001F600z"));
    ASSERT_EQ(text->size(), 4u);
    EXPECT_EQ((*text)[1], 0xD83D);
    EXPECT_EQ((*text)[2], 0xDE00);
}

// --- Loading from buffers --------------------------------------------------

TEST(LoadFromBuf, BytesOfAWellFormedDocumentLoad) {
    Document document = Loaded("<r><a>1</a></r>");
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"r"));
    EXPECT_EQ(TextContent(document, ZuXmlGetRootNode(document)), W(u"1"));
}

class MalformedBytes : public ::testing::TestWithParam<std::string> {};

TEST_P(MalformedBytes, LoadFailsAndTheHandleHoldsNoDocument) {
    Document document(ZuXmlCreateDocument());
    const std::string &bytes = GetParam();
    EXPECT_EQ(ZuXmlLoadFromBufA(document, bytes.data(), static_cast<uint32_t>(bytes.size())), 0);
    ExpectNoDocument(document);
}

// Each is a fatal error to Xerces 3.2.4, which still builds a partial
// document for several of them (a root "a" for the first): the load must
// not report that document.
INSTANTIATE_TEST_SUITE_P(Inputs, MalformedBytes,
                         ::testing::Values("<a><b>text</a>", "", std::string("\x01\x02garbage!!"), "<r/><r/>",
                                           "<r>&undeclared;</r>", "<r x='1' x='2'/>", "<p:r/>", "plain text"));

TEST(LoadFromBuf, FailedLoadAfterAGoodOneLeavesNoDocument) {
    Document document = Loaded("<first/>");
    const char bad[] = "<a><b>text</a>";
    EXPECT_EQ(ZuXmlLoadFromBufA(document, bad, sizeof bad - 1), 0);
    ExpectNoDocument(document);
}

TEST(LoadFromBuf, LaterGoodLoadWorksAfterAFailure) {
    Document document(ZuXmlCreateDocument());
    const char bad[] = "<a><b>text</a>";
    ASSERT_EQ(ZuXmlLoadFromBufA(document, bad, sizeof bad - 1), 0);
    const char good[] = "<good/>";
    ASSERT_EQ(ZuXmlLoadFromBufA(document, good, sizeof good - 1), 1);
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"good"));
}

TEST(LoadFromBuf, WarningsDoNotFailTheLoad) {
    // Xerces 3.2.4 reports an attribute declared twice as a warning
    // ("attribute 'x' has already been declared for element 'a'").
    Document document = Loaded("<!DOCTYPE a [<!ATTLIST a x CDATA #IMPLIED><!ATTLIST a x CDATA #IMPLIED>]><a/>");
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"a"));
}

TEST(LoadFromBuf, ShorterLengthParsesOnlyThatManyBytes) {
    const char text[] = "<r/>GARBAGE";
    Document document(ZuXmlCreateDocument());
    EXPECT_EQ(ZuXmlLoadFromBufA(document, text, sizeof text - 1), 0) << "the whole text has trailing garbage";
    ASSERT_EQ(ZuXmlLoadFromBufA(document, text, 4), 1) << "its first four bytes are a document";
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"r"));
}

TEST(LoadFromBuf, LengthCuttingTheDocumentShortFails) {
    const char text[] = "<root><a/></root>";
    Document document(ZuXmlCreateDocument());
    EXPECT_EQ(ZuXmlLoadFromBufA(document, text, 10), 0);
    ExpectNoDocument(document);
}

TEST(LoadFromBuf, EncodingIsDetectedFromTheBytes) {
    Document latin1 = Loaded("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>caf\xe9</r>");
    EXPECT_EQ(TextContent(latin1, ZuXmlGetRootNode(latin1)), W(u"caf\u00e9"));

    const char16_t utf16[] = u"\uFEFF<r>\u00e9\U0001F600</r>";
    Document document(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromBufA(document, utf16, sizeof utf16 - sizeof(char16_t)), 1) << "UTF-16 with its mark";
    EXPECT_EQ(TextContent(document, ZuXmlGetRootNode(document)), W(u"\u00e9\U0001F600"));
}

TEST(LoadFromBuf, Utf8TextOutsideTheBmpReadsBackAsASurrogatePair) {
    Document document = Loaded("<r>a\xf0\x9f\x98\x80z</r>");
    EXPECT_EQ(TextContent(document, ZuXmlGetRootNode(document)), W(u"a\U0001F600z"));
}

TEST(LoadFromBuf, BufferIsOnlyReadDuringTheCall) {
    Document document(ZuXmlCreateDocument());
    {
        std::string text = "<kept><a>1</a></kept>";
        ASSERT_EQ(ZuXmlLoadFromBufA(document, text.data(), static_cast<uint32_t>(text.size())), 1);
        std::fill(text.begin(), text.end(), 'x');
    }
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"kept"));
    EXPECT_EQ(TextContent(document, ZuXmlGetRootNode(document)), W(u"1"));
}

TEST(LoadFromBufWide, ReadsUtf16Units) {
    const WString text = W(u"<r a='\u00e9'>\u00e8\U0001F600</r>");
    Document document(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromBufW(document, text.c_str(), static_cast<uint32_t>(text.size())), 1);
    EXPECT_EQ(TextContent(document, ZuXmlGetRootNode(document)), W(u"\u00e8\U0001F600"));
}

TEST(LoadFromBufWide, DeclaredSingleByteEncodingIsOverriddenByUtf16) {
    const WString text = W(u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>caf\u00e9 \U0001F600</r>");
    Document document(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromBufW(document, text.c_str(), static_cast<uint32_t>(text.size())), 1);
    EXPECT_EQ(TextContent(document, ZuXmlGetRootNode(document)), W(u"caf\u00e9 \U0001F600"));
}

TEST(LoadFromBufWide, LengthCountsUnits) {
    const WString text = W(u"<r/>GARBAGE");
    Document document(ZuXmlCreateDocument());
    EXPECT_EQ(ZuXmlLoadFromBufW(document, text.c_str(), static_cast<uint32_t>(text.size())), 0);
    ASSERT_EQ(ZuXmlLoadFromBufW(document, text.c_str(), 4), 1) << "four units, not four bytes";
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"r"));
}

TEST(LoadFromBufWide, MalformedTextFails) {
    const WString text = W(u"<a><b>text</a>");
    Document document(ZuXmlCreateDocument());
    EXPECT_EQ(ZuXmlLoadFromBufW(document, text.c_str(), static_cast<uint32_t>(text.size())), 0);
    ExpectNoDocument(document);
    EXPECT_EQ(ZuXmlLoadFromBufW(document, text.c_str(), 0), 0) << "no text at all";
    ExpectNoDocument(document);
}

// --- Reloading ---------------------------------------------------------------

TEST(Reload, SecondLoadReplacesTheFirstDocument) {
    Document document = Loaded("<first><a/></first>");
    const char second[] = "<second><b/><c/></second>";
    ASSERT_EQ(ZuXmlLoadFromBufA(document, second, sizeof second - 1), 1);
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(NodeName(document, root), W(u"second"));
    EXPECT_EQ(ChildCount(document, root), 2);
    EXPECT_EQ(Child(document, nullptr, u"a"), nullptr);
}

TEST(Reload, EveryKindOfLoadWorksOnOneHandle) {
    Document document(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromFileW(document, WideOf(DataFile("sample.xml")).c_str()), 1);
    const WString wide = W(u"<wide/>");
    ASSERT_EQ(ZuXmlLoadFromBufW(document, wide.c_str(), static_cast<uint32_t>(wide.size())), 1);
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"wide"));
    ASSERT_EQ(ZuXmlLoadFromBufA(document, "<bytes/>", 8), 1);
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"bytes"));
    ASSERT_EQ(ZuXmlLoadFromFileA(document, NarrowOf(DataFile("outside-bmp.xml")).c_str()), 1);
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"text"));
}

TEST(Reload, LoadIntoABuiltHandleReplacesTheBuiltDocument) {
    Document document = Built(u"built", nullptr, u"built.dtd");
    ASSERT_EQ(ZuXmlLoadFromBufA(document, "<loaded/>", 9), 1);
    ZuXmlNode root = ZuXmlGetRootNode(document);
    EXPECT_EQ(NodeName(document, root), W(u"loaded"));
    EXPECT_EQ(ZuXmlGetFirstChild(document, DocumentNode(document)), root) << "no document type is left";
}

TEST(Reload, FailedLoadIntoABuiltHandleLeavesNoDocument) {
    Document document = Built(u"built");
    EXPECT_EQ(ZuXmlLoadFromBufA(document, "<a><b></a>", 10), 0);
    ExpectNoDocument(document);
}

// --- Null handles ------------------------------------------------------------

TEST(NullDocument, LoadsAnswerZero) {
    const char bytes[] = "<r/>";
    const WString wide = W(u"<r/>");
    EXPECT_EQ(ZuXmlLoadFromBufA(nullptr, bytes, 4), 0);
    EXPECT_EQ(ZuXmlLoadFromBufW(nullptr, wide.c_str(), 4), 0);
    EXPECT_EQ(ZuXmlLoadFromFileW(nullptr, WideOf(DataFile("sample.xml")).c_str()), 0);
    EXPECT_EQ(ZuXmlLoadFromFileA(nullptr, NarrowOf(DataFile("sample.xml")).c_str()), 0);
}

} // namespace
