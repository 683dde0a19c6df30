// No path the library offers leaks, apart from those it keeps on purpose:
// glibc's in-use bytes come back to where they were after every run
// (heap_accounting.h). The size of each kept leak is pinned in
// platform_pins/glibc_chunk_pin_test.cpp.
#include <gtest/gtest.h>

#include <string>

#include "frame/CZUXMLTextRecord.h"
#include "heap_accounting.h"
#include "hostile_support.h"
#include "support/text.h"
#include "zuxml.h"

using namespace zuxml_reliability;
using zuxml_test::ScopedLocale;

TEST_F(LeakAccounting, ThePlainPathsLeakNothing) {
    const std::string plain = File("plain.xml", "<r a='1'><b>text</b><!--c--></r>");
    ExpectEachRunLeaks(
        [&] {
            ZuXmlDocument doc = ZuXmlCreateDocument();
            ASSERT_EQ(ZuXmlLoadFromBufA(doc, "<r a='1'><b>t</b></r>", 21), 1);
            ASSERT_EQ(ZuXmlLoadFromFileA(doc, plain.c_str()), 1);
            char text[256];
            int32_t length = sizeof text;
            ASSERT_EQ(ZuXmlWriteToStringA(doc, text, &length), 1);
            ASSERT_EQ(ZuXmlLoadFromBufA(doc, "<r>", 3), 0);
            ZuXmlReleaseDocument(doc);
            ASSERT_EQ(Stream(plain).result, 1);
        },
        0);
}

TEST_F(LeakAccounting, ARecordWhoseNarrowFormTheLocaleCannotHoldLeaksItsScratchBuffer) {
    ScopedLocale locale("C");
    ASSERT_TRUE(locale.ok());
    ExpectEachRunLeaks(
        [] {
            zuxml::CZUXMLTextRecord ascii(zuxml::CZUXMLTextRecord::WideSlot{}, u"abc");
            ASSERT_STREQ(ascii.NarrowForm(), "abc");
        },
        0);
    // One unit and the terminator: calloc(2 * 2 + 1), a 32-byte chunk.
    ExpectEachRunLeaks(
        [] {
            zuxml::CZUXMLTextRecord accented(zuxml::CZUXMLTextRecord::WideSlot{}, u"\u00e9");
            ASSERT_EQ(accented.NarrowForm(), nullptr);
        },
        32);
    // 40 units: calloc(2 * 41 + 1) = 83 bytes, a 96-byte chunk.
    ExpectEachRunLeaks(
        [] {
            zuxml::CZUXMLTextRecord accented(zuxml::CZUXMLTextRecord::WideSlot{},
                                             u"\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"
                                             u"\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"
                                             u"\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"
                                             u"\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9");
            ASSERT_EQ(accented.NarrowForm(), nullptr);
        },
        96);
}

