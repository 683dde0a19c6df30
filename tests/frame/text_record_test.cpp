// SPDX-License-Identifier: Apache-2.0
// The record behind the narrow file name of a SAX2 load: a Xerces copy of
// the narrow name, made wide by Xerces' transcoder once, when asked for.
#include <gtest/gtest.h>

#include <string>

#include "frame/CZUXMLTextRecord.h"

using namespace zuxml;

namespace {

TEST(TextRecord, NullTextYieldsNull) {
    CZUXMLTextRecord record(nullptr);
    EXPECT_EQ(record.ParserForm(), nullptr);
}

TEST(TextRecord, NarrowTextTurnsWideThroughXerces) {
    CZUXMLTextRecord record("file.xml");
    EXPECT_EQ(std::u16string(record.ParserForm()), u"file.xml");
    EXPECT_EQ(record.ParserForm(), record.ParserForm()) << "made once";
}

TEST(TextRecord, NarrowTextIsCopiedNotReferenced) {
    char text[] = "file.xml";
    CZUXMLTextRecord record(text);
    text[0] = 'X';
    EXPECT_EQ(std::u16string(record.ParserForm()), u"file.xml");
}

TEST(TextRecord, EmptyTextYieldsTheEmptyString) {
    CZUXMLTextRecord record("");
    ASSERT_NE(record.ParserForm(), nullptr);
    EXPECT_EQ(std::u16string(record.ParserForm()), u"");
}

} // namespace
