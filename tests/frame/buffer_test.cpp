// SPDX-License-Identifier: Apache-2.0
// The caller-buffer protocol and the narrow getter wrapper, on text of
// known length.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "frame/buffer.h"
#include "support/text.h"

using namespace zuxml;
using namespace zuxml_test;

namespace {

struct LengthCase {
    int32_t length;
    int32_t expectedResult;
    int32_t expectedLength;
};

// Names a length case after its length: Length6, LengthMinus1.
std::string CaseName(const ::testing::TestParamInfo<LengthCase> &info) {
    const int64_t length = info.param.length;
    return length < 0 ? "LengthMinus" + std::to_string(-length) : "Length" + std::to_string(length);
}

class WideProtocol : public ::testing::TestWithParam<LengthCase> {};

// The text "hello" has 5 units: 5 is too small, 6 fits exactly.
TEST_P(WideProtocol, AnswersAndWritesByLength) {
    const LengthCase c = GetParam();
    TextResult text;
    text.View(u"hello");
    auto buffer = FilledBuffer<XMLCh>(16);
    int32_t length = c.length;
    EXPECT_EQ(DeliverW(1, text, buffer.data(), &length), c.expectedResult);
    EXPECT_EQ(length, c.expectedLength);
    if (c.expectedResult == 0) {
        EXPECT_TRUE(Untouched(buffer));
    } else {
        EXPECT_EQ(std::u16string(buffer.data()), u"hello");
        for (int32_t i = 5; i < c.length; ++i)
            EXPECT_EQ(buffer[i], 0) << "unit " << i << " of a " << c.length << "-unit buffer";
        for (size_t i = c.length; i < buffer.size(); ++i)
            EXPECT_EQ(buffer[i], Sentinel<XMLCh>::value) << "unit " << i << " is past the buffer";
    }
}

INSTANTIATE_TEST_SUITE_P(Lengths, WideProtocol,
                         ::testing::Values(LengthCase{5, 0, 6}, LengthCase{6, 1, 6}, LengthCase{7, 1, 7},
                                           LengthCase{10, 1, 10}, LengthCase{0, 0, 6}, LengthCase{-1, 0, 6},
                                           LengthCase{-100, 0, 6}, LengthCase{INT32_MIN, 0, 6}),
                         CaseName);

TEST(WideProtocolTest, RetryWithReportedLengthSucceeds) {
    TextResult text;
    text.View(u"retry me");
    int32_t length = 0;
    EXPECT_EQ(DeliverW(1, text, nullptr, &length), 0);
    auto buffer = FilledBuffer<XMLCh>(length);
    EXPECT_EQ(DeliverW(1, text, buffer.data(), &length), 1);
    EXPECT_EQ(std::u16string(buffer.data()), u"retry me");
}

TEST(WideProtocolTest, FailedOperationWritesNothing) {
    TextResult text;
    text.View(u"abc");
    auto buffer = FilledBuffer<XMLCh>(8);
    int32_t length = 8;
    EXPECT_EQ(DeliverW(0, text, buffer.data(), &length), 0);
    EXPECT_EQ(length, 8);
    EXPECT_TRUE(Untouched(buffer));
}

TEST(WideProtocolTest, EmptyTextNeedsOneUnit) {
    TextResult text;
    text.View(nullptr);
    auto buffer = FilledBuffer<XMLCh>(4);
    int32_t length = 0;
    EXPECT_EQ(DeliverW(1, text, buffer.data(), &length), 0);
    EXPECT_EQ(length, 1);
    EXPECT_EQ(DeliverW(1, text, buffer.data(), &length), 1);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(buffer[1], Sentinel<XMLCh>::value);
}

class NarrowProtocol : public ::testing::TestWithParam<LengthCase> {};

TEST_P(NarrowProtocol, AnswersLikeTheWideFormAndWritesTheLocaleForm) {
    const LengthCase c = GetParam();
    TextResult text;
    text.View(u"hello");
    auto buffer = FilledBuffer<char>(16);
    int32_t length = c.length;
    EXPECT_EQ(DeliverA(1, text, buffer.data(), &length), c.expectedResult);
    EXPECT_EQ(length, c.expectedLength);
    if (c.expectedResult == 0) {
        // As if the wide buffer it converts held the empty string.
        EXPECT_EQ(buffer[0], 0);
        EXPECT_EQ(buffer[1], Sentinel<char>::value);
    } else {
        EXPECT_STREQ(buffer.data(), "hello");
    }
}

INSTANTIATE_TEST_SUITE_P(Lengths, NarrowProtocol,
                         ::testing::Values(LengthCase{5, 0, 6}, LengthCase{6, 1, 6}, LengthCase{10, 1, 10},
                                           LengthCase{0, 0, 6}, LengthCase{-1, 0, 6}, LengthCase{-7, 0, 6}),
                         CaseName);

TEST(NarrowProtocolTest, FailedOperationLeavesTheEmptyString) {
    TextResult text;
    text.View(u"abc");
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 8;
    EXPECT_EQ(DeliverA(0, text, buffer.data(), &length), 0);
    EXPECT_EQ(length, 8);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(buffer[1], Sentinel<char>::value);
}

#if !defined(_WIN32) // glibc's C.UTF-8; tests/windows covers the Windows code pages
TEST(NarrowProtocolTest, NarrowGetterCutsMultibyteTextAtCallerLength) {
    ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    TextResult text;
    text.View(u"\u00e9\u00e8\u00ea"); // three characters of two bytes each
    auto buffer = FilledBuffer<char>(8);
    int32_t length = 4;
    EXPECT_EQ(DeliverA(1, text, buffer.data(), &length), 1);
    EXPECT_EQ(length, 4);
    EXPECT_EQ(std::string(buffer.data(), 4), "\xc3\xa9\xc3\xa8");
    EXPECT_EQ(buffer[4], Sentinel<char>::value) << "no terminator fits";
}

TEST(NarrowProtocolTest, TooSmallReportsWideCountPlusOne) {
    ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    TextResult text;
    text.View(u"\u00e9\u00e8\u00ea");
    int32_t length = 1;
    char buffer[8];
    EXPECT_EQ(DeliverA(1, text, buffer, &length), 0);
    EXPECT_EQ(length, 4) << "three wide characters plus one, not six bytes plus one";
}

TEST(NarrowProtocolTest, TextOutsideTheBmpBecomesOneMultibyteCharacter) {
    ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    TextResult text;
    text.View(u"a\U0001F600b"); // a surrogate pair in UTF-16
    char buffer[16];
    int32_t length = 16;
    EXPECT_EQ(DeliverA(1, text, buffer, &length), 1);
    EXPECT_STREQ(buffer, "a\xf0\x9f\x98\x80"
                         "b");
}
#endif

TEST(NarrowProtocolTest, UnrepresentableTextEndsWhereTheConversionStopped) {
    ScopedLocale locale("C");
    ASSERT_TRUE(locale.ok());
    TextResult text;
    text.View(u"ab\u00e9cd");
    auto buffer = FilledBuffer<char>(16);
    int32_t length = 16;
    EXPECT_EQ(DeliverA(1, text, buffer.data(), &length), 1) << "the conversion's failure is not examined";
    EXPECT_EQ(std::string(buffer.data(), 2), "ab");
}

TEST(NarrowProtocolTest, LongTextUsesMoreThanTheStackScratch) {
    std::u16string longText(5000, u'x');
    TextResult text;
    text.View(longText.c_str());
    std::vector<char> buffer(6000, '#');
    int32_t length = 6000;
    EXPECT_EQ(DeliverA(1, text, buffer.data(), &length), 1);
    EXPECT_EQ(std::string(buffer.data()), std::string(5000, 'x'));
}

TEST(TwoOutputProtocol, FillsTheBufferThatFitsEvenWhenTheOtherIsTooSmall) {
    TextResult local, prefix;
    local.View(u"item");
    prefix.View(u"p");
    auto localBuffer = FilledBuffer<XMLCh>(16);
    auto prefixBuffer = FilledBuffer<XMLCh>(4);
    int32_t localLength = 16, prefixLength = 1;
    EXPECT_EQ(DeliverW(1, local, localBuffer.data(), &localLength, prefix, prefixBuffer.data(), &prefixLength), 0);
    EXPECT_EQ(std::u16string(localBuffer.data()), u"item");
    EXPECT_EQ(localLength, 16);
    EXPECT_EQ(prefixLength, 2);
    EXPECT_TRUE(Untouched(prefixBuffer));
}

TEST(TwoOutputProtocol, NarrowFormFillsEachBufferOnItsOwn) {
    TextResult local, prefix;
    local.View(u"item");
    prefix.View(u"p");
    auto localBuffer = FilledBuffer<char>(4);
    auto prefixBuffer = FilledBuffer<char>(4);
    int32_t localLength = 2, prefixLength = 4;
    EXPECT_EQ(DeliverA(1, local, localBuffer.data(), &localLength, prefix, prefixBuffer.data(), &prefixLength), 0);
    EXPECT_EQ(localLength, 5);
    EXPECT_EQ(localBuffer[0], 0);
    EXPECT_STREQ(prefixBuffer.data(), "p");
    EXPECT_EQ(prefixLength, 4);
}

TEST(TwoOutputProtocol, BothFitAnswersOne) {
    TextResult local, prefix;
    local.View(u"item");
    XMLCh a[8], b[8];
    int32_t la = 8, lb = 8;
    EXPECT_EQ(DeliverW(1, local, a, &la, prefix, b, &lb), 1);
    EXPECT_EQ(std::u16string(a), u"item");
    EXPECT_EQ(b[0], 0);
}

} // namespace
