// SPDX-License-Identifier: Apache-2.0
#include "getter_protocol.h"

#include <algorithm>
#include <vector>

namespace zuxml_dom_test {

using zuxml_test::FilledBuffer;
using zuxml_test::ScopedLocale;
using zuxml_test::Sentinel;
using zuxml_test::Untouched;

namespace {

// Room past the caller's length, to see that nothing is written there.
constexpr size_t kSlack = 8;

size_t BufferSize(int32_t length) { return static_cast<size_t>(std::max(length, 0)) + kSlack; }

} // namespace

// A test program instantiates only the suites its getters need.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(WideGetterProtocol);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(NarrowGetterProtocol);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(GetterRetry);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(MultibyteNarrowGetter);

std::string GetterName(const ::testing::TestParamInfo<GetterCase> &info) { return info.param.label; }

std::string WideName(const ::testing::TestParamInfo<std::tuple<GetterCase, LengthCase>> &info) {
    return std::string(std::get<0>(info.param).label) + "_" + std::get<1>(info.param).label;
}

std::string NarrowName(const ::testing::TestParamInfo<std::tuple<GetterCase, LengthCase, const char *>> &info) {
    std::string locale = std::get<2>(info.param);
    std::replace_if(
        locale.begin(), locale.end(), [](char c) { return !isalnum(static_cast<unsigned char>(c)); }, '_');
    return std::string(std::get<0>(info.param).label) + "_" + std::get<1>(info.param).label + "_" + locale;
}

TEST_P(WideGetterProtocol, AnswersAndWritesByLength) {
    const GetterCase &getter = std::get<0>(GetParam());
    const LengthCase &lengthCase = std::get<1>(GetParam());
    Document document = Loaded(getter.xml);
    const WString text = W(getter.text);
    const int32_t textLength = static_cast<int32_t>(text.size());
    const int32_t given = lengthCase.For(textLength);

    auto buffer = FilledBuffer<ZuXmlWChar>(BufferSize(given));
    int32_t length = given;
    const int32_t result = getter.wide(document, buffer.data(), &length);
    if (!lengthCase.fits) {
        EXPECT_EQ(result, 0);
        EXPECT_EQ(length, textLength + 1) << "the needed length counts the terminator";
        EXPECT_TRUE(Untouched(buffer)) << "a too-small buffer is not written";
        return;
    }
    EXPECT_EQ(result, 1);
    EXPECT_EQ(length, given) << "the length is left as the caller gave it";
    EXPECT_EQ(WString(buffer.data()), text);
    for (int32_t i = textLength; i < given; ++i)
        EXPECT_EQ(buffer[i], 0) << "unit " << i << " of a buffer of " << given;
    for (size_t i = static_cast<size_t>(given); i < buffer.size(); ++i)
        EXPECT_EQ(buffer[i], Sentinel<ZuXmlWChar>::value) << "unit " << i << " lies past the caller's length";
}

TEST_P(NarrowGetterProtocol, AnswersLikeTheWideFormInTheLocale) {
    const GetterCase &getter = std::get<0>(GetParam());
    const LengthCase &lengthCase = std::get<1>(GetParam());
    ScopedLocale locale(std::get<2>(GetParam()));
    ASSERT_TRUE(locale.ok()) << std::get<2>(GetParam());
    Document document = Loaded(getter.xml);
    const std::string text = Utf8(W(getter.text));
    const int32_t textLength = static_cast<int32_t>(W(getter.text).size());
    const int32_t given = lengthCase.For(textLength);

    auto buffer = FilledBuffer<char>(BufferSize(given));
    int32_t length = given;
    const int32_t result = getter.narrow(document, buffer.data(), &length);
    if (!lengthCase.fits) {
        EXPECT_EQ(result, 0);
        EXPECT_EQ(length, textLength + 1);
        EXPECT_EQ(buffer[0], 0) << "the narrow buffer holds the empty string";
        EXPECT_TRUE(std::all_of(buffer.begin() + 1, buffer.end(), [](char c) { return c == Sentinel<char>::value; }))
            << "nothing but the empty string is written";
        return;
    }
    EXPECT_EQ(result, 1);
    EXPECT_EQ(length, given);
    EXPECT_EQ(std::string(buffer.data()), text);
    for (size_t i = static_cast<size_t>(given); i < buffer.size(); ++i)
        EXPECT_EQ(buffer[i], Sentinel<char>::value) << "byte " << i << " lies past the caller's length";
}

TEST_P(GetterRetry, WideRetryWithTheReportedLengthSucceeds) {
    Document document = Loaded(GetParam().xml);
    int32_t length = 0;
    ASSERT_EQ(GetParam().wide(document, nullptr, &length), 0) << "a length of 0 never writes the buffer";
    ASSERT_GT(length, 0);
    auto buffer = FilledBuffer<ZuXmlWChar>(static_cast<size_t>(length));
    EXPECT_EQ(GetParam().wide(document, buffer.data(), &length), 1);
    EXPECT_EQ(WString(buffer.data()), W(GetParam().text));
    EXPECT_EQ(buffer.back(), 0) << "the exact buffer ends with the terminator";
}

TEST_P(GetterRetry, NarrowRetryWithTheReportedLengthSucceeds) {
    Document document = Loaded(GetParam().xml);
    char first = Sentinel<char>::value;
    int32_t length = 0;
    ASSERT_EQ(GetParam().narrow(document, &first, &length), 0);
    EXPECT_EQ(first, 0) << "the narrow form always writes the empty string first";
    ASSERT_GT(length, 0);
    auto buffer = FilledBuffer<char>(static_cast<size_t>(length));
    EXPECT_EQ(GetParam().narrow(document, buffer.data(), &length), 1);
    EXPECT_EQ(std::string(buffer.data()), Utf8(W(GetParam().text)));
}

// The multibyte rows all read the text "\u00e9\u00e8\u00ea": three wide
// characters, six bytes in UTF-8.
TEST_P(MultibyteNarrowGetter, WideFormGivesTheUnitsUnchanged) {
    Document document = Loaded(GetParam().xml);
    const auto text = ReadAll<ZuXmlWChar>([&](ZuXmlWChar *b, int32_t *n) { return GetParam().wide(document, b, n); });
    EXPECT_EQ(text, W(GetParam().text));
}

TEST_P(MultibyteNarrowGetter, NarrowGetterCutsMultibyteTextAtCallerLength) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document = Loaded(GetParam().xml);
    auto buffer = FilledBuffer<char>(16);
    int32_t length = 4;
    EXPECT_EQ(GetParam().narrow(document, buffer.data(), &length), 1) << "4 > 3 wide characters: it fits";
    EXPECT_EQ(length, 4);
    EXPECT_EQ(std::string(buffer.data(), 4), "\xc3\xa9\xc3\xa8") << "the two characters that fit in 4 bytes";
    EXPECT_EQ(buffer[4], Sentinel<char>::value) << "no terminator after the cut";
}

