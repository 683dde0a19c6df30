// The narrow forms under the Windows C runtime's own locales: code page
// 1252 (one byte a character), 932 (one or two) and 65001 (UTF-8, where the
// C runtime has it). Text goes in and out through ZUXML.dll's A and W
// entries, so the DLL's conversions are the ones under test.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cwchar>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "support/text.h"
#include "zuxml.h"

using namespace zuxml_test;

namespace {

// Sets a code page for one test, and tells whether the C runtime really
// converts with it: msvcrt accepts ".65001" but leaves LC_CTYPE behind.
class CodePage {
public:
    CodePage(const char *name, const char *sample, const wchar_t *sampleWide) : m_Locale(name) {
        wchar_t wide[8] = {};
        m_bActive = m_Locale.ok() && std::mbstowcs(wide, sample, 8) == std::wcslen(sampleWide) &&
                    std::wcscmp(wide, sampleWide) == 0;
    }
    bool active() const { return m_bActive; }

private:
    ScopedLocale m_Locale;
    bool m_bActive = false;
};

// A document whose root element has the given wide name.
class Document {
public:
    explicit Document(const WString &root) : m_h(ZuXmlCreateWriteDocumentW(root.c_str(), nullptr, nullptr)) {}
    explicit Document(const char *root) : m_h(ZuXmlCreateWriteDocumentA(root, nullptr, nullptr)) {}
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;
    ~Document() { ZuXmlReleaseDocument(m_h); }
    ZuXmlDocument get() const { return m_h; }
    ZuXmlNode root() const { return ZuXmlGetRootNode(m_h); }

