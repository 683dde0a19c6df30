// SPDX-License-Identifier: Apache-2.0
// Writing documents: to files, indented or not, and to caller buffers.
//
// The exact texts below are what Xerces-C++ 3.2.4's DOMLSSerializer gives
// with its defaults, measured with that version: writeToString declares
// encoding="UTF-16"; a file gets the document's input encoding, else UTF-8;
// the declaration always carries standalone="no" (or the loaded value) and
// a space before "?>"; pretty printing puts a blank line between the
// children of an element that has element children next to text-free
// siblings, and ends the file with a line break.
#include <gtest/gtest.h>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include <string>
#include <thread>
#include <vector>

#include "dom_support.h"
#include "failure_table.h"
#include "getter_protocol.h"

using namespace zuxml_dom_test;
using zuxml_test::FilledBuffer;
using zuxml_test::ScopedLocale;
using zuxml_test::Sentinel;
using zuxml_test::Untouched;

namespace {

constexpr char16_t kStringDeclaration[] = u"<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"no\" ?>";

// A document made through the interface alone: a document type, elements
// with and without a namespace and text, a comment and attributes.
Document BuildReference() {
    Document document = Built(u"root", nullptr, u"root.dtd");
    ZuXmlNode a = ZuXmlAddNodeW(document, nullptr, W(u"a").c_str(), 1, W(u"hi").c_str(), nullptr);
    EXPECT_NE(a, nullptr);
    EXPECT_EQ(ZuXmlAddNodeAttributeW(document, a, W(u"x").c_str(), W(u"1").c_str()), 1);
    ZuXmlNode b = ZuXmlAddNodeW(document, nullptr, W(u"p:b").c_str(), 1, nullptr, W(u"urn:x").c_str());
    EXPECT_NE(b, nullptr);
    EXPECT_NE(ZuXmlAddNodeW(document, b, W(u"c").c_str(), 1, nullptr, W(u"urn:y").c_str()), nullptr);
    EXPECT_NE(ZuXmlAddCommentW(document, nullptr, W(u" note ").c_str()), nullptr);
    EXPECT_EQ(ZuXmlAddNodeAttributeW(document, nullptr, W(u"k").c_str(), W(u"v&<\"").c_str()), 1);
    EXPECT_NE(ZuXmlAddNodeW(document, nullptr, W(u"empty").c_str(), 1, nullptr, nullptr), nullptr);
    return document;
}

constexpr char kReferenceBody[] = "<!DOCTYPE root SYSTEM \"root.dtd\">"
                                  "<root k=\"v&amp;&lt;&quot;\"><a x=\"1\">hi</a>"
                                  "<p:b xmlns:p=\"urn:x\"><c xmlns=\"urn:y\"/></p:b><!-- note --><empty/></root>";

constexpr char kReferenceFile[] = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>"
                                  "<!DOCTYPE root SYSTEM \"root.dtd\">"
                                  "<root k=\"v&amp;&lt;&quot;\"><a x=\"1\">hi</a>"
                                  "<p:b xmlns:p=\"urn:x\"><c xmlns=\"urn:y\"/></p:b><!-- note --><empty/></root>";

constexpr char kReferencePrettyFile[] = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>\n"
                                        "<!DOCTYPE root SYSTEM \"root.dtd\">\n"
                                        "<root k=\"v&amp;&lt;&quot;\">\n"
                                        "\n"
                                        "  <a x=\"1\">hi</a>\n"
                                        "\n"
                                        "  <p:b xmlns:p=\"urn:x\">\n"
                                        "    <c xmlns=\"urn:y\"/>\n"
                                        "  </p:b>\n"
                                        "\n"
                                        "  <!-- note -->\n"
                                        "\n"
                                        "  <empty/>\n"
                                        "\n"
                                        "</root>\n";

// ASCII bytes as wide text.
WString Widened(const std::string &ascii) { return WString(ascii.begin(), ascii.end()); }

// The text of writeToString: its declaration, then the document.
WString Declared(const std::string &body) { return W(kStringDeclaration) + Widened(body); }

// --- The exact text ------------------------------------------------------------

TEST(WriteToString, DocumentBuiltThroughTheInterfaceGivesTheSerializersText) {
    Document document = BuildReference();
    EXPECT_EQ(Serialised(document), Declared(kReferenceBody));
}

TEST(WriteToString, BuiltDocumentsWithAndWithoutNamespaceAndDocumentType) {
    EXPECT_EQ(Serialised(Built(u"root")), Declared("<root/>"));
    EXPECT_EQ(Serialised(Built(u"root", u"urn:r")), Declared("<root xmlns=\"urn:r\"/>"));
    EXPECT_EQ(Serialised(Built(u"p:root", u"urn:r")), Declared("<p:root xmlns:p=\"urn:r\"/>"));
    EXPECT_EQ(Serialised(Built(u"root", nullptr, u"sys.dtd")), Declared("<!DOCTYPE root SYSTEM \"sys.dtd\"><root/>"))
        << "a system identifier and no public one";
    EXPECT_EQ(Serialised(Built(u"root", u"urn:r", u"sys.dtd")),
              Declared("<!DOCTYPE root SYSTEM \"sys.dtd\"><root xmlns=\"urn:r\"/>"));
}

TEST(WriteToString, LoadedDocumentKeepsItsStandaloneAndItsWhitespaceButNotItsEncoding) {
    Document document = Loaded("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"yes\"?>\n"
                               "<!-- c -->\n<r>\n  <a>1</a>\n</r>\n");
    EXPECT_EQ(Serialised(document),
              W(u"<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"yes\" ?><!-- c --><r>\n  <a>1</a>\n</r>"));
}

TEST(WriteToString, NeverIndentsWhateverWasWrittenToFiles) {
    ScratchDirectory scratch;
    Document document = BuildReference();
    ASSERT_EQ(ZuXmlWriteW(document, WideOf(scratch.File("pretty.xml")).c_str()), 1);
    const auto text = Serialised(document);
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(text->find(u'\n'), WString::npos);
    EXPECT_EQ(*text, Declared(kReferenceBody));
}

// The caller-buffer protocol on the document text.
const GetterCase kStringGetters[] = {
    {"WriteToString", "<r a=\"1\">text</r>", ZuXmlWriteToStringW, ZuXmlWriteToStringA,
     u"<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"no\" ?><r a=\"1\">text</r>"},
};

ZUXML_GETTER_PROTOCOL_SUITES(Writing, kStringGetters);

TEST(WriteToString, EveryKindOfDocumentGivesWhatXercesWriteToStringGives) {
    std::string large = "<big>";
    for (int i = 0; i < 5000; ++i)
        large += "<i n='" + std::to_string(i) + "'>caf\xc3\xa9 \xf0\x9f\x98\x80 &amp; &lt;" + std::to_string(i) +
                 "</i><!-- c --><![CDATA[<x>]]>";
    large += "</big>";
    const std::string documents[] = {
        "<r/>",
        "<?xml version='1.0' encoding='ISO-8859-1' standalone='yes'?><r a='\xe9'>\xe9t\xe9</r>",
        "<!DOCTYPE r [<!ENTITY e 'entity'>]><r xmlns='urn:d' xmlns:p='urn:p'>&e;<p:b p:a='1'>x</p:b><?pi d?></r>",
        "<r>\n  <a>  spaced  </a>\n\t<b/>\r\n</r>\n<!-- after -->",
        large,
    };
    for (const std::string &xml : documents) {
        Document document = Loaded(xml);
        EXPECT_EQ(Serialised(document), XercesWriteToString(document)) << xml.substr(0, 80);
    }
    Document built = Built(u"p:root", u"urn:p", u"root.dtd");
    ZuXmlAddNodeW(built, nullptr, W(u"p:item").c_str(), 1, W(u"text \U0001F600").c_str(), W(u"urn:p").c_str());
    EXPECT_EQ(Serialised(built), XercesWriteToString(built));
}

TEST(WriteToString, LengthZeroReportsTheWholeTextThenTheRetryGivesIt) {
    Document document = BuildReference();
    const WString expected = Declared(kReferenceBody);
    int32_t length = 0;
    EXPECT_EQ(ZuXmlWriteToStringW(document, nullptr, &length), 0);
    EXPECT_EQ(length, static_cast<int32_t>(expected.size()) + 1);
    auto buffer = FilledBuffer<ZuXmlWChar>(static_cast<size_t>(length));
    EXPECT_EQ(ZuXmlWriteToStringW(document, buffer.data(), &length), 1);
    EXPECT_EQ(WString(buffer.data()), expected);
}

TEST(WriteToStringNarrow, DeclarationStaysUtf16AndTheLengthCountsWideCharacters) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document = Loaded("<r>\xc3\xa9\xc3\xa8\xc3\xaa</r>");
    const WString wide = *Serialised(document);
    const int32_t wideLength = static_cast<int32_t>(wide.size());
    const std::string utf8 = Utf8(wide);
    ASSERT_EQ(utf8.size(), wide.size() + 3) << "three characters of two bytes";

