// SPDX-License-Identifier: Apache-2.0
// No path the library offers leaks, apart from those it keeps on purpose:
// glibc's in-use bytes come back to where they were after every run
// (heap_accounting.h). The size of each kept leak is pinned in
// platform_pins/glibc_chunk_pin_test.cpp.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

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

// The text a too-small WriteToString keeps for the next call lives until
// that next call, whatever it is, and dies with the handle: a document
// does not hold a second copy of itself for long.
TEST_F(LeakAccounting, TextKeptForTheNextWriteToStringLivesOnlyUntilTheNextCall) {
    std::string xml = "<r>";
    for (int i = 0; i < 4000; ++i)
        xml += "<item n='" + std::to_string(i) + "'>text</item>";
    xml += "</r>";
    // The text in UTF-16: at least two bytes a character.
    const long textBytes = static_cast<long>(2 * xml.size());
    ZuXmlDocument doc = ZuXmlCreateDocument();
    ASSERT_EQ(ZuXmlLoadFromBufA(doc, xml.data(), static_cast<uint32_t>(xml.size())), 1);
    const auto askThenCall = [&](const std::function<void()> &next) {
        const long before = static_cast<long>(InUse());
        int32_t length = 0;
        ASSERT_EQ(ZuXmlWriteToStringW(doc, nullptr, &length), 0);
        const long kept = static_cast<long>(InUse()) - before;
        next();
        const long after = static_cast<long>(InUse()) - before;
        if (m_bCounted) {
            EXPECT_GE(kept, textBytes);
            EXPECT_LT(after, textBytes / 4);
        }
    };
    askThenCall([&] { ASSERT_NE(ZuXmlGetRootNode(doc), nullptr); });
    askThenCall([&] { ASSERT_EQ(ZuXmlGetNodeType(doc, ZuXmlGetRootNode(doc)), 1); });
    askThenCall([&] {
        std::vector<ZuXmlWChar> buffer(xml.size() * 2);
        int32_t length = static_cast<int32_t>(buffer.size());
        ASSERT_EQ(ZuXmlWriteToStringW(doc, buffer.data(), &length), 1);
    });
    ZuXmlReleaseDocument(doc);
    ExpectEachRunLeaks(
        [&] {
            ZuXmlDocument asked = ZuXmlCreateDocument();
            ASSERT_EQ(ZuXmlLoadFromBufA(asked, xml.data(), static_cast<uint32_t>(xml.size())), 1);
            int32_t length = 0;
            ASSERT_EQ(ZuXmlWriteToStringA(asked, nullptr, &length), 0);
            ZuXmlReleaseDocument(asked);
        },
        0);
}