TEST_P(MultibyteNarrowGetter, TooSmallReportsTheWideCountPlusOne) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document = Loaded(GetParam().xml);
    auto buffer = FilledBuffer<char>(16);
    int32_t length = 3;
    EXPECT_EQ(GetParam().narrow(document, buffer.data(), &length), 0);
    EXPECT_EQ(length, 4) << "three wide characters plus one, not six bytes plus one";
    EXPECT_EQ(buffer[0], 0);
}

TEST_P(MultibyteNarrowGetter, TwiceTheWideCountHoldsTheWholeText) {
    ScopedLocale locale(kUtf8Locale);
    ASSERT_TRUE(locale.ok());
    Document document = Loaded(GetParam().xml);
    auto buffer = FilledBuffer<char>(16);
    int32_t length = 7;
    EXPECT_EQ(GetParam().narrow(document, buffer.data(), &length), 1);
    EXPECT_EQ(length, 7);
    EXPECT_EQ(std::string(buffer.data()), "\xc3\xa9\xc3\xa8\xc3\xaa");
}

#if !defined(_WIN32) // Windows' "C" locale takes every byte as Latin-1: tests/windows
TEST_P(MultibyteNarrowGetter, CLocaleCannotHoldTheTextButTheAnswerStands) {
    ScopedLocale locale("C");
    ASSERT_TRUE(locale.ok());
    Document document = Loaded(GetParam().xml);
    auto buffer = FilledBuffer<char>(16);
    int32_t length = 16;
    EXPECT_EQ(GetParam().narrow(document, buffer.data(), &length), 1) << "the conversion's failure is not examined";
    EXPECT_EQ(buffer[0], 0) << "the first character already fails: the cleared first byte stays";
}
#endif

} // namespace zuxml_dom_test