    auto buffer = FilledBuffer<char>(utf8.size() + 8);
    int32_t length = wideLength;
    EXPECT_EQ(ZuXmlWriteToStringA(document, buffer.data(), &length), 0);
    EXPECT_EQ(length, wideLength + 1) << "wide count plus one";

    EXPECT_EQ(ZuXmlWriteToStringA(document, buffer.data(), &length), 1);
    EXPECT_EQ(std::string(buffer.data(), static_cast<size_t>(length)), utf8.substr(0, static_cast<size_t>(length)))
        << "cut at the caller's length in bytes";
    EXPECT_EQ(buffer[static_cast<size_t>(length)], Sentinel<char>::value) << "and not terminated";

    length = static_cast<int32_t>(utf8.size()) + 1;
    EXPECT_EQ(ZuXmlWriteToStringA(document, buffer.data(), &length), 1);
    EXPECT_EQ(std::string(buffer.data()), utf8);
    EXPECT_EQ(utf8.rfind(Utf8(W(kStringDeclaration)), 0), 0u) << "the serializer's declaration is kept as it is";
}

// --- Files -------------------------------------------------------------------

TEST(WriteFile, IndentedFileOfTheReferenceDocument) {
    ScratchDirectory scratch;
    Document document = BuildReference();
    ASSERT_EQ(ZuXmlWriteW(document, WideOf(scratch.File("pretty.xml")).c_str()), 1);
    EXPECT_EQ(ReadBytes(scratch.File("pretty.xml")), kReferencePrettyFile);
}

