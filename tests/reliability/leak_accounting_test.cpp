// No path the library offers leaks, apart from those it keeps on purpose:
// glibc's in-use bytes come back to where they were after every run
// (heap_accounting.h). The size of each kept leak is pinned in
// platform_pins/glibc_chunk_pin_test.cpp.
#include <gtest/gtest.h>

#include <string>

#include "heap_accounting.h"
#include "hostile_support.h"
#include "zuxml.h"

using namespace zuxml_reliability;

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