    WString WideName() const {
        ZuXmlWChar buffer[64] = {};
        int32_t length = 64;
        return ZuXmlGetNodeNameW(m_h, root(), buffer, &length) == 1 ? WString(buffer) : W(u"?");
    }

private:
    ZuXmlDocument m_h;
};

// Code page 1252: one byte for each character of Western European text.
class CodePage1252 : public ::testing::Test {
protected:
    void SetUp() override {
        if (!m_Page.active())
            GTEST_SKIP() << "the C runtime does not convert with code page .1252";
    }

private:
    CodePage m_Page{".1252", "\xe9", L"\u00e9"};
};

TEST_F(CodePage1252, NarrowArgumentBecomesWideText) {
    Document document("caf\xe9");
    ASSERT_NE(document.get(), nullptr);
    EXPECT_EQ(document.WideName(), W(u"caf\u00e9"));
}

TEST_F(CodePage1252, NarrowGetterWritesOneBytePerCharacter) {
    Document document(W(u"caf\u00e9"));
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 5;
    EXPECT_EQ(ZuXmlGetNodeNameA(document.get(), document.root(), buffer.data(), &length), 1);
    EXPECT_EQ(length, 5);
    EXPECT_STREQ(buffer.data(), "caf\xe9");
}

TEST_F(CodePage1252, TooSmallReportsTheLengthWithTerminator) {
    Document document(W(u"caf\u00e9"));
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 4;
    EXPECT_EQ(ZuXmlGetNodeNameA(document.get(), document.root(), buffer.data(), &length), 0);
    EXPECT_EQ(length, 5);
    EXPECT_EQ(buffer[0], 0) << "the empty string";
    EXPECT_EQ(buffer[1], Sentinel<char>::value);
}

TEST_F(CodePage1252, UnrepresentableTextIsNotAnError) {
    Document document(W(u"a\u3042b")); // HIRAGANA A has no place in 1252
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 8;
    EXPECT_EQ(ZuXmlGetNodeNameA(document.get(), document.root(), buffer.data(), &length), 1)
        << "the conversion's failure is not examined";
    EXPECT_EQ(length, 8);
    EXPECT_TRUE(buffer[0] == 0 || buffer[0] == 'a') << "the text ends where the conversion stopped";
}

TEST_F(CodePage1252, WideTextOutsideTheCodePagePassesUnchanged) {
    Document document(W(u"a\u3042b"));
    EXPECT_EQ(document.WideName(), W(u"a\u3042b"));
}

// Code pages of more than one byte a character: the narrow length, which
// counts wide characters, falls short of the bytes. 932 writes each kana in
// two bytes; 65001 (UTF-8, where the C runtime has it) each accented letter.
struct MultibyteCase {
    const char *locale;
    const char *sample; // one character in the code page...
    const wchar_t *sampleWide; // ...and as wide text
    const char16_t *text; // three characters of two bytes each
    const char *firstTwo; // the bytes of the first two of them
};

// Test names and messages show the code page.
void PrintTo(const MultibyteCase &c, std::ostream *out) { *out << c.locale; }

class MultibyteCodePage : public ::testing::TestWithParam<MultibyteCase> {
protected:
    void SetUp() override {
        const MultibyteCase &c = GetParam();
        m_pPage = std::make_unique<CodePage>(c.locale, c.sample, c.sampleWide);
        if (!m_pPage->active())
            GTEST_SKIP() << "the C runtime does not convert with code page " << c.locale;
        m_pDocument = std::make_unique<Document>(W(c.text));
        ASSERT_NE(m_pDocument->get(), nullptr);
    }
    void TearDown() override {
        m_pDocument.reset();
        m_pPage.reset();
    }
    int32_t GetName(char *buffer, int32_t *length) {
        return ZuXmlGetNodeNameA(m_pDocument->get(), m_pDocument->root(), buffer, length);
    }

private:
    std::unique_ptr<CodePage> m_pPage;
    std::unique_ptr<Document> m_pDocument;
};

TEST_P(MultibyteCodePage, NarrowArgumentBecomesWideText) {
    Document document(GetParam().sample);
    ASSERT_NE(document.get(), nullptr);
    EXPECT_EQ(document.WideName(), WString(1, static_cast<ZuXmlWChar>(GetParam().sampleWide[0])));
}

TEST_P(MultibyteCodePage, TooSmallReportsWideCountPlusOne) {
    char buffer[8];
    int32_t length = 1;
    EXPECT_EQ(GetName(buffer, &length), 0);
    EXPECT_EQ(length, 4) << "three wide characters plus one, not six bytes plus one";
}

TEST_P(MultibyteCodePage, NarrowGetterCutsMultibyteTextAtCallerLength) {
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 4;
    EXPECT_EQ(GetName(buffer.data(), &length), 1);
    EXPECT_EQ(length, 4);
    EXPECT_EQ(std::string(buffer.data(), 4), GetParam().firstTwo);
    EXPECT_EQ(buffer[4], Sentinel<char>::value) << "no terminator fits";
}

TEST_P(MultibyteCodePage, RetryWithTheReportedLengthStillCutsTheBytes) {
    int32_t length = 0;
    EXPECT_EQ(GetName(nullptr, &length), 0);
    ASSERT_EQ(length, 4);
    auto buffer = FilledBuffer<char>(8);
    EXPECT_EQ(GetName(buffer.data(), &length), 1);
    EXPECT_EQ(std::string(buffer.data(), 4), GetParam().firstTwo) << "4 bytes hold two of the three characters";
}

INSTANTIATE_TEST_SUITE_P(
    CodePages, MultibyteCodePage,
    ::testing::Values(MultibyteCase{".932", "\x82\xa0", L"\u3042", u"\u3042\u3044\u3046", "\x82\xa0\x82\xa2"},
                      MultibyteCase{".65001", "\xc3\xa9", L"\u00e9", u"\u00e9\u00e8\u00ea", "\xc3\xa9\xc3\xa8"}),
    [](const ::testing::TestParamInfo<MultibyteCase> &info) { return std::string(info.param.locale + 1); });

TEST(CodePage65001, InvalidSequenceBecomesAnEmptyString) {
    CodePage page(".65001", "\xc3\xa9", L"\u00e9");
    if (!page.active())
        GTEST_SKIP() << "the C runtime does not convert with code page .65001";
    EXPECT_EQ(ZuXmlCreateWriteDocumentA("ab\xff\xfe", nullptr, nullptr), nullptr)
        << "the empty string is no element name";
}

// The "C" locale of the Windows C runtime passes bytes through as the
// first 256 code points instead of rejecting bytes above 127.

TEST(CLocale, BytesAboveAsciiBecomeTheFirst256CodePoints) {
    ScopedLocale locale("C");
    ASSERT_TRUE(locale.ok());
    Document document("caf\xe9");
    ASSERT_NE(document.get(), nullptr);
    EXPECT_EQ(document.WideName(), W(u"caf\u00e9"));
}

} // namespace