TEST(WriteFile, UnindentedFileOfTheReferenceDocument) {
    ScratchDirectory scratch;
    Document document = BuildReference();
    ASSERT_EQ(ZuXmlWriteNoPrettyW(document, WideOf(scratch.File("plain.xml")).c_str()), 1);
    EXPECT_EQ(ReadBytes(scratch.File("plain.xml")), kReferenceFile);
}

TEST(WriteFile, NarrowFormsWriteTheSameFiles) {
    ScratchDirectory scratch;
    Document document = BuildReference();
    ASSERT_EQ(ZuXmlWriteA(document, NarrowOf(scratch.File("pretty.xml")).c_str()), 1);
    ASSERT_EQ(ZuXmlWriteNoPrettyA(document, NarrowOf(scratch.File("plain.xml")).c_str()), 1);
    EXPECT_EQ(ReadBytes(scratch.File("pretty.xml")), kReferencePrettyFile);
    EXPECT_EQ(ReadBytes(scratch.File("plain.xml")), kReferenceFile);
}

TEST(WriteFile, IndentedAndUnindentedDifferOnlyInIndentationAndLineBreaks) {
    ScratchDirectory scratch;
    Document document = Loaded("<catalog xmlns:p=\"urn:p\"><item id=\"1\">first</item><p:item>second</p:item>"
                               "<!-- note --><group><item>nested</item><item/></group></catalog>");
    ASSERT_EQ(ZuXmlWriteW(document, WideOf(scratch.File("pretty.xml")).c_str()), 1);
    ASSERT_EQ(ZuXmlWriteNoPrettyW(document, WideOf(scratch.File("plain.xml")).c_str()), 1);
    const WString pretty = Widened(ReadBytes(scratch.File("pretty.xml")));
    const WString plain = Widened(ReadBytes(scratch.File("plain.xml")));
    EXPECT_NE(pretty, plain);
    EXPECT_EQ(plain.find(u'\n'), WString::npos) << "no line breaks without indentation";
    EXPECT_EQ(WithoutIndentation(pretty), plain);
}

