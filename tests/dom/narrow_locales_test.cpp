// SPDX-License-Identifier: Apache-2.0
// The narrow forms under the C runtime's locales, named in support/text.h:
// a single-byte one (one byte a character), a double-byte one (one or two)
// and UTF-8. Text goes in through ZuXmlCreateWriteDocumentA and out through
// ZuXmlGetNodeNameA, so the library's conversions are the ones under test;
// the expected bytes are written out from each code page's own table.
#include <gtest/gtest.h>

#include <string>

#include "dom_support.h"

using namespace zuxml_dom_test;
using zuxml_test::FilledBuffer;
using zuxml_test::kSingleByteLocale;
using zuxml_test::MultibyteSample;
using zuxml_test::ScopedLocale;
using zuxml_test::Sentinel;

namespace {

// The name of the root element through the narrow getter.
int32_t RootNameA(ZuXmlDocument document, char *buffer, int32_t *length) {
    return ZuXmlGetNodeNameA(document, ZuXmlGetRootNode(document), buffer, length);
}

// --- One byte a character ----------------------------------------------------

// Latin-1 and code page 1252 agree on U+00E9: the byte E9.
class SingleByteLocale : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_Locale.ok()); }

private:
    ScopedLocale m_Locale{kSingleByteLocale};
};

TEST_F(SingleByteLocale, NarrowArgumentBecomesWideText) {
    Document document(ZuXmlCreateWriteDocumentA("caf\xe9", nullptr, nullptr));
    ASSERT_NE(document.get(), nullptr);
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"caf\u00e9"));
}

TEST_F(SingleByteLocale, NarrowGetterWritesOneBytePerCharacter) {
    Document document = Built(u"caf\u00e9");
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 4;
    EXPECT_EQ(RootNameA(document, buffer.data(), &length), 0);
    EXPECT_EQ(length, 5) << "four characters and the terminator";
    EXPECT_EQ(buffer[0], 0) << "the empty string";
    EXPECT_EQ(buffer[1], Sentinel<char>::value);

    EXPECT_EQ(RootNameA(document, buffer.data(), &length), 1);
    EXPECT_EQ(length, 5);
    EXPECT_STREQ(buffer.data(), "caf\xe9");
}

TEST_F(SingleByteLocale, UnrepresentableTextIsNotAnError) {
    Document document = Built(u"a\u3042b"); // HIRAGANA A has no place in the code page
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 8;
    EXPECT_EQ(RootNameA(document, buffer.data(), &length), 1) << "the conversion's failure is not examined";
    EXPECT_EQ(length, 8);
    EXPECT_TRUE(buffer[0] == 0 || buffer[0] == 'a') << "the text ends where the conversion stopped";
}

TEST_F(SingleByteLocale, WideTextOutsideTheCodePagePassesUnchanged) {
    Document document = Built(u"a\u3042b");
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(u"a\u3042b"));
}

// --- More bytes than wide characters -----------------------------------------

// The narrow length counts wide characters, so it falls short of the bytes:
// each row's text is three characters of two bytes each in its locale.

class MultibyteLocale : public ::testing::TestWithParam<MultibyteSample> {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_Locale.ok());
        ASSERT_NE(m_Document.get(), nullptr);
    }
    int32_t GetName(char *buffer, int32_t *length) { return RootNameA(m_Document, buffer, length); }
    std::string Bytes(size_t count) const { return std::string(GetParam().bytes, count); }

private:
    ScopedLocale m_Locale{GetParam().locale};
    Document m_Document{Built(GetParam().text)};
};

TEST_P(MultibyteLocale, NarrowArgumentBecomesWideText) {
    Document document(ZuXmlCreateWriteDocumentA(GetParam().bytes, nullptr, nullptr));
    ASSERT_NE(document.get(), nullptr);
    EXPECT_EQ(NodeName(document, ZuXmlGetRootNode(document)), W(GetParam().text));
}

TEST_P(MultibyteLocale, NarrowNameFindsTheElement) {
    Document document = Loaded("<r><x/><" + Utf8(W(GetParam().text)) + "/></r>");
    const ZuXmlNode child = Child(document, nullptr, GetParam().text);
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(ZuXmlFindChildA(document, nullptr, GetParam().bytes), child);
    EXPECT_EQ(ZuXmlFindChildA(document, nullptr, Bytes(4).c_str()), nullptr) << "two of the three characters";
}

TEST_P(MultibyteLocale, TooSmallReportsWideCountPlusOne) {
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 3;
    EXPECT_EQ(GetName(buffer.data(), &length), 0);
    EXPECT_EQ(length, 4) << "three wide characters plus one, not six bytes plus one";
    EXPECT_EQ(buffer[0], 0);
}

TEST_P(MultibyteLocale, NarrowGetterCutsMultibyteTextAtCallerLength) {
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 4;
    EXPECT_EQ(GetName(buffer.data(), &length), 1);
    EXPECT_EQ(length, 4);
    EXPECT_EQ(std::string(buffer.data(), 4), Bytes(4)) << "the two characters that fit in 4 bytes";
    EXPECT_EQ(buffer[4], Sentinel<char>::value) << "no terminator fits";
}

TEST_P(MultibyteLocale, RetryWithTheReportedLengthStillCutsTheBytes) {
    int32_t length = 0;
    EXPECT_EQ(GetName(nullptr, &length), 0);
    ASSERT_EQ(length, 4);
    auto buffer = FilledBuffer<char>(8);
    EXPECT_EQ(GetName(buffer.data(), &length), 1);
    EXPECT_EQ(std::string(buffer.data(), 4), Bytes(4)) << "4 bytes hold two of the three characters";
}

TEST_P(MultibyteLocale, TwiceTheWideCountHoldsTheWholeText) {
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 7;
    EXPECT_EQ(GetName(buffer.data(), &length), 1);
    EXPECT_EQ(length, 7);
    EXPECT_EQ(std::string(buffer.data()), Bytes(6));
}

INSTANTIATE_TEST_SUITE_P(Locales, MultibyteLocale,
                         ::testing::Values(zuxml_test::kUtf8Sample, zuxml_test::kDoubleByteSample),
                         [](const ::testing::TestParamInfo<MultibyteSample> &info) {
                             return info.index == 0 ? "Utf8" : "DoubleByte";
                         });

TEST(Utf8Locale, InvalidSequenceBecomesAnEmptyString) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    EXPECT_EQ(ZuXmlCreateWriteDocumentA("ab\xff\xfe", nullptr, nullptr), nullptr)
        << "the empty string is no element name";
}

} // namespace
