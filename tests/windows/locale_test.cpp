// SPDX-License-Identifier: Apache-2.0
// The narrow forms under the Windows C runtime's own "C" locale. The named
// locales every platform has (single-byte, double-byte, UTF-8) are covered
// by tests/dom/narrow_locales_test.cpp.
#include <gtest/gtest.h>

#include "support/text.h"
#include "zuxml.h"

using namespace zuxml_test;

namespace {

// The "C" locale of the Windows C runtime passes bytes through as the
// first 256 code points instead of rejecting bytes above 127.
TEST(CLocale, BytesAboveAsciiBecomeTheFirst256CodePoints) {
    ScopedLocale locale("C");
    ASSERT_TRUE(locale.ok());
    ZuXmlDocument document = ZuXmlCreateWriteDocumentA("caf\xe9", nullptr, nullptr);
    ASSERT_NE(document, nullptr);
    ZuXmlWChar name[8] = {};
    int32_t length = 8;
    EXPECT_EQ(ZuXmlGetNodeNameW(document, ZuXmlGetRootNode(document), name, &length), 1);
    EXPECT_EQ(WString(name), W(u"caf\u00e9"));
    ZuXmlReleaseDocument(document);
}

} // namespace
