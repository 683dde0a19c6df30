// The three-form text record: lazy conversion, each form made at most once.
#include <gtest/gtest.h>

#include <cstring>

#include "frame/CZUXMLTextRecord.h"
#include "support/text.h"

using namespace zuxml;
using namespace zuxml_test;

namespace {

TEST(TextRecord, BuiltFromNothingYieldsNullFromBothAccessors) {
    CZUXMLTextRecord record;
    EXPECT_EQ(record.ParserForm(), nullptr);
    EXPECT_EQ(record.NarrowForm(), nullptr);
}

TEST(TextRecord, BuiltFromNullTextYieldsNullFromBothAccessors) {
    CZUXMLTextRecord fromParser(static_cast<const XMLCh *>(nullptr));
    EXPECT_EQ(fromParser.ParserForm(), nullptr);
    EXPECT_EQ(fromParser.NarrowForm(), nullptr);
    CZUXMLTextRecord fromNarrow(static_cast<const char *>(nullptr));
    EXPECT_EQ(fromNarrow.NarrowForm(), nullptr);
    EXPECT_EQ(fromNarrow.ParserForm(), nullptr);
}

TEST(TextRecord, ParserTextIsCopiedNotReferenced) {
    XMLCh text[] = u"root";
    CZUXMLTextRecord record(text);
    text[0] = u'X';
    EXPECT_EQ(std::u16string(record.ParserForm()), u"root");
}

TEST(TextRecord, ParserTextTurnsNarrowThroughXerces) {
    CZUXMLTextRecord record(u"element");
    EXPECT_STREQ(record.NarrowForm(), "element");
    EXPECT_EQ(record.NarrowForm(), record.NarrowForm()) << "made once";
}

TEST(TextRecord, NarrowTextTurnsWideThroughXerces) {
    CZUXMLTextRecord record("file.xml");
    EXPECT_EQ(std::u16string(record.ParserForm()), u"file.xml");
    EXPECT_EQ(record.ParserForm(), record.ParserForm()) << "made once";
}

#if !defined(_WIN32) // glibc's C.UTF-8; tests/windows covers the Windows code pages
TEST(TextRecord, WideSlotReachesParserFormThroughTheLocale) {
    ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    CZUXMLTextRecord record(CZUXMLTextRecord::WideSlot{}, u"abc");
    EXPECT_STREQ(record.NarrowForm(), "abc");
    EXPECT_EQ(std::u16string(record.ParserForm()), u"abc");
}
#endif

TEST(TextRecord, UnrepresentableWideSlotYieldsNull) {
    ScopedLocale locale("C");
    // Beyond U+00FF: the "C" locale of Windows' C runtime takes Latin-1.
    CZUXMLTextRecord record(CZUXMLTextRecord::WideSlot{}, u"caf\u20ac");
    EXPECT_EQ(record.NarrowForm(), nullptr);
    EXPECT_EQ(record.ParserForm(), nullptr);
}

#if !defined(_WIN32) // glibc's C.UTF-8; tests/windows covers the Windows code pages
TEST(TextRecord, LongWideTextUnderAWideLocaleIsCutNotOverrun) {
    ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    // Each of these needs three bytes in UTF-8; the record allows two.
    const std::u16string text(10, u'\u20ac');
    CZUXMLTextRecord record(CZUXMLTextRecord::WideSlot{}, text.c_str());
    const char *narrow = record.NarrowForm();
    ASSERT_NE(narrow, nullptr);
    EXPECT_LE(std::strlen(narrow), 22u);
}
#endif

} // namespace
