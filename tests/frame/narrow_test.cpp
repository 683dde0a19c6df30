// SPDX-License-Identifier: Apache-2.0
// Narrow arguments on their way to UTF-16, through the C runtime's locale.
#include <gtest/gtest.h>

#include "frame/narrow.h"
#include "frame/widechar.h"
#include "support/text.h"

using namespace zuxml;
using namespace zuxml_test;

namespace {

TEST(NarrowArgument, NullStaysNull) { EXPECT_EQ(NarrowArg(nullptr).get(), nullptr); }

TEST(NarrowArgument, EmptyStringStaysAnEmptyString) {
    NarrowArg arg("");
    ASSERT_NE(arg.get(), nullptr);
    EXPECT_EQ(std::u16string(arg.get()), u"");
}

TEST(NarrowArgument, AsciiPassesUnderTheCLocale) {
    ScopedLocale locale("C");
    EXPECT_EQ(std::u16string(NarrowArg("root").get()), u"root");
}

#if !defined(_WIN32) // glibc's C.UTF-8; tests/windows covers the Windows code pages
TEST(NarrowArgument, InvalidSequenceBecomesAnEmptyStringNotNull) {
    ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    NarrowArg arg("ab\xff\xfe");
    ASSERT_NE(arg.get(), nullptr);
    EXPECT_EQ(std::u16string(arg.get()), u"");
}
#endif

#if !defined(_WIN32) // Windows' "C" locale takes every byte: tests/windows/locale_test.cpp
TEST(NarrowArgument, HighBytesAreInvalidUnderTheCLocale) {
    ScopedLocale locale("C");
    NarrowArg arg("caf\xc3\xa9");
    ASSERT_NE(arg.get(), nullptr);
    EXPECT_EQ(std::u16string(arg.get()), u"");
}
#endif

#if !defined(_WIN32) // glibc's C.UTF-8; tests/windows covers the Windows code pages
TEST(NarrowArgument, Utf8LocaleGivesUtf16) {
    ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    EXPECT_EQ(std::u16string(NarrowArg("caf\xc3\xa9").get()), u"caf\u00e9");
}

TEST(NarrowArgument, CharacterAboveTheBmpBecomesASurrogatePair) {
    ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    const std::u16string text = NarrowArg("x\xf0\x9f\x98\x80y").get();
    ASSERT_EQ(text.size(), 4u);
    EXPECT_EQ(text, u"x\U0001F600y");
    EXPECT_EQ(text[1], 0xD83D);
    EXPECT_EQ(text[2], 0xDE00);
}
#endif

TEST(WideCharBridge, PairsJoinAndLoneSurrogatesPassAsThemselves) {
    const char16_t text[] = u"a\U0001F600\xD800z";
    wchar_t out[8];
    ToWideChar(text, std::char_traits<char16_t>::length(text), out);
    if (kWideCharIsUtf16) {
        EXPECT_EQ(out[1], 0xD83D);
    } else {
        EXPECT_EQ(static_cast<unsigned long>(out[1]), 0x1F600ul);
        EXPECT_EQ(static_cast<unsigned long>(out[2]), 0xD800ul);
        EXPECT_EQ(out[3], L'z');
        EXPECT_EQ(out[4], 0);
    }
}

TEST(WideCharBridge, ValuesBeyondUnicodeAreRejected) {
    if (kWideCharIsUtf16)
        GTEST_SKIP() << "wchar_t is UTF-16 here";
    const wchar_t bad[] = {L'a', static_cast<wchar_t>(0x110000), 0};
    std::u16string out;
    EXPECT_FALSE(AppendUtf16(bad, out));
}

} // namespace