TEST(WriteFile, FilesReadBackGiveTheSameDocument) {
    ScratchDirectory scratch;
    // Xerces 3.2.4 leaks a few allocations of scanDocTypeDecl on every parse
    // of a document that names an external subset (measured under
    // LeakSanitizer, with or without this library), so the document read
    // back here names none.
    Document document = BuildReference();
    ASSERT_EQ(ZuXmlRemoveNode(document,
                              ZuXmlGetFirstChild(document, ZuXmlGetParentNode(document, ZuXmlGetRootNode(document)))),
              1);
    ASSERT_EQ(ZuXmlWriteW(document, WideOf(scratch.File("pretty.xml")).c_str()), 1);
    ASSERT_EQ(ZuXmlWriteNoPrettyW(document, WideOf(scratch.File("plain.xml")).c_str()), 1);
    const WString original = *Serialised(document);

    Document plain(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromFileW(plain, WideOf(scratch.File("plain.xml")).c_str()), 1);
    EXPECT_EQ(Serialised(plain), original);

    Document pretty(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromFileW(pretty, WideOf(scratch.File("pretty.xml")).c_str()), 1);
    const auto prettyText = Serialised(pretty);
    ASSERT_TRUE(prettyText.has_value());
    EXPECT_NE(*prettyText, original) << "the indentation came back as text";
    EXPECT_EQ(WithoutIndentation(*prettyText), original);
}

TEST(WriteFile, ReplacesAnExistingFile) {
    ScratchDirectory scratch;
    WriteBytes(scratch.File("old.xml"), std::string(4096, 'x'));
    Document document = Built(u"root");
    ASSERT_EQ(ZuXmlWriteNoPrettyW(document, WideOf(scratch.File("old.xml")).c_str()), 1);
    EXPECT_EQ(ReadBytes(scratch.File("old.xml")),
              "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?><root/>");
}

TEST(WriteFile, IndentedEmptyRootEndsWithALineBreak) {
    ScratchDirectory scratch;
    Document document = Built(u"root");
    ASSERT_EQ(ZuXmlWriteW(document, WideOf(scratch.File("r.xml")).c_str()), 1);
    EXPECT_EQ(ReadBytes(scratch.File("r.xml")),
              "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>\n<root/>\n");
}

TEST(WriteFile, DocumentLoadedFromWideTextIsWrittenInUtf16) {
    // The serializer falls back on the document's input encoding, which is
    // "UTF-16" for a wide buffer: little-endian here, without a byte order mark.
    ScratchDirectory scratch;
    const WString text = W(u"<r>w</r>");
    Document document(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromBufW(document, text.c_str(), static_cast<uint32_t>(text.size())), 1);
    ASSERT_EQ(ZuXmlWriteNoPrettyW(document, WideOf(scratch.File("wide.xml")).c_str()), 1);
    const std::u16string expected = u"<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"no\" ?><r>w</r>";
    const std::string bytes = ReadBytes(scratch.File("wide.xml"));
    ASSERT_EQ(bytes.size(), expected.size() * 2);
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t *>(bytes.data()), expected.size()), expected);
}

TEST(WriteFile, DocumentLoadedFromLatin1IsWrittenInLatin1) {
    ScratchDirectory scratch;
    Document document = Loaded("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>caf\xe9</r>");
    ASSERT_EQ(ZuXmlWriteNoPrettyW(document, WideOf(scratch.File("latin1.xml")).c_str()), 1);
    EXPECT_EQ(ReadBytes(scratch.File("latin1.xml")),
              "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"no\" ?><r>caf\xe9</r>");
}

TEST(WriteFile, NarrowPathIsConvertedInTheLocale) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    ScratchDirectory scratch;
    Document document = Built(u"root");
    // The path is made from UTF-8 on purpose: a narrow std::filesystem path
    // on Windows is read in a code page of the library's own choosing.
    const std::filesystem::path file = scratch.path() / Utf8Path("caf\xc3\xa9.xml");
    ASSERT_EQ(ZuXmlWriteNoPrettyA(document, Utf8Of(file).c_str()), 1);
    EXPECT_TRUE(std::filesystem::exists(file));
}

#if !defined(_WIN32) // Windows' "C" locale takes every byte as Latin-1: tests/windows
TEST(WriteFile, NarrowPathInvalidInTheLocaleBecomesEmptyAndFails) {
    ScopedLocale locale("C");
    ASSERT_TRUE(locale.ok());
    ScratchDirectory scratch;
    Document document = Built(u"root");
    EXPECT_EQ(ZuXmlWriteNoPrettyA(document, NarrowOf(scratch.File("caf\xc3\xa9.xml")).c_str()), 0);
    EXPECT_EQ(ZuXmlWriteA(document, NarrowOf(scratch.File("caf\xc3\xa9.xml")).c_str()), 0);
    EXPECT_TRUE(std::filesystem::is_empty(scratch.path())) << "no file under any name";
}
#endif

// --- Round trip ----------------------------------------------------------------

TEST(RoundTrip, EditedDocumentWrittenToStringLoadsBackTheSame) {
    Document document(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromFileW(document, WideOf(DataFile("sample.xml")).c_str()), 1);
    ZuXmlNode added = ZuXmlAddNodeW(document, nullptr, W(u"p:added").c_str(), 1, W(u"caf\u00e9 \U0001F600").c_str(),
                                    W(u"urn:p").c_str());
    ASSERT_NE(added, nullptr);
    ASSERT_EQ(ZuXmlAddNodeAttributeW(document, added, W(u"when").c_str(), W(u"now & then").c_str()), 1);
    ASSERT_EQ(ZuXmlSetNodeTextContentW(document, Child(document, nullptr, u"item"), W(u"changed").c_str()), 1);
    ASSERT_EQ(ZuXmlRemoveNode(document, Child(document, nullptr, u"#comment")), 1);
    const auto first = Serialised(document);
    ASSERT_TRUE(first.has_value());

    Document again(ZuXmlCreateDocument());
    ASSERT_EQ(ZuXmlLoadFromBufW(again, first->c_str(), static_cast<uint32_t>(first->size())), 1);
    EXPECT_EQ(Serialised(again), first);
    EXPECT_EQ(TextContent(again, Child(again, nullptr, u"p:added")), W(u"caf\u00e9 \U0001F600"));
}

// --- Threads -------------------------------------------------------------------------

TEST(Threads, SeparateHandlesWorkFromSeparateThreadsAtOnce) {
    constexpr int kThreads = 4, kRounds = 50;
    std::vector<int> good(kThreads, 0);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back([t, &good] {
            const std::string name = "t" + std::to_string(t);
            for (int round = 0; round < kRounds; ++round) {
                ZuXmlDocument document = ZuXmlCreateDocument();
                const std::string xml = "<" + name + " n=\"" + std::to_string(round) + "\"/>";
                if (ZuXmlLoadFromBufA(document, xml.data(), static_cast<uint32_t>(xml.size())) == 1 &&
                    ZuXmlAddNodeA(document, nullptr, "child", 1, "text", nullptr) != nullptr) {
                    char buffer[256];
                    int32_t length = sizeof buffer;
                    const std::string expected = "<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"no\" ?><" +
                                                 name + " n=\"" + std::to_string(round) + "\"><child>text</child></" +
                                                 name + ">";
                    if (ZuXmlWriteToStringA(document, buffer, &length) == 1 && expected == buffer)
                        ++good[t];
                }
                ZuXmlReleaseDocument(document);
            }
        });
    for (auto &thread : threads)
        thread.join();
    EXPECT_EQ(good, std::vector<int>(kThreads, kRounds));
}

// --- Failures ----------------------------------------------------------------

// The four ways of writing a file.
struct WriteForm {
    const char *label;
    int32_t (*write)(ZuXmlDocument, const std::filesystem::path &);
};

const WriteForm kWriteForms[] = {
    {"WriteW", [](ZuXmlDocument d, const std::filesystem::path &p) { return ZuXmlWriteW(d, WideOf(p).c_str()); }},
    {"WriteNoPrettyW",
     [](ZuXmlDocument d, const std::filesystem::path &p) { return ZuXmlWriteNoPrettyW(d, WideOf(p).c_str()); }},
    {"WriteA", [](ZuXmlDocument d, const std::filesystem::path &p) { return ZuXmlWriteA(d, NarrowOf(p).c_str()); }},
    {"WriteNoPrettyA",
     [](ZuXmlDocument d, const std::filesystem::path &p) { return ZuXmlWriteNoPrettyA(d, NarrowOf(p).c_str()); }},
};

std::string FormName(const ::testing::TestParamInfo<WriteForm> &info) { return info.param.label; }

class WriteWithoutDocument : public ::testing::TestWithParam<WriteForm> {};

int32_t WriteBy(const WriteForm &form, ZuXmlDocument document, const std::filesystem::path &path) {
    return form.write(document, path);
}

TEST_P(WriteWithoutDocument, CreatedEmptyAnswersZeroAndCreatesNoFile) {
    ScratchDirectory scratch;
    Document document(ZuXmlCreateDocument());
    EXPECT_EQ(WriteBy(GetParam(), document, scratch.File("out.xml")), 0);
    EXPECT_FALSE(std::filesystem::exists(scratch.File("out.xml")));
}

TEST_P(WriteWithoutDocument, AfterAFailedLoadAnswersZeroAndCreatesNoFile) {
    ScratchDirectory scratch;
    Document document = Loaded("<r/>");
    ASSERT_EQ(ZuXmlLoadFromBufA(document, "<a><b>text</a>", 14), 0);
    EXPECT_EQ(WriteBy(GetParam(), document, scratch.File("out.xml")), 0);
    EXPECT_FALSE(std::filesystem::exists(scratch.File("out.xml")));
}

TEST_P(WriteWithoutDocument, NullHandleAnswersZeroAndCreatesNoFile) {
    ScratchDirectory scratch;
    EXPECT_EQ(WriteBy(GetParam(), nullptr, scratch.File("out.xml")), 0);
    EXPECT_FALSE(std::filesystem::exists(scratch.File("out.xml")));
}

TEST_P(WriteWithoutDocument, MissingDirectoryAnswersZeroAndLeavesNoFile) {
    ScratchDirectory scratch;
    Document document = Built(u"root");
    EXPECT_EQ(WriteBy(GetParam(), document, scratch.File("absent") / Utf8Path("out.xml")), 0);
    EXPECT_FALSE(std::filesystem::exists(scratch.File("absent")));
}

TEST_P(WriteWithoutDocument, PathNamingADirectoryAnswersZero) {
    ScratchDirectory scratch;
    Document document = Built(u"root");
    EXPECT_EQ(WriteBy(GetParam(), document, scratch.path()), 0);
    EXPECT_TRUE(std::filesystem::is_directory(scratch.path()));
}

INSTANTIATE_TEST_SUITE_P(Forms, WriteWithoutDocument, ::testing::ValuesIn(kWriteForms), FormName);

const FailingCall kStringCalls[] = {
    {"WriteToStringW",
     [](ZuXmlDocument d, ZuXmlNode) {
         return WideGetterFails([&](ZuXmlWChar *b, int32_t *n) { return ZuXmlWriteToStringW(d, b, n); });
     }},
    {"WriteToStringA",
     [](ZuXmlDocument d, ZuXmlNode) {
         return NarrowGetterFails([&](char *b, int32_t *n) { return ZuXmlWriteToStringA(d, b, n); });
     }},
};

INSTANTIATE_TEST_SUITE_P(Writing, FailsWithoutDocument, ::testing::ValuesIn(kStringCalls), CallName);
INSTANTIATE_TEST_SUITE_P(Writing, FailsForNullDocument, ::testing::ValuesIn(kStringCalls), CallName);

TEST(WriteToString, AfterAFailedLoadAnswersZero) {
    Document document = Loaded("<r/>");
    ASSERT_EQ(ZuXmlLoadFromBufA(document, "<a><b>text</a>", 14), 0);
    EXPECT_TRUE(WideGetterFails([&](ZuXmlWChar *b, int32_t *n) { return ZuXmlWriteToStringW(document, b, n); }));
}

} // namespace
